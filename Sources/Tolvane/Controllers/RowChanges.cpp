#include <Controllers/RowChanges.h>

#include <QHash>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace tolvane {
namespace {

using Kind = RowChange::Kind;
using Rows = QHash<QString, int>;

std::optional<Rows> rowsOf(const std::vector<QString>& keys) {
    Rows rows;
    rows.reserve(static_cast<qsizetype>(keys.size()));
    for (const QString& key : keys) {
        rows.insert(key, static_cast<int>(rows.size()));
    }
    if (rows.size() != static_cast<qsizetype>(keys.size())) {
        return std::nullopt;
    }
    return rows;
}

/// The runs of keys that are not among `others`.
std::vector<RowChange> runsMissing(const std::vector<QString>& keys, const Rows& others,
                                   Kind kind) {
    std::vector<RowChange> runs;
    for (int row = 0; row < static_cast<int>(keys.size()); ++row) {
        if (others.contains(keys[static_cast<std::size_t>(row)])) {
            continue;
        }
        if (!runs.empty() && runs.back().last == row - 1) {
            runs.back().last = row;
        } else {
            runs.push_back({kind, row, row});
        }
    }
    return runs;
}

/// Places that ascend, as many as there can be without changing their order.
std::vector<int> longestAscent(const std::vector<int>& places) {
    constexpr auto none = static_cast<std::size_t>(-1);
    // Where the best ascent of each length ends, and what precedes each place in its own.
    std::vector<std::size_t> ends;
    std::vector<std::size_t> previous(places.size(), none);
    for (std::size_t index = 0; index < places.size(); ++index) {
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), places[index],
                             [&](std::size_t other, int place) { return places[other] < place; });
        if (end != ends.begin()) {
            previous[index] = *std::prev(end);
        }
        if (end == ends.end()) {
            ends.push_back(index);
        } else {
            *end = index;
        }
    }
    std::vector<int> ascent;
    for (std::size_t index = ends.empty() ? none : ends.back(); index != none;
         index = previous[index]) {
        ascent.push_back(places[index]);
    }
    std::reverse(ascent.begin(), ascent.end());
    return ascent;
}

int indexOf(const std::vector<int>& places, int place) {
    return static_cast<int>(std::find(places.begin(), places.end(), place) - places.begin());
}

/// Moves one row of `places` and gives the step; absent when it stands there already.
std::optional<RowChange> moved(std::vector<int>& places, int from, int behind) {
    const int to = behind < from ? behind + 1 : behind;
    if (to == from) {
        return std::nullopt;
    }
    const auto at = [&](int row) { return places.begin() + row; };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
    return RowChange{Kind::move, from, from, to};
}

/// Steps that put `places` in ascending order.
std::vector<RowChange> moves(std::vector<int> places) {
    std::vector<int> sorted = places;
    std::sort(sorted.begin(), sorted.end());
    const std::vector<int> staying = longestAscent(places);
    std::vector<RowChange> steps;
    int predecessor = -1;
    for (const int place : sorted) {
        // All that come before it are in order among each other by now, and with those that stay.
        if (!std::binary_search(staying.begin(), staying.end(), place)) {
            const int behind = predecessor < 0 ? -1 : indexOf(places, predecessor);
            if (const auto step = moved(places, indexOf(places, place), behind)) {
                steps.push_back(*step);
            }
        }
        predecessor = place;
    }
    return steps;
}

}

std::optional<std::vector<RowChange>> rowChanges(const std::vector<QString>& before,
                                                 const std::vector<QString>& after) {
    const std::optional<Rows> rowsBefore = rowsOf(before);
    const std::optional<Rows> rowsAfter = rowsOf(after);
    if (!rowsBefore || !rowsAfter) {
        return std::nullopt;
    }
    // From the end, so that the rows in front keep their numbers.
    std::vector<RowChange> steps = runsMissing(before, *rowsAfter, Kind::removal);
    std::reverse(steps.begin(), steps.end());

    std::vector<int> kept;
    for (const QString& key : before) {
        if (const auto row = rowsAfter->constFind(key); row != rowsAfter->constEnd()) {
            kept.push_back(*row);
        }
    }
    const std::vector<RowChange> moving = moves(std::move(kept));
    steps.insert(steps.end(), moving.begin(), moving.end());
    const std::vector<RowChange> inserting = runsMissing(after, *rowsBefore, Kind::insertion);
    steps.insert(steps.end(), inserting.begin(), inserting.end());
    return steps;
}

bool isReplacement(const std::vector<RowChange>& changes) {
    const std::size_t half = changes.size() / 2;
    for (std::size_t i = 0; i < half; ++i) {
        const RowChange& removal = changes[half - 1 - i];
        const RowChange& insertion = changes[half + i];
        if (removal.kind != Kind::removal || insertion.kind != Kind::insertion ||
            removal.first != insertion.first || removal.last != insertion.last) {
            return false;
        }
    }
    return changes.size() == 2 * half;
}

}
