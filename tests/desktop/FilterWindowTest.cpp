#include "desktop/DesktopTest.h"
#include "timebilling/forms/TfrmJobs.h"
#include "timebilling/forms/TfrmJobsFilter.h"
#include "timebilling/forms/TfrmTimeSheets.h"
#include "timebilling/forms/TfrmTimeSheetsFilter.h"

namespace corvane::testing {
namespace {

class FilterWindowTest : public DesktopTest {
protected:
    // The filter shown as a window; its height against what its rows of controls ask for.
    template <class Filter, class List> void ExpectFitsItsContent() {
        auto& list = app.CreateForm<List>(db_);
        auto& filter = app.SingleForm<Filter>(static_cast<shell::ListForm&>(list));
        filter.Show();
        desktop::FormWindow* window = host.WindowOf(filter);
        ASSERT_NE(window, nullptr);
        const int wanted = window->sizeHint().height();
        // A look-up combo keeps its drop-down list as a hidden view: no reason to be tall.
        EXPECT_LE(window->height(), wanted + 8) << filter.Name();
        EXPECT_GE(window->height(), wanted) << filter.Name();
        filter.Close();
    }
};

TEST_F(FilterWindowTest, FilterDialogsOpenAtTheHeightOfTheirControls) {
    ExpectFitsItsContent<timebilling::TfrmJobsFilter, timebilling::TfrmJobs>();
    ExpectFitsItsContent<timebilling::TfrmTimeSheetsFilter, timebilling::TfrmTimeSheets>();
}

} // namespace
} // namespace corvane::testing
