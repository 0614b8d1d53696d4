#include "client/random_token.h"

#ifdef _WIN32
#include <windows.h>

#include <bcrypt.h>
#else
#include <sys/random.h>
#endif

#include <array>
#include <cstddef>

namespace tv::kernel {

namespace {

constexpr size_t kTokenBytes = 16;

bool FillWithSecrets(std::array<unsigned char, kTokenBytes>& bytes)
{
#ifdef _WIN32
    return BCryptGenRandom(nullptr, bytes.data(), kTokenBytes, BCRYPT_USE_SYSTEM_PREFERRED_RNG) == 0;
#else
    return getrandom(bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size());
#endif
}

} // namespace

std::string RandomToken()
{
    std::array<unsigned char, kTokenBytes> bytes{};
    if (!FillWithSecrets(bytes)) {
        return {};
    }
    std::string token;
    for (const unsigned char byte : bytes) {
        token += "0123456789abcdef"[byte >> 4];
        token += "0123456789abcdef"[byte & 15];
    }
    return token;
}

bool SameToken(const std::string& a, const std::string& b)
{
    unsigned difference = a.size() != b.size();
    for (size_t i = 0; i < a.size() && i < b.size(); i++) {
        difference |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i]);
    }
    return difference == 0;
}

} // namespace tv::kernel
