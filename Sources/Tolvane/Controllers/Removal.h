#pragma once

#include <CleanupKit/Cleaner.h>
#include <Services/Job.h>
#include <Services/ReviewItem.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <functional>
#include <vector>

namespace tolvane {

/// A row of the sheet that asks before something is removed, and what stands in its way.
struct ReviewRow {
    ReviewItem item;
    /// Why it cannot be moved to the Trash, for people; empty when nothing is known of that kind.
    QString trouble;
};

/// The one way from chosen items to the Trash and back, shared by all removing controllers: the
/// rows of the confirm sheet, the move and its undoing as background jobs, the receipts. For the
/// main thread.
class Removal : public QObject {
    Q_OBJECT
    /// Whether the confirm sheet is shown.
    PUBLISHED(Removal, bool, showReview)
    /// While a removal or its undoing runs.
    PUBLISHED(Removal, bool, isRemoving)
    /// Whether there is a removal to undo.
    PUBLISHED(Removal, bool, canUndo)
    /// The sum of the rows' sizes.
    PUBLISHED(Removal, QString, totalText)
    /// "3 items"
    PUBLISHED(Removal, QString, countText)
    /// How many rows have something in their way; while there are any the removal would fail.
    PUBLISHED(Removal, int, troubledCount)
    Q_PROPERTY(tolvane::ListModel* rows READ rows CONSTANT)

  public:
    /// Items that may only be moved when they lie in one of the folders `roots`.
    struct Step {
        std::vector<FileURL> items;
        std::vector<FileURL> roots;
        bool allowProtected = false;
    };
    /// What the controller does afterwards: banner, log line, refresh. Called after `isRemoving`
    /// was cleared.
    struct Handlers {
        std::function<void(const std::vector<RemovalReceipt>&)> onRemoved;
        /// An error of a step; earlier steps stay done.
        std::function<void(const RemovalError&)> onFailed;
        std::function<void(std::size_t restored, const std::vector<RemovalError>& failed)>
            onRestored;
    };

    Removal(const Environment& environment, Handlers handlers);

    /// Opens the sheet on these rows; a job then finds out what stands in the way of each.
    void review(std::vector<ReviewItem> items, std::vector<FileURL> roots, bool allowProtected);
    const std::vector<ReviewItem>& reviewItems() const { return reviewItems_; }
    /// Bytes of all rows.
    Bytes reviewedSize() const;

    /// Closes the sheet when it succeeded. Ignored while one runs.
    void remove(std::vector<Step> steps);
    /// Puts back what the last removal moved. Ignored while one runs or without receipts.
    void undo();
    const std::vector<RemovalReceipt>& receipts() const { return receipts_; }

    ListModel* rows() { return &rows_; }

    Q_INVOKABLE void closeReview();
    /// Leaves one row out of what will be removed; the sheet closes with the last one.
    Q_INVOKABLE void leaveOut(int row);
    Q_INVOKABLE void leaveOutTroubled();

  private:
    struct Removed {
        std::vector<RemovalReceipt> receipts;
        std::optional<RemovalError> error;
    };
    struct Nothing {};

    void publishRows();

    const Environment& environment_;
    const Handlers handlers_;
    RecordModel<ReviewRow> rows_;
    std::vector<ReviewItem> reviewItems_;
    std::vector<RemovalReceipt> receipts_;
    Job<Nothing, std::vector<QString>> checking_;
    Job<Nothing, Removed> removing_;
    Job<Nothing, std::vector<RemovalError>> restoring_;
};

}
