#pragma once

#include "Harness.h"

#include <Support/Gate.h>

#include <QSize>
#include <string>
#include <vector>

namespace tolvane {

/// The application in one state.
struct Scene {
    const TemporaryHome& home;
    Harness& harness;
    Gate& gate;
    /// Seconds by which the application's clock is ahead.
    Date& ahead;
};

/// A picture of one state of one screen.
struct Shot {
    const char* name;
    void (*prepare)(Scene& scene);
    /// What earlier runs left behind.
    void (*precede)(const TemporaryHome& home) = nullptr;
    QSize size{1180, 760};
    /// A scan stands still before it opens this folder; empty: it runs through.
    std::string heldAt = {};
    /// This folder cannot be read.
    std::string refused = {};
    /// Changes the machine's places and tables.
    void (*furnish)(HostLayout& layout) = nullptr;
};

using Shots = std::vector<Shot>;

Shots brightpassShots();
Shots duplicatesShots();
Shots performanceShots();
Shots portsShots();
Shots spaceAnalysisShots();
Shots uninstallerShots();
/// What belongs to no module.
Shots windowShots();

}
