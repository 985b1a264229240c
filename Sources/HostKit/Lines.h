#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace tolvane {

/// Takes the first line off the text, without its end.
inline std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// Takes the first word off the line; empty when there is none.
inline std::string_view takeWord(std::string_view& line) {
    constexpr std::string_view blanks = " \t";
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const std::string_view word = line.substr(0, line.find_first_of(blanks));
    line.remove_prefix(word.size());
    return word;
}

/// The text without white space at both ends.
inline std::string_view trimmed(std::string_view text) {
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(whiteSpace) + 1));
    return text;
}

/// The lines of the text that hold more than white space, without that at their ends.
inline std::vector<std::string_view> filledLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        if (const std::string_view line = trimmed(takeLine(text)); !line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

}
