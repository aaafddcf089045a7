#include "ui/Caption.h"

#include <cctype>

namespace corvane::ui {

std::string PlainCaption(std::string_view caption) {
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&') {
            if (++i == caption.size()) break;
        }
        plain += caption[i];
    }
    return plain;
}

char AcceleratorOf(std::string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] != '&')
            return static_cast<char>(std::toupper(static_cast<unsigned char>(caption[i + 1])));
        ++i;
    }
    return 0;
}

} // namespace corvane::ui
