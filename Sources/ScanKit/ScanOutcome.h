#pragma once

#include <ScanKit/FileNode.h>

namespace tolvane {

/// What a scan ended with. A cancelled one holds what had been handled until then, its totals as
/// consistent as those of a whole one.
struct ScanOutcome {
    enum class Case { completed, cancelled };

    Case outcome = Case::completed;
    FileNode root;
};

}
