#pragma once

#include <UninstallerKit/LeftoverItem.h>
#include <UninstallerKit/LeftoverOrigin.h>

#include <Controllers/RecordModel.h>

#include <QString>
#include <vector>

namespace tolvane {

/// A leftover as the detail of its application shows it.
struct ShownLeftover {
    LeftoverItem item;
    LeftoverOrigin origin;
    /// "Caches: 2 items, 1.2 MB", the same for all of a kind.
    QString groupText = {};

    friend bool operator==(const ShownLeftover&, const ShownLeftover&) = default;
};

/// The rows of the list of leftovers.
namespace LeftoverRows {

/// `kind`, `groupText` (the same on all rows of a kind, which stand together: a view's section),
/// `name`, `pathText`, `sizeText`, `remark` (the gravest there is: that it stays, which other
/// applications it would be found for, or how sure it is: "Exact name", "By name"), `remarkIcon`
/// (empty: none), `isDoubtful` (whether those others are what is remarked), `isProtected`,
/// `accessibleText`.
std::vector<RecordModel<ShownLeftover>::Role> roles();

/// By kind, the kind with the most bytes first, and within a kind in the given order. `origins` are
/// those of `items`, one for each.
std::vector<ShownLeftover> grouped(const std::vector<LeftoverItem>& items,
                                   const std::vector<LeftoverOrigin>& origins);

/// "Also matches A, B, C and 2 more"; empty without other applications.
QString othersText(const LeftoverOrigin& origin);

/// Each path is there once; its bytes must not become alike.
QString keyOf(const ShownLeftover& leftover);

}
}
