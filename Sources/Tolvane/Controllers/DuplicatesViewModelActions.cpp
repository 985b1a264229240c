// What a person does with the duplicates: tick them, look at them, remove them.

#include <HostKit/Text.h>

#include <Controllers/DuplicateReview.h>
#include <Controllers/DuplicatesTexts.h>
#include <Controllers/DuplicatesViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <utility>

namespace tolvane {

// Ticks

void DuplicatesViewModel::toggle(const DuplicateFile& file) {
    if (const auto position = index_ ? index_->find(file.id()) : std::nullopt) {
        toggle(*position);
    }
}

void DuplicatesViewModel::toggle(DuplicateIndex::Position position) {
    const std::optional<DuplicateIndex::Position> kept = selection_.kept(index_->groupOf(position));
    selection_.toggle(position);
    rows_.refreshTick(position, kept);
    publishTicks();
}

void DuplicatesViewModel::selectCopies(std::size_t group) {
    if (index_ && group < index_->groups().size()) {
        selection_.selectCopies(group);
        ticksChanged(group);
    }
}

void DuplicatesViewModel::selectAllCopies() {
    selection_.selectAllCopies();
    ticksChanged(std::nullopt);
}

void DuplicatesViewModel::toggleRow(int row) {
    if (const auto file = rows_.fileAt(row)) {
        toggle(*file);
    } else if (const auto group = rows_.groupAt(row); group && selection_.countIn(*group) > 0) {
        clearTicksAt(row);
    } else {
        selectCopiesAt(row);
    }
}

void DuplicatesViewModel::selectCopiesAt(int row) {
    if (const auto group = rows_.groupAt(row)) {
        selectCopies(*group);
    }
}

void DuplicatesViewModel::keepNewest(int row) {
    keepAt(row, DuplicateSelection::Keep::newest);
}

void DuplicatesViewModel::keepOldest(int row) {
    keepAt(row, DuplicateSelection::Keep::oldest);
}

void DuplicatesViewModel::keepAt(int row, DuplicateSelection::Keep which) {
    if (const auto group = rows_.groupAt(row)) {
        selection_.keep(*group, which);
        ticksChanged(*group);
    }
}

void DuplicatesViewModel::keepOnly(int row) {
    if (const auto file = rows_.fileAt(row)) {
        selection_.keep(*file);
        ticksChanged(index_->groupOf(*file));
    }
}

void DuplicatesViewModel::keepFolder(int row) {
    if (const DuplicateFile* file = fileAt(row)) {
        selection_.keepFolder(file->url.deletingLastPathComponent());
        ticksChanged(std::nullopt);
    }
}

void DuplicatesViewModel::keepNewestOfAll() {
    selection_.keepOfAll(DuplicateSelection::Keep::newest);
    ticksChanged(std::nullopt);
}

void DuplicatesViewModel::keepOldestOfAll() {
    selection_.keepOfAll(DuplicateSelection::Keep::oldest);
    ticksChanged(std::nullopt);
}

void DuplicatesViewModel::clearTicksAt(int row) {
    if (const auto group = rows_.groupAt(row)) {
        selection_.clear(*group);
        ticksChanged(*group);
    }
}

void DuplicatesViewModel::clearTicks() {
    selection_.clear();
    ticksChanged(std::nullopt);
}

void DuplicatesViewModel::ticksChanged(std::optional<std::size_t> group) {
    if (group) {
        rows_.refreshTicks(*group);
    } else {
        rows_.refreshTicks();
    }
    publishTicks();
}

void DuplicatesViewModel::publishTicks() {
    selectedCount_ = static_cast<int>(selection_.count());
    selectionText_ = DuplicatesTexts::selection(selection_);
    selectionWarning_ = DuplicatesTexts::selectionWarning(selection_);
}

// Files

const DuplicateFile* DuplicatesViewModel::fileAt(int row) const {
    const std::optional<DuplicateIndex::Position> position = rows_.fileAt(row);
    return position ? &index_->file(*position) : nullptr;
}

void DuplicatesViewModel::open(int row) {
    if (const DuplicateFile* file = fileAt(row)) {
        environment_.workspace.open(file->url);
    }
}

void DuplicatesViewModel::reveal(int row) {
    if (const DuplicateFile* file = fileAt(row)) {
        environment_.workspace.reveal(file->url);
    }
}

void DuplicatesViewModel::copyPath(int row) {
    if (const DuplicateFile* file = fileAt(row)) {
        environment_.workspace.copyText(QString::fromStdString(displayText(file->id())));
    }
}

// Removal

void DuplicatesViewModel::prepareReview() {
    if (isWorking_) {
        return;
    }
    banner_ = QString();
    std::vector<ReviewItem> items;
    items.reserve(selection_.count());
    for (const DuplicateIndex::Position position : selection_.selected()) {
        const DuplicateFile& file = index_->file(position);
        items.push_back({.id = file.id(),
                         .name = std::string(file.url.lastPathComponent()),
                         .url = file.url,
                         .size = file.size,
                         .isDirectory = false});
    }
    removal_.review(
        std::move(items), {index_ ? index_->result().root : root_}, false,
        [index = index_, files = environment_.files](const std::vector<ReviewItem>& reviewed,
                                                     const std::function<bool()>& isCancelled) {
            return index ? DuplicateReview::warnings(*index, *files, reviewed, isCancelled)
                         : Removal::Warnings();
        });
}

void DuplicatesViewModel::removeReviewed() {
    if (!index_) {
        return;
    }
    std::vector<FileURL> items;
    for (const ReviewItem& item : removal_.reviewItems()) {
        items.push_back(item.url);
    }
    removal_.remove({{std::move(items), {index_->result().root}, false}});
}

void DuplicatesViewModel::removed(const std::vector<RemovalReceipt>& receipts) {
    banner_ = DuplicatesTexts::moved(receipts.size());
    log(fmt::format("duplicates trash count={} root={}", receipts.size(),
                    index_->result().root.path()));
    startScan();
}

void DuplicatesViewModel::removalFailed(const RemovalError& error) {
    banner_ = shownText(error.description());
    log("duplicates trash failed: " + error.description());
}

void DuplicatesViewModel::undo() {
    removal_.undo();
}

void DuplicatesViewModel::restored(std::size_t restored, const std::vector<RemovalError>& failed) {
    banner_ = DuplicatesTexts::restored(restored, failed.size());
    startScan();
}

void DuplicatesViewModel::dismissBanner() {
    banner_ = QString();
}

}
