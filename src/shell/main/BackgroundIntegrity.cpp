#include "shell/main/BackgroundIntegrity.h"

#include "store/CompanyFile.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Session.h"
#include "ui/Application.h"

#include <chrono>

namespace corvane::shell {

namespace {

// The corrupt-table message when the company is damaged; empty when it is sound or could not
// be read at all (the user's own work then meets that failure with its own message).
std::string CheckCompany(const std::string& folder) {
    try {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder);
        db.Open();
        store::CheckIntegrity(db);
    } catch (const store::EngineError& e) {
        if (e.ErrorCode() == store::errTableCorrupt) return e.what();
    } catch (...) {
    }
    return {};
}

} // namespace

BackgroundIntegrity::~BackgroundIntegrity() {
    Stop();
}

void BackgroundIntegrity::Start(const std::string& folder) {
    Stop();
    finding_ = std::async(std::launch::async, CheckCompany, folder);
    timer_ = app_.StartTimer(200, true, [this] { Poll(); });
}

void BackgroundIntegrity::Stop() {
    if (timer_) app_.StopTimer(*timer_);
    timer_.reset();
    // The future's end waits for its thread: a check of a small company takes a moment, and
    // nothing of it outlives the connection it opened.
    finding_ = {};
}

void BackgroundIntegrity::Poll() {
    if (!finding_.valid() ||
        finding_.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    Finish();
}

void BackgroundIntegrity::Finish() {
    if (!finding_.valid()) return;
    if (timer_) app_.StopTimer(*timer_);
    timer_.reset();
    const std::string finding = finding_.get();
    if (!finding.empty()) app_.MessageDlg(finding, ui::MsgType::Error, {ui::mbOK});
}

} // namespace corvane::shell
