#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tolvane {

/// Incremental SHA-256. One object serves many digests, one after another.
class Digest {
  public:
    using Value = std::array<std::uint8_t, 32>;

    Digest();
    ~Digest();
    Digest(const Digest&) = delete;
    Digest& operator=(const Digest&) = delete;

    void update(std::span<const std::byte> bytes);
    /// The digest of everything since construction or the last `finish()`; starts afresh.
    Value finish();

  private:
    struct Context;
    std::unique_ptr<Context> context_;
};

/// Lower-case hexadecimal digits, two a byte.
std::string hexadecimal(const Digest::Value& value);

}
