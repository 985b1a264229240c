#include <DuplicatesKit/FolderTree.h>
#include <DuplicatesKit/PathOrder.h>

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace tolvane {

FolderTree::Folder FolderTree::enter(Folder parent, std::string_view path) {
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/', 1), path.size());
        const std::string_view name = path.substr(1, end - 1);
        path.remove_prefix(end);
        // A walk leaves a folder for good before it comes to the next one.
        Folder folder = nodes_[parent].lastChild;
        if (folder == root || nodes_[folder].name != name) {
            folder = static_cast<Folder>(nodes_.size());
            nodes_.push_back({name, parent, root});
            nodes_[parent].lastChild = folder;
        }
        parent = folder;
    }
    return parent;
}

std::vector<std::uint32_t> FolderTree::sorted(const Files& files,
                                              const std::function<bool()>& isStopped) const {
    const std::vector<std::uint32_t> starts = this->starts(files);
    const std::vector<std::uint32_t> contents = this->contents(files, starts);
    // What is in a folder stands behind its name and a separator.
    std::string text;
    const auto nameOf = [&](std::uint32_t item) -> std::string_view {
        if (item < files.count) {
            return files.name(item);
        }
        text = nodes_[item - files.count].name;
        text += '/';
        return text;
    };
    // What is left of each folder on the way down, the next one last.
    std::vector<std::vector<std::uint32_t>> visits;
    const auto visit = [&](Folder folder) {
        const auto items =
            std::span(contents).subspan(starts[folder], starts[folder + 1] - starts[folder]);
        std::vector<std::uint32_t> order = PathOrder::of(
            static_cast<std::uint32_t>(items.size()),
            [&](std::uint32_t index) { return nameOf(items[index]); }, isStopped);
        const bool isDone = order.size() == items.size();
        std::ranges::transform(order, order.begin(),
                               [&](std::uint32_t index) { return items[index]; });
        std::ranges::reverse(order);
        visits.push_back(std::move(order));
        return isDone;
    };
    std::vector<std::uint32_t> sorted;
    sorted.reserve(files.count);
    bool isDone = visit(root);
    while (isDone && !visits.empty()) {
        std::vector<std::uint32_t>& left = visits.back();
        if (left.empty()) {
            visits.pop_back();
            continue;
        }
        const std::uint32_t item = left.back();
        left.pop_back();
        if (item < files.count) {
            sorted.push_back(item);
        } else {
            isDone = visit(item - files.count);
        }
    }
    return isDone ? std::move(sorted) : std::vector<std::uint32_t>();
}

/// Where the contents of each folder start among those of all, and where the last ones end.
std::vector<std::uint32_t> FolderTree::starts(const Files& files) const {
    std::vector<std::uint32_t> starts(nodes_.size() + 1);
    for (std::uint32_t position = 0; position < files.count; ++position) {
        ++starts[files.folder(position) + 1];
    }
    for (Folder folder = root + 1; folder < nodes_.size(); ++folder) {
        ++starts[nodes_[folder].parent + 1];
    }
    for (std::size_t folder = 1; folder < starts.size(); ++folder) {
        starts[folder] += starts[folder - 1];
    }
    return starts;
}

/// Positions of files, and behind the last of these the folders.
std::vector<std::uint32_t> FolderTree::contents(const Files& files,
                                                std::vector<std::uint32_t> starts) const {
    std::vector<std::uint32_t> contents(starts.back());
    for (std::uint32_t position = 0; position < files.count; ++position) {
        contents[starts[files.folder(position)]++] = position;
    }
    for (Folder folder = root + 1; folder < nodes_.size(); ++folder) {
        contents[starts[nodes_[folder].parent]++] = files.count + folder;
    }
    return contents;
}

}
