#pragma once

#include <ScanKit/FileNode.h>
#include <ScanKit/ScanFailure.h>
#include <ScanKit/ScanProgress.h>

#include <Controllers/DiskScan.h>

#include <QString>
#include <vector>

/// The sentences in which the size map tells of a scan.
namespace tolvane::ScanTexts {

/// The last component; for "/" the whole path.
QString name(const FileURL& url);
/// "1.2 GB in 12 files, 3 folders"; the folder itself is none of them.
QString contents(const NodeTotals& totals);
/// "12,345 files, 1,234 folders, 5.6 GB"
QString progress(const ScanProgress& progress);
/// "3 items, 1.2 GB"; empty for none.
QString selection(std::size_t count, Bytes bytes);
/// "Scanned in 2.1 s"
QString elapsed(const DiskScan::Result& result);
/// Empty when everything could be read.
QString failures(const std::vector<ScanFailure>& failures);
/// "1.2 GB purgeable"
QString purgeable(const NodeTotals& totals);
/// What lies below the scanned folder and is in no total.
QString notCounted(const std::vector<FileURL>& notEntered);
/// Why nothing of a scan of `root` can be removed; empty when something can.
QString locked(const FileURL& root);
/// Why a folder without rows has none.
QString whyEmpty(const FileURL& folder, const std::vector<ScanFailure>& failures);
/// "Moved 3 items to Trash"
QString moved(std::size_t count);
/// "Restored 2 items", "Restored 2; 1 failed"
QString restored(std::size_t restored, std::size_t failed);

}
