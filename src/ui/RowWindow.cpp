#include "ui/RowWindow.h"

namespace corvane::ui {

using store::DataSet;

RowWindow ReadRowWindow(DataSet& dataSet, const std::vector<std::string>& fieldNames, int before,
                        int after) {
    RowWindow window;
    if (!dataSet.Active()) return window;
    // The cursor shows each row in turn without moving, so nothing scrolls and no control or
    // detail cursor hears of it.
    dataSet.VisitRowsAround(before, after, [&](int offset) {
        std::vector<std::string> texts;
        texts.reserve(fieldNames.size());
        for (const auto& name : fieldNames)
            texts.push_back(dataSet.FieldByName(name).DisplayText());
        window.Rows.push_back(std::move(texts));
        if (offset == 0) window.Current = static_cast<int>(window.Rows.size()) - 1;
    });
    return window;
}

} // namespace corvane::ui
