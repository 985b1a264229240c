#include <ScanKit/FileNodeStorage.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tolvane {
namespace {

constexpr std::array<std::string_view, 4> kindTexts{"directory", "regular", "symlink", "other"};

std::uint16_t fittingNameLength(std::string_view name) {
    return static_cast<std::uint16_t>(
        std::min<std::size_t>(name.size(), std::numeric_limits<std::uint16_t>::max()));
}

void appendFlattened(const FileNode& node, std::vector<FileNode>& list) {
    list.push_back(node);
    for (const FileNode& child : node.children()) {
        appendFlattened(child, list);
    }
}

}

// The counters live in the boost base, which is declared only where the types are complete.
void intrusive_ptr_add_ref(const FileNode::Folder* folder) noexcept {
    boost::sp_adl_block::intrusive_ptr_add_ref(
        static_cast<const boost::intrusive_ref_counter<FileNode::Folder>*>(folder));
}

void intrusive_ptr_release(const FileNode::Folder* folder) noexcept {
    boost::sp_adl_block::intrusive_ptr_release(
        static_cast<const boost::intrusive_ref_counter<FileNode::Folder>*>(folder));
}

void intrusive_ptr_add_ref(const FileNode::Contents* contents) noexcept {
    boost::sp_adl_block::intrusive_ptr_add_ref(
        static_cast<const boost::intrusive_ref_counter<FileNode::Contents>*>(contents));
}

void intrusive_ptr_release(const FileNode::Contents* contents) noexcept {
    boost::sp_adl_block::intrusive_ptr_release(
        static_cast<const boost::intrusive_ref_counter<FileNode::Contents>*>(contents));
}

void FileNode::Folder::appendPath(std::string& path) const {
    if (!parent) {
        path += text(nameOffset, nameLength);
        return;
    }
    parent->appendPath(path);
    appendComponent(path, parent->text(nameOffset, nameLength));
}

FileNode::FileNode(const FileURL& url, std::string_view name, Kind kind, Bytes allocatedSize,
                   Bytes logicalSize, bool isPurgeable, std::optional<Date> modified,
                   std::vector<FileNode> children, Bytes hiddenBytes, std::int64_t hiddenFiles,
                   std::int64_t hiddenDirectories, bool truncated)
    : id_(freshIdentifier())
    , allocatedSize_(allocatedSize)
    , logicalSize_(logicalSize)
    , modified_(modified.value_or(absentDate))
    , nameOffset_(static_cast<std::uint32_t>(url.path().size()))
    , nameLength_(fittingNameLength(name))
    , kind_(kind)
    , flags_{isPurgeable, truncated, true} {
    auto* folder = new Folder;
    folder_ = folder;
    folder->nameLength = static_cast<std::uint32_t>(url.path().size());
    folder->names = url.path();
    folder->names += name.substr(0, nameLength_);
    if (!children.empty() || hiddenBytes != 0 || hiddenFiles != 0 || hiddenDirectories != 0) {
        auto* contents = new Contents;
        contents_ = contents;
        contents->children = std::move(children);
        contents->hiddenBytes = hiddenBytes;
        contents->hiddenFiles = hiddenFiles;
        contents->hiddenDirectories = hiddenDirectories;
    }
}

FileNode::FileNode(const FileNode&) = default;
FileNode::FileNode(FileNode&&) noexcept = default;
FileNode& FileNode::operator=(const FileNode&) = default;
FileNode& FileNode::operator=(FileNode&&) noexcept = default;
FileNode::~FileNode() = default;

FileURL FileNode::url() const {
    std::string path;
    folder_->appendPath(path);
    if (!flags_.standsAlone) {
        appendComponent(path, name());
    }
    return FileURL(std::move(path));
}

std::string_view FileNode::name() const {
    return folder_->text(nameOffset_, nameLength_);
}

std::optional<Date> FileNode::modified() const {
    return std::isnan(modified_) ? std::nullopt : std::optional(modified_);
}

Bytes FileNode::hiddenBytes() const {
    return contents_ ? contents_->hiddenBytes : 0;
}

std::int64_t FileNode::hiddenFiles() const {
    return contents_ ? contents_->hiddenFiles : 0;
}

std::int64_t FileNode::hiddenDirectories() const {
    return contents_ ? contents_->hiddenDirectories : 0;
}

const std::vector<FileNode>& FileNode::children() const {
    static const std::vector<FileNode> none;
    return contents_ ? contents_->children : none;
}

Bytes FileNode::totalAllocatedSize() const {
    return totals(*this).totalAllocatedSize;
}

Bytes FileNode::totalLogicalSize() const {
    return totals(*this).totalLogicalSize;
}

Bytes FileNode::totalPurgeableSize() const {
    return totals(*this).totalPurgeableSize;
}

std::int64_t FileNode::fileCount() const {
    return totals(*this).fileCount;
}

std::int64_t FileNode::directoryCount() const {
    return totals(*this).directoryCount;
}

std::int64_t FileNode::leavesCount() const {
    return totals(*this).leavesCount;
}

std::int64_t FileNode::listedFileCount() const {
    return totals(*this).listedFileCount;
}

std::int64_t FileNode::listedDirectoryCount() const {
    return totals(*this).listedDirectoryCount;
}

std::int64_t FileNode::notListedFileCount() const {
    return totals(*this).notListedFileCount();
}

std::int64_t FileNode::notListedDirectoryCount() const {
    return totals(*this).notListedDirectoryCount();
}

std::vector<FileNode> FileNode::flattened() const {
    std::vector<FileNode> list;
    appendFlattened(*this, list);
    return list;
}

FileNode FileNode::settingChildren(std::vector<FileNode> children) const {
    auto* contents = new Contents;
    FileNode changed = *this;
    changed.contents_ = contents;
    contents->children = std::move(children);
    contents->hiddenBytes = hiddenBytes();
    contents->hiddenFiles = hiddenFiles();
    contents->hiddenDirectories = hiddenDirectories();
    return changed;
}

std::string_view rawValue(FileNode::Kind kind) {
    return kindTexts.at(static_cast<std::size_t>(kind));
}

std::optional<FileNode::Kind> fileNodeKind(std::string_view rawValue) {
    const auto found = std::find(kindTexts.begin(), kindTexts.end(), rawValue);
    if (found == kindTexts.end()) {
        return std::nullopt;
    }
    return static_cast<FileNode::Kind>(found - kindTexts.begin());
}

std::int64_t NodeTotals::notListedFileCount() const {
    return std::max<std::int64_t>(0, difference(fileCount, listedFileCount));
}

std::int64_t NodeTotals::notListedDirectoryCount() const {
    return std::max<std::int64_t>(0, difference(directoryCount, listedDirectoryCount));
}

NodeTotals ownTotals(const FileNode& node) {
    const std::int64_t directory = node.isDirectory() ? 1 : 0;
    const std::int64_t file = 1 - directory;
    return {.totalAllocatedSize = sum(node.allocatedSize(), node.hiddenBytes()),
            .totalLogicalSize = node.logicalSize(),
            .totalPurgeableSize = node.isPurgeable() ? node.allocatedSize() : 0,
            .fileCount = sum(file, node.hiddenFiles()),
            .directoryCount = sum(directory, node.hiddenDirectories()),
            .leavesCount = node.children().empty() ? file : 0,
            .listedFileCount = file,
            .listedDirectoryCount = directory};
}

void addChild(NodeTotals& folder, const NodeTotals& child) {
    add(folder.totalAllocatedSize, child.totalAllocatedSize);
    add(folder.totalLogicalSize, child.totalLogicalSize);
    add(folder.totalPurgeableSize, child.totalPurgeableSize);
    add(folder.fileCount, child.fileCount);
    add(folder.directoryCount, child.directoryCount);
    add(folder.leavesCount, child.leavesCount);
    add(folder.listedFileCount, child.listedFileCount);
    add(folder.listedDirectoryCount, child.listedDirectoryCount);
}

NodeTotals totals(const FileNode& node) {
    NodeTotals result = ownTotals(node);
    for (const FileNode& child : node.children()) {
        addChild(result, totals(child));
    }
    return result;
}

}
