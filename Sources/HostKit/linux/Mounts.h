#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/MountTable.h>

namespace tolvane {

/// What is mounted now in this process's view (proc(5), /proc/self/mountinfo), removable media
/// marked. A table that cannot be read is empty and says so.
MountTable readMounts(const HostLayout::Sources& sources);

}
