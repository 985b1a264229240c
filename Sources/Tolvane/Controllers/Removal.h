#pragma once

#include <CleanupKit/Cleaner.h>
#include <Services/Job.h>
#include <Services/ReviewItem.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvane {

/// A row of the sheet that asks before something is removed, and what stands in its way.
struct ReviewRow {
    ReviewItem item;
    /// Why it cannot be moved to the Trash, for people; empty when nothing is known of that kind.
    QString trouble;
    /// What a person should know before they agree; empty when there is nothing of the kind.
    QString warning = {};

    friend bool operator==(const ReviewRow&, const ReviewRow&) = default;
};

/// The one way from chosen items to the Trash and back, shared by all removing controllers: the
/// rows of the confirm sheet, the move and its undoing as background jobs, the receipts. While a
/// job moves something, every other call that would change the rows or start another is ignored.
/// For the main thread.
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
    /// While a job looks at the rows; what is in their way or to be warned of comes afterwards.
    PUBLISHED(Removal, bool, isChecking)
    /// How many rows a person should look at twice.
    PUBLISHED(Removal, int, warnedCount)
    /// What a person should know of the rows together; empty when there is nothing.
    PUBLISHED(Removal, QString, warningText)
    /// Records with the roles `name`, `pathText`, `sizeText`, `isDirectory`, `iconName`, `trouble`,
    /// `warning`.
    Q_PROPERTY(tolvane::ListModel* rows READ rows CONSTANT)

  public:
    /// Items that may only be moved when they lie in one of the folders `roots`.
    struct Step {
        std::vector<FileURL> items;
        std::vector<FileURL> roots;
        bool allowProtected = false;
    };
    /// Where a row may lie, and whether it may be removed though it is protected.
    struct Bounds {
        std::vector<FileURL> roots;
        bool allowProtected = false;
    };
    /// Tells them, on a worker, so that it captures values only.
    using BoundsOf = std::function<Bounds(const ReviewItem& item)>;
    /// What speaks against a removal and forbids nothing, for people.
    struct Warnings {
        /// By the ids of the rows.
        std::map<std::string, std::string> rows;
        /// Of all rows together; may be empty.
        std::string all;
        /// The ids of rows that turned out to be folders.
        std::set<std::string> folders = {};
    };
    /// Finds them, on a worker, so that it captures values only.
    using Examiner = std::function<Warnings(const std::vector<ReviewItem>& items,
                                            const std::function<bool()>& isCancelled)>;
    /// What the controller does afterwards: banner, log line, refresh. Called last, when
    /// `isRemoving` and all else is up to date; each may destroy the `Removal`.
    struct Handlers {
        std::function<void(const std::vector<RemovalReceipt>&)> onRemoved;
        /// An error of a step. What was moved before it stays in the Trash, without receipts; the
        /// receipts of the removal before this one stay.
        std::function<void(const RemovalError&)> onFailed;
        std::function<void(std::size_t restored, const std::vector<RemovalError>& failed)>
            onRestored;
    };

    Removal(const Environment& environment, Handlers handlers);

    /// Opens the sheet on these rows, whose ids are distinct; a job then finds out what stands in
    /// the way of each, and what the examiner, if there is one, warns of.
    void review(std::vector<ReviewItem> items, std::vector<FileURL> roots, bool allowProtected,
                Examiner examiner = {});
    /// The same where not all rows have the same bounds.
    void review(std::vector<ReviewItem> items, BoundsOf boundsOf, Examiner examiner = {});
    /// One for each row; empty when the sheet is closed.
    std::vector<ReviewItem> reviewItems() const;
    /// Bytes of all rows.
    Bytes reviewedSize() const;

    /// Moves the items of each step in turn. The sheet closes when all succeeded. After a failure
    /// it stays open and the rows are looked at again, so that it shows what was in the way; who
    /// refreshes what the rows were chosen from closes it.
    void remove(std::vector<Step> steps);
    /// Puts back what the last removal moved, once: afterwards there are no receipts, whatever
    /// could not be put back.
    void undo();
    const std::vector<RemovalReceipt>& receipts() const { return receipts_; }

    ListModel* rows() { return &rows_; }

    Q_INVOKABLE void closeReview();
    /// Leaves one row out of what will be removed; the sheet closes with the last one.
    Q_INVOKABLE void leaveOut(int row);
    Q_INVOKABLE void leaveOutTroubled();

  private:
    struct Nothing {};
    using Removed = Result<std::vector<RemovalReceipt>, RemovalError>;
    /// The rows as they should be shown, which are those that were looked at.
    struct Findings {
        std::vector<ReviewRow> rows;
        QString warningText;
    };

    void check();
    void showFindings(Findings findings);
    /// Rows were left out.
    void shrink();
    void publishCounts();
    void endReview();
    void finishRemoval(Removed outcome);
    void finishUndo(std::size_t restored, const std::vector<RemovalError>& failed);
    void setReceipts(std::vector<RemovalReceipt> receipts);

    const Cleaner cleaner_;
    const Handlers handlers_;
    RecordModel<ReviewRow> rows_;
    BoundsOf boundsOf_;
    Examiner examiner_;
    /// Of the last removal of these rows: known, and not found by looking.
    std::optional<RemovalError> failure_;
    /// What a removal that broke off without a word is reported with.
    FileURL firstItem_;
    std::vector<RemovalReceipt> receipts_;
    Job<Nothing, Findings> checking_;
    Job<Nothing, Removed> removing_;
    Job<Nothing, std::vector<RemovalError>> restoring_;
};

}
