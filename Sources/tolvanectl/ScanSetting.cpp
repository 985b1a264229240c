#include "ScanSetting.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <variant>

namespace tolvane {
namespace {

/// A scan's stack grows with the depth: so many levels take about 2.5 MB of the usual 8.
constexpr std::int64_t greatestDepth = 4096;

using Prefixes = std::vector<std::string>;
using Member =
    std::variant<bool ScanOptions::*, std::int64_t ScanOptions::*, Prefixes ScanOptions::*>;

struct Field {
    std::string_view name;
    Member member;
};

const std::array<Field, 12> fields{
    {{"skipsHiddenFiles", &ScanOptions::skipsHiddenFiles},
     {"followsSymlinks", &ScanOptions::followsSymlinks},
     {"excludesNoFollowMarker", &ScanOptions::excludesNoFollowMarker},
     {"deduplicatesHardlinks", &ScanOptions::deduplicatesHardlinks},
     {"maxDepth", &ScanOptions::maxDepth},
     {"progressInterval", &ScanOptions::progressInterval},
     {"maxRetainedFilesPerDirectory", &ScanOptions::maxRetainedFilesPerDirectory},
     {"maxRetainedNodes", &ScanOptions::maxRetainedNodes},
     {"maxRetainedDirectories", &ScanOptions::maxRetainedDirectories},
     {"keyFileSizeThreshold", &ScanOptions::keyFileSizeThreshold},
     {"maxRetainedLargeFiles", &ScanOptions::maxRetainedLargeFiles},
     {"excludedPathPrefixes", &ScanOptions::excludedPathPrefixes}}};

bool parse(std::string_view text, bool& value) {
    value = text == "true";
    return value || text == "false";
}

bool parse(std::string_view text, std::int64_t& value) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && value >= 0;
}

bool parse(std::string_view text, Prefixes& value) {
    value.clear();
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(','), text.size());
        if (comma > 0) {
            value.emplace_back(text.substr(0, comma));
        }
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return true;
}

std::string namesOfFields() {
    std::string names;
    for (const Field& field : fields) {
        names += names.empty() ? "" : ", ";
        names += field.name;
    }
    return names;
}

}

Result<void, std::string> applySetting(ScanOptions& options, std::string_view setting) {
    const std::size_t sign = setting.find('=');
    if (sign == std::string_view::npos) {
        return tl::unexpected(fmt::format("\"{}\" is not FIELD=VALUE", setting));
    }
    const std::string_view name = setting.substr(0, sign);
    const std::string_view value = setting.substr(sign + 1);
    for (const Field& field : fields) {
        if (field.name != name) {
            continue;
        }
        const bool isValid =
            std::visit([&](auto member) { return parse(value, options.*member); }, field.member);
        if (!isValid) {
            return tl::unexpected(fmt::format("\"{}\" is no value for {}", value, name));
        }
        if (options.maxDepth > greatestDepth) {
            return tl::unexpected(fmt::format("maxDepth goes up to {}", greatestDepth));
        }
        return {};
    }
    return tl::unexpected(
        fmt::format("No option is named \"{}\"; there are {}", name, namesOfFields()));
}

}
