#pragma once

#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "support/CompanyFixture.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"
#include "ui/ListBox.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace corvane::testing {

// The main form as the company forms see it: a settings file in a temporary folder, a common data
// folder beside it, and every shared routine recorded as a line ("OpenCompany Acme|/folder").
// The answers of the routines are fields a test sets.
class FakeCompanyShell : public shell::CompanyShell {
public:
    explicit FakeCompanyShell(const std::filesystem::path& root)
        : common_(root / "common"), settings_(root / "Corvane.ini") {
        std::filesystem::create_directories(common_);
        settings_.WriteString("Companies", "Sample Data", (common_ / "Data").string());
    }

    bool Remote = false;
    bool Active = false;
    bool OpenSucceeds = true;
    bool LoginSucceeds = true;
    bool TableEmpty = false;
    std::vector<std::string> Calls;

    IniFile& Settings() override { return settings_; }
    const std::filesystem::path& CommonDataFolder() const override { return common_; }
    bool IsRemote() const override { return Remote; }
    bool SessionActive() const override { return Active; }
    bool OpenCompany(const std::string& name, const std::string& folder) override {
        Calls.push_back("OpenCompany " + name + "|" + folder);
        Active = OpenSucceeds;
        return OpenSucceeds;
    }
    bool CheckLogin() override {
        Calls.push_back("CheckLogin");
        return LoginSucceeds;
    }
    void EnableMainMenus(bool enabled) override {
        Calls.push_back(enabled ? "EnableMainMenus on" : "EnableMainMenus off");
    }
    void RebuildCompaniesMenu() override { Calls.push_back("RebuildCompaniesMenu"); }
    void CloseAllForms() override {
        Calls.push_back("CloseAllForms");
        Active = false;
    }
    // Makes the mark of a database, as the real tables would.
    void CreateCompanyTables(const std::string& folder) override {
        Calls.push_back("CreateCompanyTables " + folder);
        std::ofstream(std::filesystem::path(folder) / "company.DAT") << "";
    }
    bool CompanyTableEmpty() override { return TableEmpty; }
    void RunGettingStarted(const std::string& companyName) override {
        Calls.push_back("RunGettingStarted " + companyName);
    }
    void FillSampleData() override { Calls.push_back("FillSampleData"); }

private:
    std::filesystem::path common_;
    IniFile settings_;
};

// A headless program with the fake main form, and helpers to make company folders.
class CompanyFormsTest : public ::testing::Test, protected HeadlessApp {
protected:
    std::string Common(const std::string& below) const {
        return (shell.CommonDataFolder() / below).string();
    }
    // A folder holding a company database.
    std::string MakeDatabase(const std::string& below) {
        std::string path = Common(below);
        std::filesystem::create_directories(path);
        std::ofstream(std::filesystem::path(path) / "company.DAT") << "";
        return path;
    }
    std::vector<std::string> Companies() { return shell.Settings().ReadSection("Companies"); }
    std::string FolderOf(const std::string& company) {
        return shell.Settings().ReadString("Companies", company, "<none>");
    }
    // Texts of the boxes shown so far, oldest first.
    std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const auto& m : dialogs.Shown())
            texts.push_back(m.Text);
        return texts;
    }
    // A click on the item of the company list that reads name.
    void ClickCompany(ui::FormDriver& driver, const std::string& name) {
        auto& list = driver.GetForm().Get<ui::ListBox>("lboCompanies");
        int index = list.IndexOf(name);
        ASSERT_GE(index, 0) << name;
        app.Run([&] {
            list.SetFocus();
            list.ClickItem(index);
        });
    }
    int ListIndex(ui::FormDriver& driver) {
        return driver.GetForm().Get<ui::ListBox>("lboCompanies").ItemIndex();
    }
    // Queues what the person does at the next modal showing of the form.
    void WhenShown(const std::string& formName, std::function<void(ui::FormDriver&)> act) {
        host.ScriptModal(formName, [act = std::move(act)](ui::Form& form) {
            ui::FormDriver driver(form);
            act(driver);
        });
    }

    TempFolder folder;
    FakeCompanyShell shell{folder.Path()};
};

} // namespace corvane::testing
