#include "ShownText.h"

#include <HostKit/Text.h>

namespace tolvane {
namespace {

constexpr std::string_view ellipsis = "...";

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

bool isControl(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0x20 || value == 0x7F;
}

/// U+0080 to U+009F: some terminals take them for escape sequences.
bool isSecondControl(std::string_view text, std::size_t position) {
    return text[position] == '\xC2' && position + 1 < text.size() &&
           static_cast<unsigned char>(text[position + 1]) < 0xA0;
}

/// The marks that turn the direction of text (Unicode's Bidi_Control): a name that holds one could
/// pass for another, and would turn the columns behind it. U+061C, U+200E to U+200F, U+202A to
/// U+202E, U+2066 to U+2069.
bool isDirectionMark(std::string_view character) {
    const auto last = static_cast<unsigned char>(character.back());
    if (character.starts_with("\xE2\x80")) {
        return (last >= 0x8E && last <= 0x8F) || (last >= 0xAA && last <= 0xAE);
    }
    return character == "\xD8\x9C" ||
           (character.starts_with("\xE2\x81") && last >= 0xA6 && last <= 0xA9);
}

std::size_t nextCharacter(std::string_view text, std::size_t position) {
    do {
        ++position;
    } while (position < text.size() && isContinuation(text[position]));
    return position;
}

std::size_t columnsOfCharacter(char firstByte) {
    return static_cast<unsigned char>(firstByte) < 0x80 ? 1 : 2;
}

/// How many bytes of the text's beginning fit.
std::size_t fittingPrefix(std::string_view text, std::size_t columns) {
    std::size_t end = 0;
    while (end < text.size() && columnsOfCharacter(text[end]) <= columns) {
        columns -= columnsOfCharacter(text[end]);
        end = nextCharacter(text, end);
    }
    return end;
}

/// Where the longest fitting end of the text begins.
std::size_t fittingSuffix(std::string_view text, std::size_t columns) {
    std::size_t start = text.size();
    for (std::size_t position = start; position > 0;) {
        --position;
        if (isContinuation(text[position])) {
            continue;
        }
        if (columnsOfCharacter(text[position]) > columns) {
            break;
        }
        columns -= columnsOfCharacter(text[position]);
        start = position;
    }
    return start;
}

}

std::string shownText(std::string_view bytes) {
    const std::string text = displayText(bytes);
    std::string shown;
    shown.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t next = nextCharacter(text, position);
        const std::string_view character = std::string_view(text).substr(position, next - position);
        const bool isHarmful = isControl(text[position]) || isSecondControl(text, position) ||
                               isDirectionMark(character);
        shown += isHarmful ? "?" : character;
        position = next;
    }
    return shown;
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    for (const char byte : text) {
        columns += isContinuation(byte) ? 0 : columnsOfCharacter(byte);
    }
    return columns;
}

std::string elidedInTheMiddle(std::string_view text, std::size_t columns) {
    if (columnsOf(text) <= columns) {
        return std::string(text);
    }
    if (columns <= ellipsis.size()) {
        return std::string(ellipsis.substr(0, columns));
    }
    const std::size_t room = columns - ellipsis.size();
    std::string elided(text.substr(0, fittingPrefix(text, room / 2)));
    elided += ellipsis;
    elided += text.substr(fittingSuffix(text, room - room / 2));
    return elided;
}

}
