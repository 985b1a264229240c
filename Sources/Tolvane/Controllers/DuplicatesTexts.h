#pragma once

#include <Controllers/DuplicateScan.h>
#include <Controllers/DuplicateSelection.h>

#include <QString>

/// The sentences in which the duplicates tell of a scan.
namespace tolvane::DuplicatesTexts {

/// "12 groups, 40 files, 1.2 GB can be freed"; empty without groups.
QString summary(const DuplicateIndex& index);
/// "1,204 files looked at, 340 compared"
QString checked(const DuplicateScanResult& result);
/// "Scanned in 2.1 s", "Stopped after 2.1 s"
QString elapsed(const DuplicateScan::Result& result);
/// What below the root was not looked at.
QString leftOut(const DuplicateScan::Result& result);
/// Why there are no groups; empty when there are some.
QString whyEmpty(const DuplicateScan::Result& result);
/// Why nothing below `root` can be removed; empty when something can.
QString locked(const FileURL& root);
/// What runs: "120 files compared".
QString progress(int checkedFiles);
/// "3 files, 1.2 GB"; empty for none.
QString selection(const DuplicateSelection& selection);
/// "Every copy is ticked in 2 groups"; empty when there is no such group.
QString selectionWarning(const DuplicateSelection& selection);
/// "3 copies", of at least two.
QString copies(std::size_t files);
/// "1 of 3 ticked"; empty for none.
QString ticked(std::size_t ticked, std::size_t files);
/// "2 of 12 groups, 5 of 40 files": what a filter lets through.
QString filtered(std::size_t groups, std::size_t files, const DuplicateIndex& index);
/// "2 ticked files are not shown"; empty for none.
QString hiddenTicks(std::size_t count);
/// "Moved 3 duplicate(s) to Trash"
QString moved(std::size_t count);
/// "Restored 2 file(s)", "Restored with 1 failure(s)"
QString restored(std::size_t restored, std::size_t failed);

}
