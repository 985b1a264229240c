#include <HostKit/FileURL.h>
#include <HostKit/Text.h>

#include <unicode/bytestream.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>

namespace tolvane {
namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// The number of bytes of the code point that `bytes` begins with; 0 when it begins with none.
std::size_t codePointLength(std::string_view bytes) {
    constexpr std::size_t longest = 4;
    const char* const data = bytes.data();
    const auto limit = static_cast<int>(std::min(bytes.size(), longest));
    int length = 0;
    UChar32 codePoint = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    U8_NEXT(data, length, limit, codePoint);
#pragma GCC diagnostic pop
    return codePoint < 0 ? 0 : static_cast<std::size_t>(length);
}

bool isASCII(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char lowercasedASCII(char byte) {
    const bool isCapital = byte >= 'A' && byte <= 'Z';
    return isCapital ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// Whether `bytes` has an ASCII character, or its end, at `position` and behind it. Normalisation
/// changes no ASCII character that no combining mark follows.
bool isPlainAt(std::string_view bytes, std::size_t position) {
    const std::string_view rest = bytes.substr(position);
    return rest.empty() || (isASCII(rest[0]) && (rest.size() == 1 || isASCII(rest[1])));
}

std::size_t firstDifference(std::string_view a, std::string_view b) {
    constexpr std::size_t step = 8;
    const std::size_t common = std::min(a.size(), b.size());
    std::size_t position = 0;
    while (position + step <= common &&
           std::memcmp(a.data() + position, b.data() + position, step) == 0) {
        position += step;
    }
    while (position < common && a[position] == b[position]) {
        ++position;
    }
    return position;
}

/// Normalization form C; absent when the bytes are no UTF-8.
std::optional<std::string> composed(std::string_view bytes) {
    constexpr auto longest = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    if (bytes.size() > longest || !isValidUTF8(bytes)) {
        return std::nullopt;
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) {
        return std::nullopt;
    }
    std::string text;
    icu::StringByteSink<std::string> sink(&text);
    normalizer->normalizeUTF8(
        0, icu::StringPiece(bytes.data(), static_cast<std::int32_t>(bytes.size())), sink, nullptr,
        status);
    return U_FAILURE(status) ? std::nullopt : std::optional(std::move(text));
}

}

bool isValidUTF8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = codePointLength(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::string displayText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = codePointLength(bytes);
        text += length == 0 ? replacementCharacter : bytes.substr(0, length);
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string lowercased(std::string_view bytes) {
    std::string text;
    if (std::all_of(bytes.begin(), bytes.end(), isASCII)) {
        std::transform(bytes.begin(), bytes.end(), std::back_inserter(text), lowercasedASCII);
        return text;
    }
    text = displayText(bytes);
    icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
    text.clear();
    units.toLower(icu::Locale::getRoot()).toUTF8String(text);
    return text;
}

std::size_t characterCount(std::string_view bytes) {
    std::size_t count = 0;
    while (!bytes.empty()) {
        bytes.remove_prefix(std::max<std::size_t>(codePointLength(bytes), 1));
        ++count;
    }
    return count;
}

bool canonicallyEqual(std::string_view a, std::string_view b) {
    if (a == b) {
        return true;
    }
    const std::size_t difference = firstDifference(a, b);
    if (isPlainAt(a, difference) && isPlainAt(b, difference)) {
        return false;
    }
    const std::optional<std::string> composedA = composed(a);
    return composedA && composedA == composed(b);
}

bool hasCanonicalPrefix(std::string_view path, std::string_view prefix) {
    if (liesWithin(path, prefix)) {
        return true;
    }
    const std::size_t difference = firstDifference(path, prefix);
    if (isPlainAt(path, difference) && isPlainAt(prefix, difference)) {
        return false;
    }
    const std::optional<std::string> composedPath = composed(path);
    const std::optional<std::string> composedPrefix = composed(prefix);
    return composedPath && composedPrefix && liesWithin(*composedPath, *composedPrefix);
}

}
