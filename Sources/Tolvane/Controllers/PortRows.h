#pragma once

#include <PortKit/PortListener.h>

#include <Controllers/RecordModel.h>
#include <Controllers/Ui.h>

#include <QString>
#include <cstdint>
#include <set>
#include <vector>

namespace tolvane {

/// The rows of the table of listeners.
namespace PortRows {

/// `portID`, `portText`, `processText`, `pidText`, `addressesText`, `executableText`,
/// `hasExecutable`, `isReachable` (from the network), `accessibleText`.
std::vector<RecordModel<PortListener>::Role> roles();

/// The listener's id as text.
QString idOf(const PortListener& listener);

/// Sorts rows that are in the order of a scan, which is that of ports; equal ones keep it either
/// way round.
void sort(std::vector<PortListener>& rows, Ui::PortKey key, bool isDescending);

/// The ids of the processes that own them.
std::set<std::int32_t> processes(const std::vector<PortListener>& listeners);

}
}
