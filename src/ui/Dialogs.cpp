#include "ui/Dialogs.h"

namespace corvane::ui {

std::vector<MsgButton> MsgButtons::List() const {
    std::vector<MsgButton> list;
    for (int b = mbYes; b <= mbAll; ++b)
        if (Has(static_cast<MsgButton>(b))) list.push_back(static_cast<MsgButton>(b));
    return list;
}

std::string ButtonCaption(MsgButton button) {
    switch (button) {
    case mbYes:
        return "Yes";
    case mbNo:
        return "No";
    case mbOK:
        return "OK";
    case mbCancel:
        return "Cancel";
    case mbAbort:
        return "Abort";
    case mbRetry:
        return "Retry";
    case mbIgnore:
        return "Ignore";
    case mbAll:
        return "All";
    }
    return "?";
}

} // namespace corvane::ui
