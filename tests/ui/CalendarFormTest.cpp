#include "HeadlessApp.h"
#include "core/DateEntry.h"
#include "core/Exception.h"
#include "ui/DateEdit.h"
#include "ui/Form.h"
#include "ui/FormDriver.h"
#include "ui/TfrmCalendar.h"

#include <algorithm>
#include <optional>

using namespace corvane;
using namespace corvane::ui;
using corvane::testing::UiCompanyTest;
using corvane::testing::UiTest;

namespace {

Date D(int y, int m, int d) {
    return Date::FromYmd(y, m, d);
}

class CalendarForm : public UiTest {
protected:
    TfrmCalendar& Calendar() { return app.SingleForm<TfrmCalendar>(); }
    // The title and the selected day, as a script saw them.
    static std::pair<std::string, Date> Look(Form& f) {
        auto& cal = dynamic_cast<TfrmCalendar&>(f);
        return {cal.lblMonth.Caption, cal.calMonth.SelectedDate()};
    }
};

TEST_F(CalendarForm, KeysAndMonthButtonsWalkTheDaysAndTheTitleFollows) {
    std::vector<std::pair<std::string, Date>> seen;
    host.ScriptModal("frmCalendar", [&](Form& f) {
        FormDriver d(f);
        seen.push_back(Look(f));
        for (KeyStroke k : {KeyStroke(Key::Right), KeyStroke(Key::Down), KeyStroke(Key::Up),
                            KeyStroke(Key::Left), Ctrl(Key::Right), Ctrl(Key::Left)}) {
            d.PressKey(k);
            seen.push_back(Look(f));
        }
        d.Click("btnPrevMonth");
        seen.push_back(Look(f));
        // The buttons hand the keyboard back to the days, so Enter takes the day.
        EXPECT_EQ(d.FocusedName(), "calMonth");
        d.PressKey(Key::Enter);
    });
    std::optional<Date> picked = Calendar().Execute(D(2016, 1, 31));
    std::vector<std::pair<std::string, Date>> expected = {
        {"January, 2016", D(2016, 1, 31)}, {"February, 2016", D(2016, 2, 1)},
        {"February, 2016", D(2016, 2, 8)}, {"February, 2016", D(2016, 2, 1)},
        {"January, 2016", D(2016, 1, 31)}, {"February, 2016", D(2016, 2, 29)},
        {"January, 2016", D(2016, 1, 29)}, {"December, 2015", D(2015, 12, 29)}};
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(picked, D(2015, 12, 29));
}

TEST_F(CalendarForm, EscapeCancelsAndTheOneFormServesEveryCaller) {
    TfrmCalendar& first = Calendar();
    host.ScriptModal("frmCalendar", [](Form& f) {
        FormDriver d(f);
        d.PressKey(Key::Right);
        d.PressKey(Key::Alt); // stays inside the dialog
        d.PressKey(Key::Escape);
    });
    EXPECT_EQ(first.Execute(D(2017, 3, 1), "Transaction Date"), std::nullopt);
    EXPECT_EQ(first.Caption, "Transaction Date");
    EXPECT_EQ(&Calendar(), &first);
    EXPECT_EQ(std::count(host.Log().begin(), host.Log().end(), "menubar frmCalendar"), 0);

    // Without a start it opens on today; a click on a day returns it at once.
    std::optional<Date> openedOn;
    host.ScriptModal("frmCalendar", [&](Form& f) {
        openedOn = Look(f).second;
        app.Run([&] { first.calMonth.ClickDay(D(2017, 5, 17)); });
    });
    EXPECT_EQ(first.Execute(std::nullopt), D(2017, 5, 17));
    EXPECT_EQ(openedOn, Date::Today());
    EXPECT_EQ(first.Caption, "Calendar");
}

class DatedVoucher : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("JV", {{"JVID", 1},
                         {"GLYear", 2017},
                         {"GLPeriod", 3},
                         {"JVNumber", 1},
                         {"Source", "GL"},
                         {"TransDate", D(2017, 3, 15)},
                         {"TransDescription", "Opening"}});
    }
};

class VoucherDateForm : public Form {
public:
    VoucherDateForm(Application& app, store::Database& db)
        : Form(app, "frmVoucherDate"), tblJV(db, "JV") {
        tblJV.Open();
        // The field reads typed dates its own way and refuses a day outside the period.
        tblJV.FieldByName("TransDate").OnSetText = [](store::Field& field, std::string_view text) {
            Date date = ParseEnteredDate(text);
            if (date.Month() != 3) throw Exception("The date must fall in period 3");
            field.SetAsDate(date);
        };
        dateTrans.Bind(tblJV, "TransDate");
        SetLayout(Column{FormRow{"Date", dateTrans}});
    }
    store::Table tblJV;
    DateEdit dateTrans{*this, "dateTrans"};
};

TEST_F(DatedVoucher, TheDateButtonOpensOnTheFieldsDateAndWritesThePickThroughTheField) {
    VoucherDateForm form(app, db_);
    form.Show();
    FormDriver d(form);
    std::optional<Date> openedOn;
    host.ScriptModal("frmCalendar", [&](Form& f) {
        openedOn = dynamic_cast<TfrmCalendar&>(f).calMonth.SelectedDate();
        FormDriver(f).PressKey(Key::Down);
        FormDriver(f).PressKey(Key::Enter);
    });
    d.Click("dateTrans");
    EXPECT_EQ(openedOn, D(2017, 3, 15));
    EXPECT_EQ(form.tblJV.FieldByName("TransDate").AsDate(), D(2017, 3, 22));
    EXPECT_TRUE(dialogs.Shown().empty());

    // A month on is outside the period: the field's message, and the record keeps its date.
    host.ScriptModal("frmCalendar", [](Form& f) {
        FormDriver(f).PressKey(Ctrl(Key::Right));
        FormDriver(f).PressKey(Key::Enter);
    });
    d.PressKey(Alt(Key::Down));
    EXPECT_EQ(dialogs.LastText(), "The date must fall in period 3");
    EXPECT_EQ(form.tblJV.FieldByName("TransDate").AsDate(), D(2017, 3, 22));
}

} // namespace
