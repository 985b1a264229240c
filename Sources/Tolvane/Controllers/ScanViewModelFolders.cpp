// Which folder is on screen, and those that are loaded in detail: how what they hold takes its
// place in the tree.

#include <Controllers/ScanTexts.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <utility>

namespace tolvane {
namespace {

constexpr Seconds navigationGuard = 0.5;

}

void ScanViewModel::drill(const FileNode& node) {
    if (!node.isDirectory() || isGuarded()) {
        return;
    }
    navigationGuardUntil_ = environment_.clock() + navigationGuard;
    push(node);
}

void ScanViewModel::loadContents(const FileNode& node) {
    if (!node.isDirectory()) {
        return;
    }
    folderCache_.touch(node.url());
    if (!path_.empty() && path_.back().url() == node.url()) {
        if (!folderCache_.find(node.url())) {
            loadFolder(node);
        }
        return;
    }
    push(node);
}

void ScanViewModel::push(const FileNode& node) {
    const NodeTotals all = totals(node);
    const std::int64_t notListed = all.notListedFileCount();
    log(fmt::format("drill path={} total={} children={} hiddenFiles={} notListed={}",
                    node.url().path(), all.totalAllocatedSize, node.children().size(),
                    node.hiddenFiles(), notListed));
    const std::optional<FileNode> cached = folderCache_.find(node.url());
    std::vector<FileNode> path = path_;
    path.push_back(cached.value_or(node));
    selection_.clear();
    navigate(std::move(path));
    selectionChanged();
    const bool hasContents = !node.children().empty() || all.totalAllocatedSize <= 0;
    if (!cached && (notListed >= 1 || node.truncated() || !hasContents)) {
        loadFolder(node);
    }
}

void ScanViewModel::goBack() {
    if (path_.size() >= 2) {
        jump(static_cast<int>(path_.size()) - 2);
    }
}

void ScanViewModel::jump(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= path_.size()) {
        return;
    }
    std::vector<FileNode> path = path_;
    path.erase(path.begin() + index + 1, path.end());
    navigate(std::move(path));
}

void ScanViewModel::navigate(std::vector<FileNode> path) {
    path_ = std::move(path);
    crumbs_.update(path_);
    folder_.show(path_);
    canGoBack_ = path_.size() >= 2;
    inspectNode(std::nullopt);
    publishFolder();
    Q_EMIT pathChanged();
}

bool ScanViewModel::isGuarded() const {
    return environment_.clock() < navigationGuardUntil_;
}

void ScanViewModel::loadFolder(const FileNode& node) {
    folderJob_.discard();
    isLoadingFolder_ = true;
    loadingFolderName_ = shownText(node.name());
    loadingPath_ = shownPath(node.url());
    folderProgress_.reset();
    folderStartedAt_ = environment_.clock();
    expected_ = statistics_.expected(node.url());
    log("folder load start path=" + node.url().path());
    folderJob_.start([files = environment_.files, tree = tree_, node,
                      excluded = excludedPrefixes_](const Report<ScanProgress>& report,
                                                    const std::function<bool()>& isCancelled) {
        return DiskScan::load(files, tree, node, excluded, report, isCancelled);
    });
    activity_.setRunning(true);
}

void ScanViewModel::applyFolder(const DiskScan::FolderResult& result) {
    clearLoading();
    const auto failures = static_cast<std::int64_t>(result.failures.size());
    replaceTree(result.tree);
    purgeableText_ = ScanTexts::purgeable(result.treeTotals);
    const FileNode* folder = tree_->find(result.folder);
    if (folder != nullptr) {
        folderCache_.insert(*tree_, *folder);
    }
    if (failures > 0) {
        banner_ =
            QString::number(failures) + QStringLiteral(" item(s) could not be read in this folder");
    }
    log(fmt::format("folder load done path={} total={} files={} listedFiles={} dirs={} errors={}",
                    result.folder.path(), result.totals.totalAllocatedSize, result.totals.fileCount,
                    result.totals.listedFileCount, result.totals.directoryCount,
                    result.failures.size()));
}

void ScanViewModel::abandonFolder(const std::string& reason) {
    clearLoading();
    banner_ = QStringLiteral("The folder could not be loaded: ") + shownText(reason);
    log("folder load failed: " + reason);
}

void ScanViewModel::cancelFolderLoad() {
    if (!isLoadingFolder_) {
        return;
    }
    folderJob_.discard();
    clearLoading();
    log("folder load cancelled");
}

void ScanViewModel::clearLoading() {
    isLoadingFolder_ = false;
    loadingFolderName_ = QString();
    loadingPath_ = QString();
    folderProgress_.reset();
    folderStartedAt_.reset();
    activity_.setRunning(scanJob_.isRunning());
}

void ScanViewModel::rescanInDetail() {
    if (!path_.empty() && !isLoadingFolder_) {
        loadFolder(FileNode(path_.back()));
    }
}

void ScanViewModel::replaceTree(std::shared_ptr<const ScannedTree> tree) {
    const std::vector<FileNode> ticked = selection_.topLevel();
    const auto inspected = inspected_ ? std::vector{*inspected_} : std::vector<FileNode>();
    retired_ = std::exchange(tree_, std::move(tree));
    selection_.load(tree_);
    for (const FileNode* node : tree_->counterparts(ticked)) {
        if (node != nullptr && !selection_.isSelected(node->id())) {
            selection_.toggle(node->id());
        }
    }
    std::vector<FileNode> path;
    for (const FileNode* node : tree_->counterparts(path_)) {
        if (node == nullptr) {
            break;
        }
        path.push_back(*node);
    }
    navigate(std::move(path));
    for (const FileNode* node : tree_->counterparts(inspected)) {
        inspectNode(node != nullptr ? std::optional(*node) : std::nullopt);
    }
    selectionChanged();
    retire();
}

}
