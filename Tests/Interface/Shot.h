#pragma once

#include "Harness.h"

#include <Support/Gate.h>

#include <functional>
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

/// What brings a scene nearer to the state that is to be drawn.
using Step = std::function<void(Scene& scene)>;

Step all(std::vector<Step> steps);
Step show(const QString& module);
Step click(const QString& objectName);
Step press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
Step type(const QString& text);
Step wait(int milliseconds);
Step until(std::function<bool(Scene& scene)> condition);
/// Waits until the scan stands still, and long enough for what appears only then.
void untilHeld(Scene& scene);
void goOn(Scene& scene);

/// A picture of one state of one screen.
struct Shot {
    std::string name;
    std::vector<Step> prepare;
    /// Drawn in the smallest window, too.
    bool isAlsoSmall = false;
    /// What earlier runs left behind.
    std::function<void(const TemporaryHome& home)> precede = {};
    QSize size{1180, 760};
    /// A scan stands still before it opens this folder; empty: it runs through.
    std::string heldAt = {};
    /// This folder cannot be read.
    std::string refused = {};
    /// Changes the machine's places and tables.
    void (*furnish)(HostLayout& layout) = nullptr;
};

using Shots = std::vector<Shot>;

/// The same on a home that was filled by `precede`, but for those that name what precedes them.
Shots after(const std::function<void(const TemporaryHome& home)>& precede, Shots shots);

Shots brightpassShots();
Shots duplicatesShots();
Shots performanceShots();
Shots portsShots();
Shots spaceAnalysisShots();
Shots uninstallerShots();
/// What belongs to no module.
Shots windowShots();

}
