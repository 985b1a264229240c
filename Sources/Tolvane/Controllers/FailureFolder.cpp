#include <Controllers/FailureFolder.h>
#include <Controllers/ShownFigures.h>

#include <algorithm>
#include <unordered_map>

namespace tolvane {

std::vector<FailureFolder> failuresByFolder(const std::vector<ScanFailure>& failures) {
    std::vector<FailureFolder> folders;
    std::unordered_map<FileURL, std::size_t> places;
    for (const ScanFailure& failure : failures) {
        FileURL folder = FileURL(failure.path).deletingLastPathComponent();
        const auto [place, isNew] = places.try_emplace(folder, folders.size());
        if (isNew) {
            folders.push_back({std::move(folder), 0});
        }
        ++folders[place->second].count;
    }
    std::stable_sort(
        folders.begin(), folders.end(),
        [](const FailureFolder& a, const FailureFolder& b) { return a.count > b.count; });
    return folders;
}

QString unreadFoldersText(const std::vector<ScanFailure>& failures) {
    return failures.empty()
               ? QString()
               : shownCount(std::ssize(failures), "folder") + QStringLiteral(" could not be read");
}

}
