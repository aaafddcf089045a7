#pragma once

#include "core/Exception.h"

#include <string>

namespace corvane::store {

// Every failure of the store is an EngineError with a numeric code that callers may test.
enum EngineErrorCode : int {
    errRecordChanged = 8708, // the row was changed or deleted by another since it was read
    errTableCorrupt = 8961,
    errKeyViolation = 9729, // a unique index would be broken
    errRequiredField = 9730,
    errStringTooLong = 9731,
    errValueOutOfRange = 9732,
    errInvalidValue = 9733, // text that does not convert to the field's type
    errRecordLocked = 10258,
    errTableLocked = 10259, // a table lock held by another, or one that could not be taken
    errTableNotFound = 11010,
    errNotADatabase = 11011,
    errTableExists = 11012,
    errTableInUse =
        11013, // opened exclusively by another, or open elsewhere when exclusive use is asked
    errFieldNotFound = 11020,
    errIndexNotFound = 11021,
    errFilterSyntax = 11030,
    errSqlSyntax = 11031,
    errSqlRefused = 11032,   // a statement that a read-only caller may not run
    errDataSetState = 11040, // not open, not in edit or insert state, and the like
    errTransaction = 11041,
    errIo = 11050,
};

class EngineError : public Exception {
public:
    EngineError(int code, const std::string& message) : Exception(message), code_(code) {}
    int ErrorCode() const { return code_; }

private:
    int code_;
};

[[noreturn]] void ThrowEngineError(int code, const std::string& message);

} // namespace corvane::store
