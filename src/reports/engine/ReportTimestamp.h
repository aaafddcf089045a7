#pragma once

#include "core/Date.h"

namespace corvane::reports {

// When a report run started: every date and time it prints is this one, so all pages agree.
struct ReportTimestamp {
    Date date;
    int hour = 0, minute = 0, second = 0;

    static ReportTimestamp Now();
};

} // namespace corvane::reports
