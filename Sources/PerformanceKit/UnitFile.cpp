#include <HostKit/Lines.h>
#include <PerformanceKit/UnitFile.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

bool isComment(std::string_view line) {
    return line.starts_with('#') || line.starts_with(';');
}

/// Takes a line and those that continue it, joined by blanks, comments between them left out.
std::string takeLogicalLine(std::string_view& text) {
    std::string line(trimmed(takeLine(text)));
    while (line.ends_with('\\') && !isComment(line)) {
        line.back() = ' ';
        std::string_view next = trimmed(takeLine(text));
        while (isComment(next) && !text.empty()) {
            next = trimmed(takeLine(text));
        }
        line += isComment(next) ? std::string_view() : next;
    }
    return line;
}

/// The first word of a command line, its quotes taken off; "%%" stands for "%".
std::string firstWord(std::string_view command) {
    std::string word;
    char quote = '\0';
    for (std::size_t i = 0; i < command.size(); ++i) {
        const char letter = command[i];
        const bool isLast = i + 1 == command.size();
        if (quote == '\0' && (letter == ' ' || letter == '\t')) {
            break;
        }
        if (letter == quote) {
            quote = '\0';
        } else if (quote == '\0' && (letter == '"' || letter == '\'')) {
            quote = letter;
        } else if (letter == '\\' && !isLast) {
            word += command[++i];
        } else {
            word += letter;
            i += letter == '%' && !isLast && command[i + 1] == '%' ? 1 : 0;
        }
    }
    return word;
}

/// What the value of an "ExecStart" names, without the signs in front that tell how to start it.
std::optional<std::string> programIn(std::string_view value) {
    constexpr std::string_view signs = "@-:+!|";
    std::string word = firstWord(value);
    word.erase(0, word.find_first_not_of(signs));
    return word.empty() ? std::nullopt : std::optional(std::move(word));
}

}

std::optional<UnitFile> UnitFile::parse(std::string_view text) {
    if (text.size() > largestSize || text.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    UnitFile unit;
    bool hasSection = false;
    bool isInService = false;
    while (!text.empty()) {
        const std::string line = takeLogicalLine(text);
        if (line.starts_with('[') && line.ends_with(']')) {
            hasSection = true;
            isInService = line == "[Service]";
            continue;
        }
        const std::size_t sign = line.find('=');
        const bool isStart = isInService && sign != std::string::npos &&
                             trimmed(std::string_view(line).substr(0, sign)) == "ExecStart";
        if (!isStart) {
            continue;
        }
        const std::string_view value = trimmed(std::string_view(line).substr(sign + 1));
        // An empty one takes back those before it; of several the first one is started first.
        if (value.empty()) {
            unit.program.reset();
        } else if (!unit.program) {
            unit.program = programIn(value);
        }
    }
    return hasSection ? std::optional(std::move(unit)) : std::nullopt;
}

}
