#include "core/FormatSettings.h"

#include <cctype>

namespace corvane {

FormatSettings& ProcessFormatSettings() {
    static FormatSettings settings;
    return settings;
}

namespace {

// Takes one letter out of the first run of three or more of letter (either case).
void ShortenFirstRun(std::string& format, char letter) {
    auto matches = [letter](char c) {
        return std::tolower(static_cast<unsigned char>(c)) == letter;
    };
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (!matches(format[i])) continue;
        std::size_t end = i;
        while (end < format.size() && matches(format[end]))
            ++end;
        if (end - i >= 3) {
            format.erase(i, 1);
            return;
        }
        i = end;
    }
}

} // namespace

std::string NumericShortDateFormat(std::string_view format) {
    std::string result(format);
    ShortenFirstRun(result, 'm');
    ShortenFirstRun(result, 'd');
    return result;
}

void MakeShortDateNumeric(FormatSettings& settings) {
    settings.ShortDateFormat = NumericShortDateFormat(settings.ShortDateFormat);
}

} // namespace corvane
