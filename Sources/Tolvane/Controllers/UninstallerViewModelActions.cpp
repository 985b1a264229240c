#include <HostKit/Text.h>

#include <Controllers/ShownText.h>
#include <Controllers/UninstallerReview.h>
#include <Controllers/UninstallerTexts.h>
#include <Controllers/UninstallerViewModel.h>
#include <fmt/format.h>

#include <algorithm>

// What a person does with the selected application.

namespace tolvane {

// Places

void UninstallerViewModel::revealApp(const QString& id) {
    if (const AppRow* row = find(AppRows::identifier(id))) {
        environment_.workspace.reveal(row->app().url);
    }
}

void UninstallerViewModel::copyAppPath(const QString& id) {
    if (const AppRow* row = find(AppRows::identifier(id))) {
        environment_.workspace.copyText(QString::fromStdString(displayText(row->app().url.path())));
    }
}

void UninstallerViewModel::revealLeftover(int row) {
    if (const LeftoverItem* item = detail_.leftoverAt(row)) {
        environment_.workspace.reveal(item->url);
    }
}

void UninstallerViewModel::copyLeftoverPath(int row) {
    if (const LeftoverItem* item = detail_.leftoverAt(row)) {
        environment_.workspace.copyText(QString::fromStdString(displayText(item->id())));
    }
}

// Removal

std::vector<ReviewItem> UninstallerViewModel::itemsToReview() const {
    return UninstallerReview::items(*selected(), appSize(), removableLeftovers());
}

void UninstallerViewModel::prepareReview() {
    if (!selected() || isWorking_ || detail_.isLoading()) {
        return;
    }
    banner_ = QString();
    removal_.review(
        itemsToReview(),
        [app = *selected(), home = environment_.layout.locations.home](const ReviewItem& item) {
            return UninstallerReview::bounds(item, app, home);
        },
        [app = *selected(), claims = UninstallerReview::claims(leftovers(), detail_.origins()),
         files = environment_.files, sources = environment_.layout.sources](
            const std::vector<ReviewItem>& items, const std::function<bool()>& isCancelled) {
            return UninstallerReview::warnings(app, claims, *files, sources, items, isCancelled);
        });
}

void UninstallerViewModel::removeReviewed() {
    if (!selected() || isWorking_) {
        return;
    }
    const std::vector<ReviewItem> items = showReview() ? reviewItems() : itemsToReview();
    removing_ = *selected();
    removesApp_ = std::any_of(items.begin(), items.end(), [this](const ReviewItem& item) {
        return UninstallerReview::isApp(item, removing_);
    });
    isDetailStale_ = false;
    removal_.remove(UninstallerReview::steps(items, removing_, environment_.layout.locations.home));
}

void UninstallerViewModel::removed(const std::vector<RemovalReceipt>& receipts) {
    banner_ = removesApp_ ? UninstallerTexts::removed(removing_.name, receipts.size() - 1)
                          : UninstallerTexts::removedLeftovers(removing_.name, receipts.size());
    log(fmt::format("uninstaller removed app={} receipts={}", removing_.bundleID, receipts.size()));
    clearSelection();
    startLoad();
}

void UninstallerViewModel::removalFailed(const RemovalError& error) {
    banner_ = shownText(error.description());
    log("uninstaller removal failed: " + error.description());
    isDetailStale_ = true;
}

/// After a removal that failed the detail would go on showing what is gone.
void UninstallerViewModel::reviewClosed() {
    if (!showReview() && isDetailStale_ && selected()) {
        select(*selected());
    }
}

void UninstallerViewModel::undo() {
    removal_.undo();
}

void UninstallerViewModel::restored(std::size_t restored, const std::vector<RemovalError>& failed) {
    banner_ = UninstallerTexts::restored(restored, failed.size());
    log(fmt::format("uninstaller undo restored={} failed={}", restored, failed.size()));
    startLoad();
}

}
