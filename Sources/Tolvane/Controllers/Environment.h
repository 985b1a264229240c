#pragma once

#include <HostKit/Date.h>
#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Trash.h>
#include <Services/AppLog.h>
#include <Services/Workers.h>

#include <Controllers/AccessStatus.h>
#include <Controllers/UserDefaults.h>
#include <Controllers/Workspace.h>

#include <memory>

namespace tolvane {

/// What every controller works with. Everything it refers to outlives the controllers, so that a
/// test can run each of them whole against a home folder of its own.
struct Environment {
    HostLayout layout;
    std::shared_ptr<const FileManager> files;
    std::shared_ptr<const Trash> trash;
    Workers& workers;
    AppLog& log;
    UserDefaults& defaults;
    Workspace& workspace;
    AccessStatus& access;
    /// Seconds of a clock that never runs backwards: what controllers measure spans with.
    Clock clock;
};

}
