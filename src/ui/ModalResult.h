#pragma once

namespace corvane::ui {

// How a modal form was closed; mrNone while it is open.
enum ModalResult { mrNone, mrOK, mrCancel, mrAbort, mrRetry, mrIgnore, mrYes, mrNo, mrAll };

} // namespace corvane::ui
