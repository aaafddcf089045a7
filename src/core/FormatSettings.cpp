#include "core/FormatSettings.h"

namespace corvane {

FormatSettings& ProcessFormatSettings() {
    static FormatSettings settings;
    return settings;
}

} // namespace corvane
