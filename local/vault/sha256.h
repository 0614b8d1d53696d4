// SHA-256 over a stream of bytes. Contents are named by it, so that a content can be proved whole at any time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tv::local {

class Sha256
{
  public:
    void Add(std::span<const std::byte> bytes);
    /// The digest in 64 small hexadecimal digits. The object is used up.
    std::string Finish();

  private:
    void Compress(const uint8_t* block);

    std::array<uint32_t, 8> state{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                  0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<uint8_t, 64> pending{};
    size_t pendingSize = 0;
    uint64_t totalSize = 0;
};

} // namespace tv::local
