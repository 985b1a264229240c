#include <ScanKit/ScanOptions.h>

#include <Controllers/ScanTexts.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>

namespace tolvane::ScanTexts {
namespace {

QString plural(std::size_t count) {
    return count == 1 ? QString() : QStringLiteral("s");
}

}

QString name(const FileURL& url) {
    const std::string_view last = url.lastPathComponent();
    return shownText(last.empty() ? std::string_view(url.path()) : last);
}

QString contents(const NodeTotals& totals) {
    return QStringLiteral("%1 in %2, %3")
        .arg(shownSize(totals.totalAllocatedSize), shownCount(totals.fileCount, "file"),
             shownCount(totals.directoryCount - 1, "folder"));
}

QString progress(const ScanProgress& progress) {
    return QStringLiteral("%1, %2, %3")
        .arg(shownCount(progress.filesScanned, "file"),
             shownCount(progress.directoriesScanned, "folder"), shownSize(progress.scannedBytes));
}

QString selection(std::size_t count, Bytes bytes) {
    return count == 0 ? QString()
                      : shownCount(static_cast<std::int64_t>(count), "item") +
                            QStringLiteral(", ") + shownSize(bytes);
}

QString elapsed(const DiskScan::Result& result) {
    const QString verb =
        result.isCancelled ? QStringLiteral("Stopped after ") : QStringLiteral("Scanned in ");
    return verb + spanText(result.seconds);
}

QString failures(const std::vector<ScanFailure>& failures) {
    return failures.empty()
               ? QString()
               : shownCount(std::ssize(failures), "item") + QStringLiteral(" could not be read");
}

QString purgeable(const NodeTotals& totals) {
    return shownSize(totals.totalPurgeableSize) + QStringLiteral(" purgeable");
}

QString notCounted(const std::vector<FileURL>& notEntered) {
    QStringList parts;
    for (const FileURL& place : notEntered) {
        parts.append(shownPath(place));
    }
    parts.append(QStringLiteral("items named .nofollow"));
    parts.append(QStringLiteral("folders deeper than %1 levels").arg(fullScanOptions({}).maxDepth));
    return QStringLiteral("Not counted: ") + parts.join(QStringLiteral(", "));
}

QString locked(const FileURL& root) {
    return root.path() == "/"
               ? QStringLiteral("Nothing can be moved to the Trash while the whole file system is "
                                "scanned. Open a folder and scan it to tidy it up.")
               : QString();
}

QString whyEmpty(const FileURL& folder, const std::vector<ScanFailure>& failures) {
    const auto failure =
        std::find_if(failures.begin(), failures.end(),
                     [&](const ScanFailure& each) { return each.path == folder.path(); });
    return failure == failures.end()
               ? QStringLiteral("This folder is empty.")
               : shownText("This folder could not be read: " + failure->reason);
}

QString moved(std::size_t count) {
    return QStringLiteral("Moved %1 item%2 to Trash").arg(count).arg(plural(count));
}

QString restored(std::size_t restored, std::size_t failed) {
    return failed == 0 ? QStringLiteral("Restored %1 item%2").arg(restored).arg(plural(restored))
                       : QStringLiteral("Restored %1; %2 failed").arg(restored).arg(failed);
}

}
