#include <HostKit/Lines.h>
#include <HostKit/Number.h>
#include <PerformanceKit/SnapperTable.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace tolvane {
namespace {

struct Row {
    std::string name;
    bool isCleanedUp = false;
};

std::string_view takeField(std::string_view& line) {
    const std::string_view field = line.substr(0, line.find(','));
    line.remove_prefix(std::min(field.size() + 1, line.size()));
    return field;
}

/// "2026-11-21-054658" from "2026-11-21 05:46:58"; absent when it is no date.
std::optional<std::string> stamp(std::string_view date) {
    constexpr std::string_view pattern = "0000-00-00 00:00:00";
    if (date.size() != pattern.size()) {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t i = 0; i < date.size(); ++i) {
        const bool isDigit = date[i] >= '0' && date[i] <= '9';
        if (pattern[i] == '0' ? !isDigit : date[i] != pattern[i]) {
            return std::nullopt;
        }
        if (date[i] != ':') {
            text += date[i] == ' ' ? '-' : date[i];
        }
    }
    return text;
}

std::optional<Row> rowIn(std::string_view line) {
    const auto number = wholeNumber<std::int64_t>(takeField(line));
    const std::optional<std::string> date = stamp(takeField(line));
    const std::string_view cleanup = trimmed(takeField(line));
    if (!number || *number < 1 || !date) {
        return std::nullopt;
    }
    return Row{"com.apple.TimeMachine." + *date + "." + std::to_string(*number), !cleanup.empty()};
}

/// What `text` makes of each row.
template <class Text>
std::string joined(std::string_view table, const Text& text) {
    std::string all;
    while (!table.empty()) {
        if (const std::optional<Row> row = rowIn(takeLine(table))) {
            all += text(*row);
        }
    }
    return all;
}

}

std::string SnapperTable::names(std::string_view table) {
    return joined(table, [](const Row& row) { return row.name + "\n"; });
}

std::string SnapperTable::purgeability(std::string_view table) {
    return joined(table, [](const Row& row) {
        return "Name: " + row.name + "\nPurgeable: " + (row.isCleanedUp ? "Yes" : "No") + "\n";
    });
}

}
