#include "support/ChildProcess.h"
#include "support/CompanyFixture.h"

#include "store/Query.h"

#include <fstream>
#include <map>
#include <set>
#include <sstream>

using namespace corvane;
using corvane::testing::CompanyTest;
using corvane::tests::ChildProcess;

namespace {

// Two workstations add 200 accounts, subaccounts and currencies each through the entry forms at
// the same moment: every save goes through, no id is drawn twice, and every row is there.
TEST_F(CompanyTest, TwoWorkstationsAddingAccountsAndCurrenciesAtOnceNeverShareAnId) {
    constexpr int Each = 200;
    InsertRow(
        "GLAccnt",
        {{"GLAccountID", 1}, {"GLAccount", "1000"}, {"AccountName", "Cash"}, {"AccountType", 1}});
    db_.Close();
    const std::string start = folder_.Path() + "/start";
    std::vector<std::unique_ptr<ChildProcess>> adders;
    for (const char* tag : {"A", "B"}) {
        adders.push_back(std::make_unique<ChildProcess>(
            CORVANE_ACCOUNT_ADDER,
            std::vector<std::string>{folder_.Path(), start, tag, std::to_string(Each)}));
        ASSERT_TRUE(adders.back()->WaitForLine("ready")) << adders.back()->Output();
    }
    std::ofstream(start).put('\n');

    std::map<std::string, std::set<std::int64_t>> ids;
    for (auto& adder : adders) {
        ASSERT_TRUE(adder->WaitForLine("done", std::chrono::milliseconds(120000)))
            << adder->Output();
        auto status = adder->Wait();
        ASSERT_TRUE(status && status->exited && status->code == 0);
        std::istringstream lines(adder->Output());
        for (std::string line; std::getline(lines, line);) {
            if (line == "ready" || line == "done") continue;
            std::istringstream words(line);
            std::string table;
            std::int64_t id = 0;
            ASSERT_TRUE(words >> table >> id) << line;
            EXPECT_TRUE(ids[table].insert(id).second) << "drawn twice: " << line;
        }
    }
    db_.Open();
    // The ids follow the highest one: max + 1 stays max + 1, with no gap.
    const std::map<std::string, std::int64_t> firstId{
        {"GLAccnt", 2}, {"GLAcSub1", 1}, {"Currency", 1}};
    for (const auto& [table, first] : firstId) {
        ASSERT_EQ(ids[table].size(), 2u * Each) << table;
        EXPECT_EQ(*ids[table].begin(), first) << table;
        EXPECT_EQ(*ids[table].rbegin(), first + 2 * Each - 1) << table;
    }
    EXPECT_EQ(CountRows("GLAccnt"), 2 * Each + 1);
    EXPECT_EQ(CountRows("GLAcSub1"), 2 * Each);
    EXPECT_EQ(CountRows("Currency"), 2 * Each);
}

} // namespace
