#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/DuplicatesTexts.h>
#include <Controllers/FailureFolder.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>

namespace tolvane::DuplicatesTexts {
namespace {

QString size(Bytes bytes) {
    return shownText(ByteFormat::text(bytes));
}

QString countedFiles(std::int64_t count) {
    return shownText(CountFormat::counted(count, "file"));
}

QString grouped(std::size_t count) {
    return shownText(CountFormat::grouped(static_cast<std::int64_t>(count)));
}

QString counted(std::size_t count, std::string_view noun) {
    return shownText(CountFormat::counted(static_cast<std::int64_t>(count), noun));
}

}

QString summary(const DuplicateIndex& index) {
    return index.groups().empty()
               ? QString()
               : QStringLiteral("%1, %2, %3 can be freed")
                     .arg(counted(index.groups().size(), "group"),
                          counted(index.fileCount(), "file"), size(index.reclaimable()));
}

QString checked(const DuplicateScanResult& result) {
    return QStringLiteral("%1 looked at, %2 compared")
        .arg(countedFiles(result.scannedFiles),
             shownText(CountFormat::grouped(result.candidateFiles)));
}

QString elapsed(const DuplicateScan::Result& result) {
    const QString verb =
        result.isCancelled ? QStringLiteral("Stopped after ") : QStringLiteral("Scanned in ");
    return verb + spanText(result.seconds);
}

QString leftOut(const DuplicateScan::Result& result) {
    QStringList parts{QStringLiteral("hidden files"), QStringLiteral("the contents of packages")};
    if (result.minimumSize > 0) {
        parts.append(QStringLiteral("files below ") +
                     shownText(ByteFormat::exactText(result.minimumSize)));
    }
    for (const FileURL& place : result.notEntered) {
        parts.append(shownPath(place));
    }
    if (const QString unread = unreadFoldersText(result.index->result().errors);
        !unread.isEmpty()) {
        parts.append(unread);
    }
    return QStringLiteral("Left out: ") + parts.join(QStringLiteral(", "));
}

QString whyEmpty(const DuplicateScan::Result& result) {
    const DuplicateScanResult& found = result.index->result();
    const auto rootFailure =
        std::find_if(found.errors.begin(), found.errors.end(),
                     [&](const ScanFailure& each) { return each.path == found.root.path(); });
    if (!found.groups.empty()) {
        return {};
    }
    if (rootFailure != found.errors.end()) {
        return shownText("This folder could not be read: " + rootFailure->reason);
    }
    if (result.isCancelled) {
        return QStringLiteral("The scan was stopped before it found duplicates.");
    }
    return QStringLiteral("No two files have the same content: ") + checked(found);
}

QString locked(const FileURL& root) {
    return root.path() == "/"
               ? QStringLiteral("Nothing can be moved to the Trash while the whole file system is "
                                "looked through. Choose a folder in it to tidy it up.")
               : QString();
}

QString progress(int checkedFiles) {
    return checkedFiles == 0 ? QStringLiteral("Looking for files of equal size")
                             : countedFiles(checkedFiles) + QStringLiteral(" compared");
}

QString selection(const DuplicateSelection& selection) {
    return selection.count() == 0
               ? QString()
               : counted(selection.count(), "file") + QStringLiteral(", ") + size(selection.size());
}

QString selectionWarning(const DuplicateSelection& selection) {
    return selection.completeGroups() == 0 ? QString()
                                           : QStringLiteral("Every copy is ticked in ") +
                                                 counted(selection.completeGroups(), "group");
}

QString copies(std::size_t files) {
    return grouped(files) + QStringLiteral(" copies");
}

QString ticked(std::size_t ticked, std::size_t files) {
    return ticked == 0 ? QString()
                       : QStringLiteral("%1 of %2 ticked").arg(grouped(ticked), grouped(files));
}

QString filtered(std::size_t groups, std::size_t files, const DuplicateIndex& index) {
    return QStringLiteral("%1 of %2, %3 of %4")
        .arg(grouped(groups), counted(index.groups().size(), "group"), grouped(files),
             counted(index.fileCount(), "file"));
}

QString hiddenTicks(std::size_t count) {
    return count == 0
               ? QString()
               : counted(count, "ticked file") + (count == 1 ? QStringLiteral(" is not shown")
                                                             : QStringLiteral(" are not shown"));
}

QString moved(std::size_t count) {
    return QStringLiteral("Moved %1 duplicate(s) to Trash").arg(count);
}

QString restored(std::size_t restored, std::size_t failed) {
    return failed == 0 ? QStringLiteral("Restored %1 file(s)").arg(restored)
                       : QStringLiteral("Restored with %1 failure(s)").arg(failed);
}

}
