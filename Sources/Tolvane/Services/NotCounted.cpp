#include <Services/CountFormat.h>
#include <Services/NotCounted.h>

namespace tolvane {
namespace {

bool liesBelow(const FileURL& url, const FileURL& root) {
    return url != root && (root.path() == "/" || liesWithin(url.path(), root.path()));
}

}

std::string itemsNotKept(const FileNode& folder) {
    const std::int64_t items = sum(folder.hiddenFiles(), folder.hiddenDirectories());
    // A folder over the budgets lost items of any size.
    return CountFormat::counted(items, folder.truncated() ? "other item" : "smaller item");
}

std::vector<FileURL> notEntered(const FileURL& root,
                                const std::vector<std::string>& excludedPrefixes,
                                const FileManager& files) {
    std::vector<FileURL> list;
    for (const std::string& prefix : excludedPrefixes) {
        FileURL url(prefix);
        if (liesBelow(url, root) && files.itemExists(url)) {
            list.push_back(std::move(url));
        }
    }
    return list;
}

}
