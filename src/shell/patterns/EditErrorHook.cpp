#include "shell/patterns/EditErrorHook.h"

namespace corvane::shell {

namespace {
store::DataSet::ErrorHandler& Installed() {
    static store::DataSet::ErrorHandler handler;
    return handler;
}
} // namespace

void EditErrorHook::Install(store::DataSet::ErrorHandler handler) {
    Installed() = std::move(handler);
}

void EditErrorHook::Attach(store::DataSet& dataSet) {
    // A forwarding handler, so that one installed later reaches tables attached before it.
    auto forward = [](store::DataSet& ds, store::EngineError& e, store::DataAction& action) {
        if (Installed()) Installed()(ds, e, action);
    };
    dataSet.OnEditError = forward;
    dataSet.OnDeleteError = forward;
}

} // namespace corvane::shell
