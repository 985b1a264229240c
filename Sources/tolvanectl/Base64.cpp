#include "Base64.h"

#include <cstdint>

namespace tolvane::Base64 {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t bytesPerGroup = 3;
constexpr std::size_t lettersPerGroup = 4;

}

std::string encoded(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += bytesPerGroup) {
        const std::string_view group = bytes.substr(i, bytesPerGroup);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < bytesPerGroup; ++k) {
            bits = bits << 8 | (k < group.size() ? static_cast<std::uint8_t>(group[k]) : 0U);
        }
        for (std::size_t k = 0; k < lettersPerGroup; ++k) {
            text += k <= group.size() ? alphabet[bits >> (18 - 6 * k) & 0x3FU] : '=';
        }
    }
    return text;
}

std::optional<std::string> decoded(std::string_view text) {
    std::string bytes;
    std::uint32_t bits = 0;
    unsigned bitCount = 0;
    for (const char letter : text.substr(0, text.find('='))) {
        const std::size_t value = alphabet.find(letter);
        if (value == std::string_view::npos) {
            return std::nullopt;
        }
        bits = bits << 6 | static_cast<std::uint32_t>(value);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes += static_cast<char>(bits >> bitCount & 0xFFU);
        }
    }
    // The way back tells wrong padding and left-over bits.
    return encoded(bytes) == text ? std::optional(bytes) : std::nullopt;
}

}
