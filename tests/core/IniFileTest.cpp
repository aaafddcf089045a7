#include "core/IniFile.h"
#include "core/Exception.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace corvane {
namespace {

namespace fs = std::filesystem;

class IniFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() /
                  ("corvane-ini-" + std::to_string(::getpid()) + "-" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        path_ = folder_ / "Corvane.ini";
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string FileText() const {
        std::ifstream in(path_, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    void WriteFile(const std::string& text) const {
        std::ofstream out(path_, std::ios::binary);
        out << text;
    }

    fs::path folder_;
    fs::path path_;
};

TEST_F(IniFileTest, NamesMatchWithoutRegardToCaseAndKeepTheirFirstSpellingAndOrder) {
    IniFile ini(path_);
    ini.WriteString("Companies", "Zeta Ltd", "/z");
    ini.WriteString("companies", "Acme", "/a");
    ini.WriteString("COMPANIES", "ACME", "/a2");
    ini.WriteString("General", "Database", "/a2");

    EXPECT_EQ(ini.ReadString("cOmPaNiEs", "acme", "none"), "/a2");
    EXPECT_TRUE(ini.ValueExists("companies", "ZETA LTD"));
    EXPECT_TRUE(ini.SectionExists("GENERAL"));
    EXPECT_EQ(ini.ReadSection("Companies"), (std::vector<std::string>{"Zeta Ltd", "Acme"}));
    EXPECT_EQ(FileText(), "[Companies]\nZeta Ltd=/z\nAcme=/a2\n\n[General]\nDatabase=/a2\n");
}

TEST_F(IniFileTest, AMissingFileReadsAsEmptyAndIsMadeAtTheFirstWrite) {
    IniFile ini(path_);
    EXPECT_FALSE(ini.SectionExists("General"));
    EXPECT_EQ(ini.ReadString("General", "System", "Time Billing"), "Time Billing");
    EXPECT_TRUE(ini.ReadSection("Companies").empty());
    EXPECT_FALSE(fs::exists(path_));
    ini.WriteBool("General", "ViewCompanyName", true);
    EXPECT_TRUE(fs::exists(path_));
}

TEST_F(IniFileTest, IntegersAndBooleansFallBackToTheDefaultOnAnythingElse) {
    WriteFile("[General]\nA=12\nB=-3\nC=abc\nD=12x\nE=\nF=0\nG=+7\n");
    IniFile ini(path_);
    EXPECT_EQ(ini.ReadInteger("General", "A", 5), 12);
    EXPECT_EQ(ini.ReadInteger("General", "B", 5), -3);
    EXPECT_EQ(ini.ReadInteger("General", "C", 5), 5);
    EXPECT_EQ(ini.ReadInteger("General", "D", 5), 5);
    EXPECT_EQ(ini.ReadInteger("General", "E", 5), 5);
    EXPECT_EQ(ini.ReadInteger("General", "G", 5), 7);
    EXPECT_EQ(ini.ReadInteger("General", "Missing", 5), 5);
    EXPECT_FALSE(ini.ReadBool("General", "F", true));
    EXPECT_TRUE(ini.ReadBool("General", "A", false));
    EXPECT_TRUE(ini.ReadBool("General", "C", true));
    EXPECT_FALSE(ini.ReadBool("General", "C", false));
    // An empty value is still a value: a string read gives it, not the default.
    EXPECT_EQ(ini.ReadString("General", "E", "dflt"), "");
}

TEST_F(IniFileTest, AHandEditedFileIsReadLeniently) {
    WriteFile("; settings\r\nstray=1\r\n[ General ]\r\n  Database = /home/co = x  \r\n"
              "no equals sign\r\nDATABASE=/second\r\n[general]\r\nSystem=GL\r\n");
    IniFile ini(path_);
    EXPECT_EQ(ini.ReadString("General", "Database", ""), "/home/co = x");
    EXPECT_EQ(ini.ReadString("General", "System", ""), "GL");
    EXPECT_EQ(ini.ReadSection("General"), (std::vector<std::string>{"Database", "System"}));
    EXPECT_FALSE(ini.ValueExists("General", "stray"));
}

TEST_F(IniFileTest, DeletesAndErasuresReachTheFile) {
    IniFile ini(path_);
    ini.WriteString("Companies", "Acme", "/a");
    ini.WriteString("Companies", "Sample Data", "/s");
    ini.WriteInteger("General", "LogoWidth", 120);
    ini.DeleteKey("Companies", "ACME");
    ini.DeleteKey("Companies", "not there");
    ini.DeleteKey("Nowhere", "Acme");
    IniFile again(path_);
    EXPECT_EQ(again.ReadSection("Companies"), (std::vector<std::string>{"Sample Data"}));
    EXPECT_EQ(again.ReadInteger("General", "LogoWidth", 0), 120);
    again.EraseSection("general");
    EXPECT_EQ(FileText(), "[Companies]\nSample Data=/s\n");
}

TEST_F(IniFileTest, ReloadSeesWhatAnotherProgramWrote) {
    IniFile ini(path_);
    ini.WriteString("General", "System", "AP");
    WriteFile("[General]\nSystem=GL\n[Companies]\nAcme=/a\n");
    EXPECT_EQ(ini.ReadString("General", "System", ""), "AP");
    ini.Reload();
    EXPECT_EQ(ini.ReadString("General", "System", ""), "GL");
    EXPECT_EQ(ini.ReadString("Companies", "Acme", ""), "/a");
}

TEST_F(IniFileTest, AWriteReplacesTheFileWholeAndLeavesNothingBeside) {
    IniFile ini(path_);
    for (int i = 0; i < 5; ++i)
        ini.WriteInteger("General", "Counter", i);
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder_))
        files.push_back(entry.path().filename());
    EXPECT_EQ(files, (std::vector<fs::path>{"Corvane.ini"}));
    EXPECT_EQ(FileText(), "[General]\nCounter=4\n");
}

TEST_F(IniFileTest, AWriteThatCannotReachTheDiskRaisesAndKeepsNothingHalfDone) {
    IniFile ini(folder_ / "no such folder" / "Corvane.ini");
    EXPECT_THROW(ini.WriteString("General", "System", "AP"), Exception);
    EXPECT_FALSE(fs::exists(folder_ / "no such folder"));
}

} // namespace
} // namespace corvane
