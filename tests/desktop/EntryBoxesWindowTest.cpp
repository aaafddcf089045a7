#include "banking/currencies/TfrmCurrencies.h"
#include "banking/currencies/TfrmCurrency.h"
#include "desktop/DesktopTest.h"
#include "desktop/FormWindow.h"
#include "ui/FormDriver.h"

#include <QApplication>
#include <QLineEdit>

namespace corvane::testing {
namespace {

class EntryBoxesWindowTest : public DesktopTest {};

// The currency form's account names show whole however long the table lets a name be, and its
// figures stand at the right of their boxes while names stay at the left.
TEST_F(EntryBoxesWindowTest, CurrencyAccountNamesShowWholeAndRatesStandRight) {
    // Fifty characters, the most an account name holds, in capitals and wide letters.
    const std::string longName = "Realized Gain/Loss on Foreign Exchange - WM Dollar";
    ASSERT_EQ(longName.size(), 50u);
    for (int id = 1; id <= 4; ++id)
        InsertRow("GLAccnt", {{"GLAccountID", id},
                              {"GLAccount", id == 3 ? "1000-20-30" : std::to_string(2000 + id)},
                              {"AccountName", id == 3 ? longName : "Short " + std::to_string(id)},
                              {"AccountType", 2}});
    InsertRow("Currency", {{"CurrencyID", 1},
                           {"CurrencyName", "US Dollars"},
                           {"ExchangeRate", 1.25},
                           {"APGLAccountID", 1},
                           {"APDiscGLAccountID", 2},
                           {"ARGLAccountID", 3},
                           {"ARDiscGLAccountID", 4}});
    auto& list = app.CreateForm<banking::TfrmCurrencies>(db_);
    list.Show();
    ui::FormDriver(list).Click("mnuEdit");
    auto& entry = dynamic_cast<banking::TfrmCurrency&>(app.GetForm("frmCurrency"));
    desktop::FormWindow* window = host.WindowOf(entry);
    ASSERT_NE(window, nullptr);
    QApplication::processEvents();

    auto* name = Widget<QLineEdit>(*window, "editARGLAccountName");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text().toStdString(), longName);
    // The text and the box's own margins of two pixels a side fit in its contents.
    const int textWidth = name->fontMetrics().horizontalAdvance(name->text());
    EXPECT_GE(name->contentsRect().width() - name->textMargins().left() -
                  name->textMargins().right() - 4,
              textWidth)
        << "the box is " << name->width() << " pixels wide";
    EXPECT_LE(window->width(), window->screen()->availableSize().width());
    // The number beside it, of the ten characters a number holds, shows whole too.
    auto* number = Widget<QLineEdit>(*window, "editARGLAccount");
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->text().toStdString(), "1000-20-30");
    EXPECT_GE(number->contentsRect().width() - 4,
              number->fontMetrics().horizontalAdvance(number->text()));

    auto* rate = Widget<QLineEdit>(*window, "editExchangeRate");
    auto* currency = Widget<QLineEdit>(*window, "editCurrencyName");
    ASSERT_NE(rate, nullptr);
    ASSERT_NE(currency, nullptr);
    EXPECT_TRUE(rate->alignment() & Qt::AlignRight);
    EXPECT_TRUE(currency->alignment() & Qt::AlignLeft);
    auto* period = Widget<QLineEdit>(*window, "editExchangeRateTY1");
    ASSERT_NE(period, nullptr);
    EXPECT_TRUE(period->alignment() & Qt::AlignRight);
}

} // namespace
} // namespace corvane::testing
