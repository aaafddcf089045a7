#pragma once

#include "core/Exception.h"

namespace corvane::reports {

// A report expression that cannot be read or computed. The message names the expression and
// what is wrong, and reaches the user as it stands.
class ExpressionError : public Exception {
public:
    using Exception::Exception;
};

} // namespace corvane::reports
