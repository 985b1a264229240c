#include <Controllers/Removal.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

std::vector<RecordModel<ReviewRow>::Role> roles() {
    return {{"name", [](const ReviewRow& row) { return shownText(row.item.name); }},
            {"pathText", [](const ReviewRow& row) { return shownText(row.item.url.path()); }},
            {"sizeText", [](const ReviewRow& row) { return shownSize(row.item.size); }},
            {"isDirectory", [](const ReviewRow& row) { return row.item.isDirectory; }},
            {"iconName",
             [](const ReviewRow& row) {
                 return QString(row.item.isDirectory ? "folder" : "text-x-generic");
             }},
            {"trouble", [](const ReviewRow& row) { return row.trouble; }},
            {"warning", [](const ReviewRow& row) { return row.warning; }}};
}

/// Ids may be paths, whose bytes must not become alike.
QString key(const ReviewRow& row) {
    return QString::fromLatin1(row.item.id);
}

bool isTroubled(const ReviewRow& row) {
    return !row.trouble.isEmpty();
}

bool isWarned(const ReviewRow& row) {
    return !row.warning.isEmpty();
}

Cleaner cleanerOf(const Environment& environment) {
    return Cleaner(ProtectionPolicy(environment.layout.protection),
                   environment.layout.locations.home, environment.files, environment.trash);
}

/// Absent when there is none.
std::optional<FileURL> firstItem(const std::vector<Removal::Step>& steps) {
    for (const Removal::Step& step : steps) {
        if (!step.items.empty()) {
            return step.items.front();
        }
    }
    return std::nullopt;
}

Result<std::vector<RemovalReceipt>, RemovalError> moveAll(const Cleaner& cleaner,
                                                          const std::vector<Removal::Step>& steps) {
    std::vector<RemovalReceipt> receipts;
    for (const Removal::Step& step : steps) {
        auto moved = cleaner.moveToTrash(step.items, step.roots, step.allowProtected);
        if (!moved) {
            return tl::unexpected(std::move(moved.error()));
        }
        receipts.insert(receipts.end(), moved->begin(), moved->end());
    }
    return receipts;
}

/// What keeps an item from being moved; empty when nothing is known of that kind.
QString troubleOf(const ReviewItem& item, const Cleaner& cleaner, const Removal::Bounds& bounds,
                  const std::optional<RemovalError>& failure) {
    const auto valid = cleaner.validate({item.url}, bounds.roots, bounds.allowProtected);
    if (!valid) {
        return shownText(valid.error().description());
    }
    const bool hasFailed = failure && valid->front().path() == failure->path;
    return hasFailed ? shownText(failure->description()) : QString();
}

}

Removal::Removal(const Environment& environment, Handlers handlers)
    : cleaner_(cleanerOf(environment))
    , handlers_(std::move(handlers))
    , rows_(roles(), key)
    , checking_(
          environment.workers, 0, {},
          [this](Findings findings) { showFindings(std::move(findings)); },
          // Nothing is known then of what is in the way; the removal itself will tell.
          [this](const std::string&) { isChecking_ = false; })
    , removing_(
          environment.workers, 0, {},
          [this](Removed outcome) { finishRemoval(std::move(outcome)); },
          [this](const std::string& reason) {
              finishRemoval(tl::unexpected(RemovalError::trashFailed(firstItem_.path(), reason)));
          })
    , restoring_(
          environment.workers, 0, {},
          [this](const std::vector<RemovalError>& failed) {
              const std::size_t restored = receipts_.size() - failed.size();
              setReceipts({});
              finishUndo(restored, failed);
          },
          [this](const std::string& reason) {
              std::vector<RemovalError> failed;
              failed.reserve(receipts_.size());
              for (const RemovalReceipt& receipt : receipts_) {
                  failed.push_back(RemovalError::restoreFailed(receipt.original.path(), reason));
              }
              setReceipts({});
              finishUndo(0, failed);
          }) {}

void Removal::review(std::vector<ReviewItem> items, std::vector<FileURL> roots, bool allowProtected,
                     Examiner examiner) {
    review(
        std::move(items),
        [bounds = Bounds{std::move(roots), allowProtected}](const ReviewItem&) { return bounds; },
        std::move(examiner));
}

void Removal::review(std::vector<ReviewItem> items, BoundsOf boundsOf, Examiner examiner) {
    if (isRemoving_) {
        return;
    }
    boundsOf_ = std::move(boundsOf);
    examiner_ = std::move(examiner);
    failure_.reset();
    std::vector<ReviewRow> rows;
    rows.reserve(items.size());
    for (ReviewItem& item : items) {
        rows.push_back({std::move(item), {}});
    }
    rows_.reset(std::move(rows));
    warningText_ = QString();
    publishCounts();
    showReview_ = true;
    check();
}

std::vector<ReviewItem> Removal::reviewItems() const {
    std::vector<ReviewItem> items;
    items.reserve(rows_.records().size());
    for (const ReviewRow& row : rows_.records()) {
        items.push_back(row.item);
    }
    return items;
}

Bytes Removal::reviewedSize() const {
    Bytes size = 0;
    for (const ReviewRow& row : rows_.records()) {
        add(size, row.item.size);
    }
    return size;
}

void Removal::check() {
    isChecking_ = true;
    checking_.start([cleaner = cleaner_, items = reviewItems(), boundsOf = boundsOf_,
                     examiner = examiner_,
                     failure = failure_](const auto&, const std::function<bool()>& isCancelled) {
        const Warnings warnings = examiner ? examiner(items, isCancelled) : Warnings();
        Findings findings{{}, shownText(warnings.all)};
        findings.rows.reserve(items.size());
        for (const ReviewItem& item : items) {
            if (isCancelled()) {
                break;
            }
            const auto warning = warnings.rows.find(item.id);
            findings.rows.push_back(
                {item, troubleOf(item, cleaner, boundsOf(item), failure),
                 warning == warnings.rows.end() ? QString() : shownText(warning->second)});
            ReviewItem& shown = findings.rows.back().item;
            shown.isDirectory = shown.isDirectory || warnings.folders.contains(item.id);
        }
        return findings;
    });
}

void Removal::showFindings(Findings findings) {
    rows_.replace(std::move(findings.rows));
    warningText_ = findings.warningText;
    isChecking_ = false;
    publishCounts();
}

void Removal::publishCounts() {
    const std::vector<ReviewRow>& rows = rows_.records();
    troubledCount_ = static_cast<int>(std::count_if(rows.begin(), rows.end(), isTroubled));
    warnedCount_ = static_cast<int>(std::count_if(rows.begin(), rows.end(), isWarned));
    countText_ = shownCount(rows_.rowCount(), "item");
    totalText_ = shownSize(reviewedSize());
}

void Removal::remove(std::vector<Step> steps) {
    const std::optional<FileURL> first = firstItem(steps);
    if (isRemoving_ || !first) {
        return;
    }
    firstItem_ = *first;
    checking_.discard();
    isChecking_ = false;
    isRemoving_ = true;
    removing_.start([cleaner = cleaner_, steps = std::move(steps)](const auto&, const auto&) {
        return moveAll(cleaner, steps);
    });
}

void Removal::finishRemoval(Removed outcome) {
    const Handlers handlers = handlers_;
    isRemoving_ = false;
    if (!outcome) {
        failure_ = outcome.error();
        check();
        handlers.onFailed(outcome.error());
        return;
    }
    setReceipts(*outcome);
    endReview();
    handlers.onRemoved(*outcome);
}

void Removal::undo() {
    if (isRemoving_ || receipts_.empty()) {
        return;
    }
    isRemoving_ = true;
    restoring_.start([cleaner = cleaner_, receipts = receipts_](const auto&, const auto&) {
        return cleaner.restore(receipts);
    });
}

void Removal::finishUndo(std::size_t restored, const std::vector<RemovalError>& failed) {
    const Handlers handlers = handlers_;
    isRemoving_ = false;
    handlers.onRestored(restored, failed);
}

void Removal::setReceipts(std::vector<RemovalReceipt> receipts) {
    receipts_ = std::move(receipts);
    canUndo_ = !receipts_.empty();
}

void Removal::closeReview() {
    if (!isRemoving_) {
        endReview();
    }
}

void Removal::endReview() {
    checking_.discard();
    isChecking_ = false;
    showReview_ = false;
    warningText_ = QString();
    examiner_ = {};
    rows_.reset({});
    publishCounts();
}

void Removal::leaveOut(int row) {
    if (!isRemoving_ && row >= 0 && row < rows_.rowCount()) {
        rows_.remove(row);
        shrink();
    }
}

void Removal::leaveOutTroubled() {
    if (!isRemoving_) {
        std::vector<ReviewRow> rows = rows_.records();
        rows.erase(std::remove_if(rows.begin(), rows.end(), isTroubled), rows.end());
        rows_.update(std::move(rows));
        shrink();
    }
}

void Removal::shrink() {
    publishCounts();
    showReview_ = showReview_ && rows_.rowCount() > 0;
    // What a running job finds would be of the rows before, and what speaks against a row may hang
    // on what becomes of the others.
    if (isChecking_ || examiner_) {
        check();
    }
}

}
