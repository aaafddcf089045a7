#include "ui/RowWindow.h"

namespace corvane::ui {

using store::DataSet;

namespace {

// Keeps a walk over the cursor invisible: no control redraws and no AfterScroll handler runs for
// rows the user never stood on.
class QuietWalk {
public:
    explicit QuietWalk(DataSet& dataSet)
        : dataSet_(dataSet), before_(std::move(dataSet.BeforeScroll)),
          after_(std::move(dataSet.AfterScroll)) {
        dataSet_.BeforeScroll = nullptr;
        dataSet_.AfterScroll = nullptr;
        dataSet_.DisableControls();
    }
    ~QuietWalk() {
        dataSet_.BeforeScroll = std::move(before_);
        dataSet_.AfterScroll = std::move(after_);
        dataSet_.EnableControls();
    }
    QuietWalk(const QuietWalk&) = delete;
    QuietWalk& operator=(const QuietWalk&) = delete;

private:
    DataSet& dataSet_;
    DataSet::Handler before_, after_;
};

std::vector<std::string> Texts(DataSet& dataSet, const std::vector<std::string>& fieldNames) {
    std::vector<std::string> texts;
    texts.reserve(fieldNames.size());
    for (const auto& name : fieldNames)
        texts.push_back(dataSet.FieldByName(name).DisplayText());
    return texts;
}

} // namespace

RowWindow ReadRowWindow(DataSet& dataSet, const std::vector<std::string>& fieldNames, int before,
                        int after) {
    RowWindow window;
    if (!dataSet.Active() || dataSet.IsEmpty()) return window;
    if (dataSet.State() != store::DataSetState::Browse) {
        window.Rows.push_back(Texts(dataSet, fieldNames));
        window.Current = 0;
        return window;
    }
    bool wasBof = dataSet.Bof(), wasEof = dataSet.Eof();
    QuietWalk quiet(dataSet);
    int back = before > 0 ? -dataSet.MoveBy(-before) : 0;
    window.Rows.push_back(Texts(dataSet, fieldNames));
    int ahead = 0;
    for (int i = 0; i < back + std::max(after, 0); ++i) {
        if (dataSet.MoveBy(1) != 1) break;
        ++ahead;
        window.Rows.push_back(Texts(dataSet, fieldNames));
    }
    window.Current = back;
    // Back to the row we started on, with the same edge flags as before the walk.
    if (wasBof)
        dataSet.First();
    else if (wasEof)
        dataSet.Last();
    else if (ahead != back)
        dataSet.MoveBy(back - ahead);
    return window;
}

} // namespace corvane::ui
