#pragma once

#include <string>
#include <string_view>

namespace corvane {

// How a user's password is kept in the Users table: never the text itself, but a salted, slow
// hash in one self-describing string, "pbkdf2-sha256$<iterations>$<salt>$<hash>" (salt and hash in
// base64), so that the number of rounds can grow later without making stored values unreadable.
class PasswordHash {
public:
    static constexpr int DefaultIterations = 600000;
    static constexpr std::string_view Scheme = "pbkdf2-sha256";
    static constexpr int SaltBytes = 16;
    static constexpr int HashBytes = 32;

    // A new stored value for text, with a fresh random salt: hashing the same text twice gives
    // two different strings that both verify. Iterations below 1 are refused.
    static std::string Hash(std::string_view text, int iterations = DefaultIterations);

    // Whether text is the password that stored was made from. An empty stored value (a user
    // without a password) matches only the empty text; a value not in the format matches nothing.
    // The hashes are compared in constant time.
    static bool Verify(std::string_view text, std::string_view stored);

    // Whether a stored value that verified should be hashed anew: it was made with fewer rounds
    // than are used now. The login hashes the typed password again when it is.
    static bool NeedsUpgrade(std::string_view stored);
};

} // namespace corvane
