#pragma once

#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverFinder.h>
#include <UninstallerKit/LeftoverItem.h>

#include <vector>

namespace tolvane {

/// An application and what it leaves behind.
struct AppLeftoverSummary {
    InstalledApp app;
    /// The largest first.
    std::vector<LeftoverItem> leftovers;

    /// Bytes on disk of the leftovers, protected ones included.
    Bytes bytes() const { return LeftoverFinder::totalSize(leftovers); }

    friend bool operator==(const AppLeftoverSummary&, const AppLeftoverSummary&) = default;
};

}
