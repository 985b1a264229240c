#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace tolvane {

/// One step on the way from a list to a later state of it. Rows count as they stand when it is this
/// step's turn.
struct RowChange {
    enum class Kind { removal, move, insertion };

    Kind kind;
    /// The rows removed; the one row that moves; the rows that stand there after the insertion,
    /// which are those of the later list.
    int first = 0;
    int last = 0;
    /// The row which a moved one has afterwards.
    int destination = 0;

    friend bool operator==(const RowChange&, const RowChange&) = default;
};

/// Few steps that lead from the rows with the keys `before` to those with the keys `after`: first
/// removals, then as few moves as there can be, then insertions. Absent when a key stands twice in
/// one of the lists.
std::optional<std::vector<RowChange>> rowChanges(const std::vector<QString>& before,
                                                 const std::vector<QString>& after);

/// Whether nothing but rows that leave and as many that take their places come of these changes.
bool isReplacement(const std::vector<RowChange>& changes);

}
