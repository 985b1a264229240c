#include <HostKit/Lines.h>
#include <HostKit/TrashInfo.h>

#include <cmath>
#include <ctime>

namespace tolvane {
namespace {

constexpr std::string_view header = "[Trash Info]";
constexpr std::string_view pathKey = "Path=";
constexpr std::string_view dateKey = "DeletionDate=";
constexpr std::string_view infoExtension = ".trashinfo";
constexpr std::size_t maximumNameLength = 255 - infoExtension.size();
constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isUnreserved(char character) {
    const bool isLetter =
        (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
    const bool isDigit = character >= '0' && character <= '9';
    return isLetter || isDigit || std::string_view("-_.~/").find(character) != std::string::npos;
}

std::string percentEncoded(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char character : bytes) {
        if (isUnreserved(character)) {
            text += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        text += '%';
        text += hexDigits[byte >> 4U];
        text += hexDigits[byte & 15U];
    }
    return text;
}

std::optional<unsigned> hexValue(char digit) {
    const char upper = digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
    const std::size_t value = hexDigits.find(upper);
    return value == std::string_view::npos ? std::nullopt
                                           : std::optional(static_cast<unsigned>(value));
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] != '%') {
            bytes += text[position];
            continue;
        }
        if (text.size() - position < 3) {
            return std::nullopt;
        }
        const std::optional<unsigned> high = hexValue(text[position + 1]);
        const std::optional<unsigned> low = hexValue(text[position + 2]);
        if (!high || !low) {
            return std::nullopt;
        }
        bytes += static_cast<char>(static_cast<unsigned char>(*high << 4U | *low));
        position += 2;
    }
    return bytes;
}

bool isContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0U) == 0x80U;
}

/// At most `length` bytes of `text`, not ending inside a character. What is no UTF-8 may be cut
/// anywhere.
std::string_view shortened(std::string_view text, std::size_t length) {
    if (text.size() <= length) {
        return text;
    }
    std::size_t end = length;
    for (int back = 0; back < 3 && end > 0 && isContinuation(text[end]); ++back) {
        --end;
    }
    return text.substr(0, isContinuation(text[end]) ? length : end);
}

}

std::string TrashInfo::text() const {
    std::string text(header);
    text += '\n';
    text += pathKey;
    text += percentEncoded(path);
    text += '\n';
    if (!deletionDate.empty()) {
        text += dateKey;
        text += deletionDate;
        text += '\n';
    }
    return text;
}

std::optional<TrashInfo> TrashInfo::parse(std::string_view text) {
    if (takeLine(text) != header) {
        return std::nullopt;
    }
    std::optional<std::string_view> path;
    std::optional<std::string_view> date;
    while (!text.empty() && !text.starts_with('[')) {
        const std::string_view line = takeLine(text);
        if (!path && line.starts_with(pathKey)) {
            path = line.substr(pathKey.size());
        } else if (!date && line.starts_with(dateKey)) {
            date = line.substr(dateKey.size());
        }
    }
    std::optional<std::string> decoded = percentDecoded(path.value_or(""));
    if (!decoded || decoded->empty() || decoded->find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return TrashInfo{std::move(*decoded), std::string(date.value_or(""))};
}

std::string deletionDate(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date));
    std::tm local{};
    char text[64];
    if (::localtime_r(&seconds, &local) == nullptr) {
        return {};
    }
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local)};
}

std::string trashName(std::string_view name, unsigned number) {
    std::string counter;
    if (number > 1) {
        counter += '.';
        counter += std::to_string(number);
    }
    const std::size_t room = maximumNameLength - counter.size();
    std::size_t stemEnd = name.find('.', 1);
    const bool extensionFits = stemEnd != std::string_view::npos && name.size() - stemEnd < room;
    if (!extensionFits) {
        stemEnd = name.size();
    }
    const std::string_view extension = name.substr(stemEnd);
    const std::string_view stem = shortened(name.substr(0, stemEnd), room - extension.size());
    return std::string(stem) + counter + std::string(extension);
}

std::string trashInfoName(std::string_view trashName) {
    return std::string(trashName) + std::string(infoExtension);
}

}
