#include <HostKit/DesktopEntry.h>
#include <HostKit/Lines.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tolvane {
namespace {

constexpr std::string_view blanks = " \t";

char escaped(char letter) {
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

std::string withoutEscapes(std::string_view raw) {
    constexpr std::string_view letters = "sntr\\";
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const bool isEscape = raw[i] == '\\' && i + 1 < raw.size() &&
                              letters.find(raw[i + 1]) != std::string_view::npos;
        text += isEscape ? escaped(raw[++i]) : raw[i];
    }
    return text;
}

/// Takes the characters of one argument off `rest`, up to its closing quote or the next blank.
std::string takeArgument(std::string_view& rest) {
    std::string argument;
    bool isQuoted = false;
    std::size_t i = 0;
    for (; i < rest.size() && (isQuoted || blanks.find(rest[i]) == std::string_view::npos); ++i) {
        if (rest[i] == '"') {
            isQuoted = !isQuoted;
        } else if (rest[i] == '\\' && isQuoted && i + 1 < rest.size()) {
            argument += rest[++i];
        } else if (rest[i] == '%' && i + 1 < rest.size()) {
            // A field code stands for what is opened; only "%%" is itself.
            argument += rest[++i] == '%' ? "%" : "";
        } else {
            argument += rest[i];
        }
    }
    rest.remove_prefix(i);
    return argument;
}

bool isAssignment(std::string_view argument) {
    const std::size_t sign = argument.find('=');
    return sign != std::string_view::npos && sign > 0 &&
           argument.substr(0, sign).find('/') == std::string_view::npos;
}

/// The keys under which a value in the language of the locale may stand, the closest first
/// ("lang_COUNTRY@MODIFIER" of the conventions).
std::vector<std::string> localizedKeys(std::string_view key, std::string_view locale) {
    const std::size_t at = locale.find('@');
    const std::string modifier(at == std::string_view::npos ? "" : locale.substr(at));
    locale = locale.substr(0, locale.find_first_of(".@"));
    const std::string language(locale.substr(0, locale.find('_')));
    const std::string country(locale);
    std::vector<std::string> keys;
    for (const std::string& name : {country + modifier, country, language + modifier, language}) {
        keys.push_back(std::string(key) + "[" + name + "]");
    }
    keys.emplace_back(key);
    return keys;
}

}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text) {
    if (text.size() > largestSize || text.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    DesktopEntry entry;
    bool isInGroup = false;
    bool hasGroup = false;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.starts_with('[')) {
            isInGroup = trimmed(line) == "[Desktop Entry]";
            hasGroup = hasGroup || isInGroup;
            continue;
        }
        const std::size_t sign = line.find('=');
        if (!isInGroup || line.starts_with('#') || sign == std::string_view::npos) {
            continue;
        }
        entry.values_.insert_or_assign(std::string(trimmed(line.substr(0, sign))),
                                       std::string(trimmed(line.substr(sign + 1))));
    }
    return hasGroup ? std::optional(std::move(entry)) : std::nullopt;
}

std::optional<DesktopEntry> DesktopEntry::read(const FileManager& files, const FileURL& file) {
    // One more byte, so that a file that is too large does not pass as its beginning.
    const Result<std::string, SystemError> text = files.read(file, largestSize + 1);
    return text ? parse(*text) : std::nullopt;
}

std::optional<std::string> DesktopEntry::value(std::string_view key) const {
    const auto found = values_.find(key);
    return found == values_.end() ? std::nullopt : std::optional(withoutEscapes(found->second));
}

std::optional<std::string> DesktopEntry::localized(std::string_view key,
                                                   std::string_view locale) const {
    for (const std::string& candidate : localizedKeys(key, locale)) {
        if (std::optional<std::string> found = value(candidate)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<std::string> DesktopEntry::program() const {
    const std::string command = value("Exec").value_or("");
    std::string_view rest = trimmed(command);
    bool isBehindEnv = false;
    while (!rest.empty()) {
        std::string argument = takeArgument(rest);
        rest = trimmed(rest);
        const std::string_view name = std::string_view(argument).substr(argument.rfind('/') + 1);
        if (name == "env") {
            isBehindEnv = true;
        } else if (!argument.empty() && !isAssignment(argument) &&
                   !(isBehindEnv && argument.starts_with('-'))) {
            return argument;
        }
    }
    return std::nullopt;
}

}
