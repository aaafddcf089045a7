#include "core/PasswordHash.h"

#include "core/Exception.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <charconv>
#include <optional>
#include <vector>

namespace corvane {

namespace {

using Bytes = std::vector<unsigned char>;

// Verification never runs more rounds than this, so that a tampered stored value cannot make a
// login hang.
constexpr int MaxIterations = 10'000'000;

std::string Base64(const Bytes& bytes) {
    std::string out(4 * ((bytes.size() + 2) / 3), '\0');
    int written = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(out.data()), bytes.data(),
                                  static_cast<int>(bytes.size()));
    out.resize(static_cast<std::size_t>(written));
    return out;
}

std::optional<Bytes> FromBase64(std::string_view text, std::size_t expectedSize) {
    if (text.empty() || text.size() % 4 != 0) return std::nullopt;
    Bytes out(text.size() / 4 * 3);
    int written = EVP_DecodeBlock(out.data(), reinterpret_cast<const unsigned char*>(text.data()),
                                  static_cast<int>(text.size()));
    if (written < 0) return std::nullopt;
    // The decoder counts padding as zero bytes; take them off again.
    std::size_t padding = text.ends_with("==") ? 2 : text.ends_with("=") ? 1 : 0;
    std::size_t size = static_cast<std::size_t>(written) - padding;
    if (size != expectedSize) return std::nullopt;
    out.resize(size);
    return out;
}

Bytes Derive(std::string_view text, const Bytes& salt, int iterations) {
    Bytes hash(PasswordHash::HashBytes);
    if (PKCS5_PBKDF2_HMAC(text.data(), static_cast<int>(text.size()), salt.data(),
                          static_cast<int>(salt.size()), iterations, EVP_sha256(),
                          static_cast<int>(hash.size()), hash.data()) != 1)
        throw Exception("The password could not be hashed.");
    return hash;
}

struct StoredHash {
    int Iterations = 0;
    Bytes Salt;
    Bytes Hash;
};

std::optional<StoredHash> Parse(std::string_view stored) {
    auto next = [&stored]() {
        std::size_t at = stored.find('$');
        std::string_view part = stored.substr(0, at);
        stored = at == std::string_view::npos ? std::string_view() : stored.substr(at + 1);
        return std::make_pair(part, at != std::string_view::npos);
    };
    auto [scheme, more1] = next();
    auto [rounds, more2] = next();
    auto [salt64, more3] = next();
    std::string_view hash64 = stored;
    if (scheme != PasswordHash::Scheme || !more1 || !more2 || !more3 ||
        hash64.find('$') != std::string_view::npos)
        return std::nullopt;

    StoredHash parsed;
    auto [end, error] =
        std::from_chars(rounds.data(), rounds.data() + rounds.size(), parsed.Iterations);
    if (error != std::errc() || end != rounds.data() + rounds.size() || parsed.Iterations < 1 ||
        parsed.Iterations > MaxIterations)
        return std::nullopt;
    auto salt = FromBase64(salt64, PasswordHash::SaltBytes);
    auto hash = FromBase64(hash64, PasswordHash::HashBytes);
    if (!salt || !hash) return std::nullopt;
    parsed.Salt = std::move(*salt);
    parsed.Hash = std::move(*hash);
    return parsed;
}

} // namespace

std::string PasswordHash::Hash(std::string_view text, int iterations) {
    if (iterations < 1 || iterations > MaxIterations)
        throw Exception("The number of password hash rounds must be from 1 to " +
                        std::to_string(MaxIterations) + ".");
    Bytes salt(SaltBytes);
    if (RAND_bytes(salt.data(), static_cast<int>(salt.size())) != 1)
        throw Exception("No random salt could be drawn for the password.");
    return std::string(Scheme) + "$" + std::to_string(iterations) + "$" + Base64(salt) + "$" +
           Base64(Derive(text, salt, iterations));
}

bool PasswordHash::Verify(std::string_view text, std::string_view stored) {
    // A user saved without a password has nothing stored.
    if (stored.empty()) return text.empty();
    std::optional<StoredHash> parsed = Parse(stored);
    if (!parsed) return false;
    Bytes computed = Derive(text, parsed->Salt, parsed->Iterations);
    return CRYPTO_memcmp(computed.data(), parsed->Hash.data(), computed.size()) == 0;
}

bool PasswordHash::NeedsUpgrade(std::string_view stored) {
    std::optional<StoredHash> parsed = Parse(stored);
    return parsed && parsed->Iterations < DefaultIterations;
}

} // namespace corvane
