#pragma once

#include <string>

namespace corvane::shell {
class ListForm;
class FilterForm;
} // namespace corvane::shell

namespace corvane::timebilling {

// A list that can narrow to what is still open, alone or beside its filter dialog's criteria:
// jobs not completed, time not billed. It owns the list's filter and caption ("Jobs", "Jobs
// (Filtered)", "Jobs (Outstanding)", "Jobs (Outstanding, Filtered)").
class OutstandingView {
public:
    OutstandingView(shell::ListForm& list, std::string condition);

    // Sets the filter and the caption from the Outstanding entry and the dialog's criteria.
    void Apply(const shell::FilterForm* filter);
    void SetOutstanding(bool on, const shell::FilterForm* filter);
    static std::string Caption(const std::string& title, bool outstanding, bool filtered);

private:
    shell::ListForm& list_;
    std::string condition_;
};

} // namespace corvane::timebilling
