#include "ledger/domain/VoucherTexts.h"

#include <cstdio>

namespace corvane::ledger {

std::string LineUnknownSubaccount(int level) {
    return "Subaccount " + std::to_string(level) +
           " not found...\nMake changes or press Esc to undo";
}

std::string VoucherSourceLabel(std::string_view source, std::string_view transType) {
    // Payables cheques were always called payments on screen; only the label differs.
    if (source == "AP" && transType == "Chq") return "AP Pmt";
    return std::string(source) + " " + std::string(transType);
}

std::string PeriodText(int period, int year) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d/%04d", period, year);
    return text;
}

} // namespace corvane::ledger
