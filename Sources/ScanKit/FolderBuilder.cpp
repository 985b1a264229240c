#include <ScanKit/FolderBuilder.h>

#include <algorithm>

namespace tolvane {
namespace {

/// Puts the file that goes first on top of the heap: the smallest, the earliest among equals.
bool goesLater(const FolderBuilder::File& a, const FolderBuilder::File& b) {
    return a.allocatedSize != b.allocatedSize ? a.allocatedSize > b.allocatedSize
                                              : a.position > b.position;
}

bool isEarlier(const FolderBuilder::File& a, const FolderBuilder::File& b) {
    return a.position < b.position;
}

}

FolderBuilder::FolderBuilder(Shared& shared, Destiny destiny)
    : shared_(shared)
    , destiny_(destiny)
    , firstFile_(shared.files.size())
    , firstDirectory_(shared.directories.size()) {}

FolderBuilder::~FolderBuilder() {
    shared_.files.resize(firstFile_);
    shared_.directories.resize(firstDirectory_);
}

void FolderBuilder::add(const File& file) {
    tolvane::add(totals_.bytes, file.allocatedSize);
    ++totals_.files;
    if (!shared_.budget.mayKeepFile(file.allocatedSize)) {
        fold(file.allocatedSize, 1, 0);
        truncated_ = true;
    } else if (keptFiles_ >= shared_.budget.filesPerDirectory()) {
        replaceSmallest(file);
    } else {
        ++keptFiles_;
        shared_.budget.keepFile(file.allocatedSize);
        if (destiny_ == Destiny::open) {
            shared_.files.push_back(file);
        }
    }
}

void FolderBuilder::add(Walked&& directory) {
    const Totals& below = directory.totals;
    tolvane::add(totals_.bytes, below.bytes);
    tolvane::add(totals_.files, below.files);
    tolvane::add(totals_.directories, below.directories);
    if (!shared_.budget.mayKeepDirectory()) {
        fold(below.bytes, below.files, below.directories);
        truncated_ = true;
        return;
    }
    shared_.budget.keepDirectory();
    shared_.directories.push_back(std::move(directory));
}

void FolderBuilder::fold(Bytes bytes, std::int64_t files, std::int64_t directories) {
    tolvane::add(hidden_.bytes, bytes);
    tolvane::add(hidden_.files, files);
    tolvane::add(hidden_.directories, directories);
}

/// The number of kept files stays, so no budget is spent.
void FolderBuilder::replaceSmallest(const File& file) {
    const auto first = shared_.files.begin() + static_cast<std::ptrdiff_t>(firstFile_);
    if (destiny_ == Destiny::folded || first == shared_.files.end()) {
        fold(file.allocatedSize, 1, 0);
        return;
    }
    if (!isHeap_) {
        std::make_heap(first, shared_.files.end(), goesLater);
        isHeap_ = true;
    }
    if (file.allocatedSize < first->allocatedSize) {
        fold(file.allocatedSize, 1, 0);
        return;
    }
    fold(first->allocatedSize, 1, 0);
    std::pop_heap(first, shared_.files.end(), goesLater);
    shared_.files.back() = file;
    std::push_heap(first, shared_.files.end(), goesLater);
}

FolderBuilder::Walked FolderBuilder::finish(const Directory* listing, std::string_view topPath) {
    Walked walked;
    walked.totals = totals_;
    walked.truncated = truncated_;
    const bool hasChildren =
        shared_.files.size() > firstFile_ || shared_.directories.size() > firstDirectory_;
    if (hasChildren) {
        walked.folder = new FileNode::Folder;
        walked.folder->names = topPath;
        walked.folder->nameLength = static_cast<std::uint32_t>(topPath.size());
    }
    if (hasChildren || hidden_.files != 0 || hidden_.directories != 0) {
        walked.contents = new FileNode::Contents;
        walked.contents->hiddenBytes = hidden_.bytes;
        walked.contents->hiddenFiles = hidden_.files;
        walked.contents->hiddenDirectories = hidden_.directories;
    }
    if (hasChildren) {
        walked.contents->children = takeChildren(*listing, *walked.folder);
    }
    return walked;
}

std::vector<FileNode> FolderBuilder::takeChildren(const Directory& listing,
                                                  FileNode::Folder& folder) {
    const auto files = shared_.files.begin() + static_cast<std::ptrdiff_t>(firstFile_);
    const auto directories =
        shared_.directories.begin() + static_cast<std::ptrdiff_t>(firstDirectory_);
    if (isHeap_) {
        std::sort(files, shared_.files.end(), isEarlier);
    }
    std::size_t nameBytes = folder.names.size();
    std::for_each(directories, shared_.directories.end(), [&](const Walked& directory) {
        nameBytes += listing.name(directory.position).size();
    });
    std::for_each(files, shared_.files.end(),
                  [&](const File& file) { nameBytes += listing.name(file.position).size(); });
    folder.names.reserve(nameBytes);

    std::vector<FileNode> children;
    children.reserve(static_cast<std::size_t>((shared_.files.end() - files) +
                                              (shared_.directories.end() - directories)));
    std::for_each(directories, shared_.directories.end(), [&](Walked& directory) {
        children.push_back(directoryNode(directory, listing.name(directory.position), folder));
    });
    std::for_each(files, shared_.files.end(), [&](const File& file) {
        children.push_back(fileNode(file, listing.name(file.position), folder));
    });
    return children;
}

FileNode FolderBuilder::directoryNode(Walked& directory, std::string_view name,
                                      FileNode::Folder& folder) {
    if (!directory.resolved.path().empty()) {
        const FileURL url = std::move(directory.resolved);
        return topNode(url, std::move(directory));
    }
    FileNode node;
    node.kind_ = FileNode::Kind::directory;
    node.modified_ = directory.modified;
    node.flags_.isPurgeable = directory.isPurgeable;
    node.flags_.truncated = directory.truncated;
    node.contents_ = directory.contents;
    place(node, name, folder);
    if (directory.folder) {
        directory.folder->parent = &folder;
        directory.folder->nameOffset = node.nameOffset_;
        directory.folder->nameLength = node.nameLength_;
    }
    return node;
}

FileNode FolderBuilder::fileNode(const File& file, std::string_view name,
                                 FileNode::Folder& folder) {
    FileNode node;
    node.kind_ = file.kind;
    node.allocatedSize_ = file.allocatedSize;
    node.logicalSize_ = file.logicalSize;
    node.modified_ = file.modified;
    node.flags_.isPurgeable = file.isPurgeable;
    place(node, name, folder);
    return node;
}

/// Gives the node its identity and its place among the folder's names.
void FolderBuilder::place(FileNode& node, std::string_view name, FileNode::Folder& folder) {
    node.id_ = shared_.identifiers.next();
    node.folder_ = &folder;
    node.nameOffset_ = static_cast<std::uint32_t>(folder.names.size());
    node.nameLength_ = static_cast<std::uint16_t>(name.size());
    folder.names += name;
}

FileNode FolderBuilder::topNode(const FileURL& url, Walked&& walked) {
    const std::string_view last = url.lastPathComponent();
    FileNode node(url, last.empty() ? std::string_view(url.path()) : last,
                  FileNode::Kind::directory, 0, 0, walked.isPurgeable, std::nullopt, {}, 0, 0, 0,
                  walked.truncated);
    node.modified_ = walked.modified;
    node.contents_ = std::move(walked.contents);
    return node;
}

}
