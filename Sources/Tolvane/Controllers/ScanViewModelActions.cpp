// What a person does with the items of a result: look at them, tick them, remove them.

#include <HostKit/Text.h>

#include <Controllers/PurgeableFiles.h>
#include <Controllers/ScanTexts.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

Bytes sizeOf(const std::vector<FileNode>& nodes) {
    Bytes size = 0;
    for (const FileNode& node : nodes) {
        add(size, node.totalAllocatedSize());
    }
    return size;
}

}

// Items

const FileNode* ScanViewModel::find(const QString& nodeID) const {
    const std::optional<Identifier> id = identifier(nodeID.toStdString());
    return id && tree_ ? tree_->find(*id) : nullptr;
}

void ScanViewModel::open(const QString& nodeID) {
    const FileNode* node = find(nodeID);
    if (node == nullptr) {
        return;
    }
    if (!node->isDirectory()) {
        environment_.workspace.open(node->url());
    } else if (!isGuarded()) {
        const FileNode folder = *node;
        enterParent(folder);
        drill(folder);
    }
}

void ScanViewModel::enterParent(const FileNode& node) {
    const TreeIndex& index = tree_->index();
    const std::optional<TreeIndex::Position> position = index.find(node.id());
    std::vector<FileNode> path;
    for (TreeIndex::Position place = index.parent(*position); place != TreeIndex::nowhere;
         place = index.parent(place)) {
        path.push_back(index.node(place));
    }
    std::reverse(path.begin(), path.end());
    if (!path.empty() && path.back().id() != path_.back().id()) {
        navigate(std::move(path));
    }
}

void ScanViewModel::inspect(const QString& nodeID) {
    if (const FileNode* node = find(nodeID)) {
        inspectNode(*node);
    }
}

void ScanViewModel::inspectNode(std::optional<FileNode> node) {
    inspected_ = std::move(node);
    if (inspected_ || !path_.empty()) {
        inspector_.show(inspected_ ? *inspected_ : path_.back());
    } else {
        inspector_.clear();
    }
    Q_EMIT treemapChanged();
}

void ScanViewModel::reveal(const QString& nodeID) {
    if (const FileNode* node = find(nodeID)) {
        environment_.workspace.reveal(node->url());
    }
}

void ScanViewModel::copyPath(const QString& nodeID) {
    if (const FileNode* node = find(nodeID)) {
        environment_.workspace.copyText(QString::fromStdString(displayText(node->url().path())));
    }
}

std::vector<TreemapEntry> ScanViewModel::treemapEntries() const {
    constexpr std::int64_t limit = 150;
    if (path_.empty()) {
        return {};
    }
    const bool isFolder = inspected_ && inspected_->isDirectory();
    return tolvane::treemapEntries(isFolder ? *inspected_ : path_.back(), 1, limit);
}

// Selection

void ScanViewModel::select(const QString& nodeID, bool additive) {
    if (const FileNode* node = find(nodeID)) {
        select(FileNode(*node), additive);
    }
}

void ScanViewModel::select(const FileNode& node, bool additive) {
    if (isGuarded()) {
        return;
    }
    if (!additive) {
        selection_.clear();
    }
    selection_.toggle(node.id());
    selectionChanged();
}

void ScanViewModel::selectAllChildren() {
    if (path_.empty()) {
        return;
    }
    for (const FileNode& child : path_.back().children()) {
        if (selection_.state(child.id()) != SelectionState::all) {
            selection_.toggle(child.id());
        }
    }
    selectionChanged();
}

void ScanViewModel::clearSelection() {
    selection_.clear();
    selectionChanged();
}

std::vector<FileNode> ScanViewModel::topLevelSelected() const {
    return selection_.topLevel();
}

std::vector<FileNode> ScanViewModel::chosenNodes() const {
    std::vector<FileNode> nodes = topLevelSelected();
    if (nodes.size() == 1 && nodes.front().id() == tree_->root().id()) {
        nodes = tree_->root().children();
        std::erase_if(nodes,
                      [this](const FileNode& node) { return !selection_.isSelected(node.id()); });
    }
    return nodes;
}

void ScanViewModel::selectionChanged() {
    const bool isAll = tree_ && selection_.isSelected(tree_->root().id());
    const std::vector<FileNode> chosen = isAll ? chosenNodes() : std::vector<FileNode>();
    selectedCount_ = static_cast<int>(selection_.topLevelCount());
    selectionText_ =
        isAll ? ScanTexts::selection(chosen.size(), sizeOf(chosen))
              : ScanTexts::selection(selection_.topLevelCount(), selection_.selectedSize());
    selectionVersion_ = selectionVersion_ + 1;
    folder_.refreshTicks();
}

// Removal

void ScanViewModel::prepareReview() {
    review(topLevelSelected());
}

void ScanViewModel::reviewChosen() {
    if (selectedCount_ > 0) {
        review(chosenNodes());
    }
}

void ScanViewModel::review(const std::vector<FileNode>& nodes) {
    if (!scannedURL_) {
        return;
    }
    banner_ = QString();
    std::vector<ReviewItem> items;
    items.reserve(nodes.size());
    for (const FileNode& node : nodes) {
        items.push_back(reviewItem(node));
    }
    removal_.review(std::move(items), {*scannedURL_}, false);
}

void ScanViewModel::removeReviewed() {
    if (!scannedURL_) {
        return;
    }
    std::vector<FileURL> items;
    for (const ReviewItem& item : removal_.reviewItems()) {
        items.push_back(item.url);
    }
    removedSize_ = removal_.reviewedSize();
    removal_.remove({{std::move(items), {*scannedURL_}, false}});
}

void ScanViewModel::removed(const std::vector<RemovalReceipt>& receipts) {
    banner_ = ScanTexts::moved(receipts.size());
    log(fmt::format("trash count={} bytes={} root={}", receipts.size(), removedSize_,
                    scannedURL_->path()));
    scan(FileURL(*scannedURL_), rescanOrigin);
}

void ScanViewModel::removalFailed(const RemovalError& error) {
    banner_ = shownText(error.description());
    log("trash failed: " + error.description());
    if (error.kind == RemovalError::Case::trashFailed) {
        // Items before the one that failed are in the Trash: what was reviewed is no longer so.
        removal_.closeReview();
        scan(FileURL(*scannedURL_), rescanOrigin);
    }
}

void ScanViewModel::undoRemoval() {
    removal_.undo();
}

void ScanViewModel::restored(std::size_t restored, const std::vector<RemovalError>& failed) {
    banner_ = ScanTexts::restored(restored, failed.size());
    log(fmt::format("undo restored={} failed={}", restored, failed.size()));
    scan(FileURL(*scannedURL_), rescanOrigin);
}

void ScanViewModel::dismissBanner() {
    banner_ = QString();
}

// Sheets and the rest

void ScanViewModel::openFailures() {
    failureFolders_.reset(failuresByFolder());
    showFailures_ = true;
}

void ScanViewModel::closeFailures() {
    showFailures_ = false;
}

void ScanViewModel::openPurgeable() {
    purgeable_.reset(purgeableFiles(purgeableLimit));
    showPurgeable_ = true;
}

void ScanViewModel::closePurgeable() {
    showPurgeable_ = false;
}

void ScanViewModel::revealPurgeable(int row) {
    if (row >= 0 && row < purgeable_.rowCount()) {
        environment_.workspace.reveal(purgeable_.records()[static_cast<std::size_t>(row)].url());
    }
}

std::vector<FileNode> ScanViewModel::purgeableFiles(std::size_t limit) const {
    return tree_ ? tolvane::purgeableFiles(*tree_, limit) : std::vector<FileNode>{};
}

std::vector<FailureFolder> ScanViewModel::failuresByFolder() const {
    return tolvane::failuresByFolder(failures_);
}

void ScanViewModel::setSpaceAnalysisView(const QString& view) {
    if (view == gridView || view == listView) {
        spaceAnalysisView_ = view;
        environment_.defaults.set(viewKey, view);
    }
}

void ScanViewModel::refreshFDA() {
    environment_.access.recheck();
}

void ScanViewModel::relaunch() {
    environment_.access.relaunch();
}

}
