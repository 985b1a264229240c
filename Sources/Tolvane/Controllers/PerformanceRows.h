#pragma once

#include <PerformanceKit/LocalSnapshot.h>
#include <PerformanceKit/MemoryStats.h>
#include <PerformanceKit/StartupAgent.h>

#include <Controllers/PerformanceSampling.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvane {

/// A figure of the memory and what it is of.
struct FigureRow {
    QString title;
    QString figure;
    /// Of all memory, 0 to 1.
    double share = 0;
    /// Whether a person should take note of it.
    bool isAlarming = false;

    friend bool operator==(const FigureRow&, const FigureRow&) = default;
};

/// Something that can be done for the machine.
struct MaintenanceRow {
    QString key;
    QString title;
    QString note;
    QString actionText;
    /// What came of it last, or that it runs; empty: it has not run.
    QString statusText = {};
    bool isRunning = false;
    /// Whether it failed when it last ran.
    bool hasFailed = false;
    /// Whether it can be begun.
    bool isAvailable = true;

    friend bool operator==(const MaintenanceRow&, const MaintenanceRow&) = default;
};

/// What the lists of the performance screen show.
namespace PerformanceRows {

/// `title`, `figure`, `share`, `isAlarming`.
std::vector<RecordModel<FigureRow>::Role> figureRoles();
/// `processID`, `nameText`, `fullName`, `pidText`, `sizeText`, `share`, `cpuText`,
/// `accessibleText`.
std::vector<RecordModel<ListedProcess>::Role> processRoles();
/// `labelText`, `startText`, `isAtOnce`, `scopeText`, `programText`, `pathText`, `accessibleText`.
std::vector<RecordModel<StartupAgent>::Role> agentRoles();
/// `dateText`, `volumeText`, `purgeableText`, `accessibleText`.
std::vector<RecordModel<LocalSnapshot>::Role> snapshotRoles();
/// `actionKey`, `title`, `note`, `actionText`, `statusText`, `isRunning`, `hasFailed`,
/// `isAvailable`.
std::vector<RecordModel<MaintenanceRow>::Role> maintenanceRoles();

/// Tells a process from a later one of its number.
QString idOf(const ListedProcess& listed);

/// What the memory is used for; the parts never exceed the whole.
std::vector<FigureRow> memoryParts(const std::optional<MemoryStats>& memory);
std::vector<FigureRow> memoryFigures(const std::optional<MemoryStats>& memory);
/// All that can be done; `failed` are the keys of what failed, `running` is that of what runs.
std::vector<MaintenanceRow> maintenance(const std::map<std::string, std::string>& statuses,
                                        const std::set<std::string>& failed,
                                        const std::string& running);

}
}
