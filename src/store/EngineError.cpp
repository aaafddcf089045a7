#include "store/EngineError.h"

namespace corvane::store {

void ThrowEngineError(int code, const std::string& message) {
    throw EngineError(code, message);
}

} // namespace corvane::store
