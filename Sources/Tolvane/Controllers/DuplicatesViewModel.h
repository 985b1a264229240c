#pragma once

#include <Services/Job.h>
#include <Services/QuickLocation.h>
#include <Services/ReviewItem.h>

#include <Controllers/Activity.h>
#include <Controllers/DuplicateIndex.h>
#include <Controllers/DuplicateScan.h>
#include <Controllers/DuplicateSelection.h>
#include <Controllers/DuplicatesModel.h>
#include <Controllers/Environment.h>
#include <Controllers/FailureFolder.h>
#include <Controllers/FolderFinder.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/Removal.h>
#include <Controllers/Ui.h>

#include <QList>
#include <QString>
#include <QUrl>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of the duplicates: looks through a folder for files of equal content, keeps what
/// is ticked, moves it to the Trash and back. For the main thread.
class DuplicatesViewModel : public QObject {
    Q_OBJECT
    /// `Working` until a scan that was cancelled has come back, too.
    PUBLISHED(DuplicatesViewModel, tolvane::Ui::Stage, stage)
    PUBLISHED(DuplicatesViewModel, bool, isScanning)
    /// Files fingerprinted so far by the running scan.
    PUBLISHED(DuplicatesViewModel, int, checkedFiles)
    /// One line about the last removal or undo; empty when there is none.
    PUBLISHED(DuplicatesViewModel, QString, banner)
    /// While a removal or its undoing runs; nothing else can be started then.
    PUBLISHED(DuplicatesViewModel, bool, isWorking)
    /// Whether the result is that of a scan which was cancelled.
    PUBLISHED(DuplicatesViewModel, bool, isPartial)
    PUBLISHED(DuplicatesViewModel, bool, hasGroups)
    PUBLISHED(DuplicatesViewModel, int, selectedCount)
    PUBLISHED(DuplicatesViewModel, bool, showFailures)

    // Ready text.
    PUBLISHED(DuplicatesViewModel, QString, rootPath)
    PUBLISHED(DuplicatesViewModel, QString, rootName)
    /// Whether the root can be offered: not everybody has the folder that it is at first.
    PUBLISHED(DuplicatesViewModel, bool, isRootOffered)
    /// The minimum size as it can be edited: "1 MiB"
    PUBLISHED(DuplicatesViewModel, QString, minimumSizeText)
    /// Why the last text was no minimum size; empty when it was one.
    PUBLISHED(DuplicatesViewModel, QString, minimumSizeError)
    /// "12 groups, 40 files, 1.2 GB can be freed"
    PUBLISHED(DuplicatesViewModel, QString, summaryText)
    /// "1,204 files looked at, 340 compared"
    PUBLISHED(DuplicatesViewModel, QString, checkedText)
    /// "Scanned in 2.1 s", "Stopped after 2.1 s"
    PUBLISHED(DuplicatesViewModel, QString, elapsedText)
    /// "Left out: hidden files, ..."
    PUBLISHED(DuplicatesViewModel, QString, leftOutText)
    /// "12 folders could not be read"; empty when all could.
    PUBLISHED(DuplicatesViewModel, QString, failuresText)
    /// Why there are no groups; empty when there are some or there is no result.
    PUBLISHED(DuplicatesViewModel, QString, emptyText)
    /// Why nothing of this result can be removed; empty when it can.
    PUBLISHED(DuplicatesViewModel, QString, lockedText)
    /// "3 files, 1.2 GB"; empty when nothing is ticked.
    PUBLISHED(DuplicatesViewModel, QString, selectionText)
    /// "Every copy is ticked in 2 groups"; empty when one stays of each.
    PUBLISHED(DuplicatesViewModel, QString, selectionWarning)

    /// The groups and files; its doc comments tell the roles.
    Q_PROPERTY(tolvane::DuplicatesModel* rows READ rows CONSTANT)
    Q_PROPERTY(tolvane::Activity* activity READ activity CONSTANT)
    Q_PROPERTY(tolvane::Removal* removal READ removal CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    /// Roles `title`, `iconName`, `pathText`, `isAvailable`.
    Q_PROPERTY(tolvane::ListModel* quickPlaces READ quickPlaces CONSTANT)
    /// Roles `pathText`, `countText`.
    Q_PROPERTY(tolvane::ListModel* failureFolders READ failureFolders CONSTANT)

  public:
    DuplicatesModel* rows() { return &rows_; }
    Activity* activity() { return &activity_; }
    Removal* removal() { return &removal_; }
    AccessStatus* access() { return &environment_.access; }
    ListModel* quickPlaces() { return &quickPlaces_; }
    ListModel* failureFolders() { return &failureFolders_; }

    static constexpr Bytes usualMinimumSize = 1'048'576;

    explicit DuplicatesViewModel(const Environment& environment);
    ~DuplicatesViewModel() override;

    // Fields

    const FileURL& root() const { return root_; }
    Bytes minimumSize() const { return minimumSize_; }
    /// Null without a result.
    const DuplicateScanResult* result() const { return index_ ? &index_->result() : nullptr; }
    std::set<std::string> selectedPaths() const;
    bool showReview() const { return removal_.showReview(); }
    std::vector<ReviewItem> reviewItems() const { return removal_.reviewItems(); }
    const std::vector<RemovalReceipt>& receipts() const { return removal_.receipts(); }
    /// By the clock of the environment.
    std::optional<Date> scanStartedAt() const { return scanStartedAt_; }

    // Derived

    std::vector<DuplicateGroup> groups() const;
    std::vector<DuplicateFile> selectedFiles() const;

    // Scanning

    /// The screen came up: scans by itself when the settings say so and there is nothing to show.
    Q_INVOKABLE void appeared();
    Q_INVOKABLE void chooseRoot();
    /// Looks through `root` with the minimum size as it is now.
    Q_INVOKABLE void scan();
    /// What the scan found until now still becomes the result.
    Q_INVOKABLE void cancel();
    /// Stops the scan; one that was cancelled and does not come back is given up.
    Q_INVOKABLE void cancelActivity();
    /// `root` becomes the folder that is looked through.
    void scanRoot(const FileURL& root);
    /// The first of `urls` that is a local folder becomes the root, once the disk has told.
    Q_INVOKABLE void scanDropped(const QList<QUrl>& urls);
    /// A path ("~" is the home folder) or a file URL becomes the root.
    Q_INVOKABLE void scanPath(const QString& text);
    Q_INVOKABLE void scanQuickPlace(int row);
    /// For the next scan. False when the text is no size; `minimumSizeError` then tells why, and
    /// the minimum stays as it was.
    Q_INVOKABLE bool setMinimumSize(const QString& text);
    void setMinimumSize(Bytes size);

    // Ticks. Rows are those of `rows`; one that does not exist is ignored.

    void toggle(const DuplicateFile& file);
    void selectCopies(std::size_t group);
    /// Every group, whatever the filter shows.
    Q_INVOKABLE void selectAllCopies();
    /// A file's own tick. Of a header: its copies get one; when one of them has one all are taken
    /// off.
    Q_INVOKABLE void toggleRow(int row);
    Q_INVOKABLE void selectCopiesAt(int row);
    /// Ticks all files of the row's group but the newest.
    Q_INVOKABLE void keepNewest(int row);
    Q_INVOKABLE void keepOldest(int row);
    /// Ticks all files of the row's group but that one.
    Q_INVOKABLE void keepOnly(int row);
    /// Takes the ticks off everything in the folder of the row's file and below, in all groups, and
    /// ticks the other copies.
    Q_INVOKABLE void keepFolder(int row);
    Q_INVOKABLE void keepNewestOfAll();
    Q_INVOKABLE void keepOldestOfAll();
    /// Of the row's group.
    Q_INVOKABLE void clearTicksAt(int row);
    Q_INVOKABLE void clearTicks();

    // Files

    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void reveal(int row);
    Q_INVOKABLE void copyPath(int row);

    // Removal

    /// Opens the sheet on what is ticked.
    Q_INVOKABLE void prepareReview();
    Q_INVOKABLE void removeReviewed();
    Q_INVOKABLE void undo();
    Q_INVOKABLE void dismissBanner();

    // Sheets

    Q_INVOKABLE void openFailures();
    Q_INVOKABLE void closeFailures();

  private:
    /// `scan` without its respect for what runs and what the banner tells.
    void startScan();
    void apply(DuplicateScan::Result result);
    void abandonScan(const std::string& reason);
    void clearResult();
    /// Shows another result; the one before is dropped on a worker, which takes a while.
    void replaceIndex(std::shared_ptr<const DuplicateIndex> index);
    void publishResult(const DuplicateScan::Result& result);
    void publishRoot();
    void toggle(DuplicateIndex::Position position);
    void keepAt(int row, DuplicateSelection::Keep which);
    void publishStage();
    /// Ticks of this group changed; absent: any did.
    void ticksChanged(std::optional<std::size_t> group);
    void publishTicks();
    const DuplicateFile* fileAt(int row) const;
    Activity::State activityState() const;

    void removed(const std::vector<RemovalReceipt>& receipts);
    void removalFailed(const RemovalError& error);
    void restored(std::size_t restored, const std::vector<RemovalError>& failed);
    void log(const std::string& message) const;

    const Environment& environment_;
    FileURL root_;
    Bytes minimumSize_ = usualMinimumSize;
    DuplicateSelection selection_;
    DuplicatesModel rows_;
    Activity activity_;
    Removal removal_;
    RecordModel<QuickLocation> quickPlaces_;
    RecordModel<FailureFolder> failureFolders_;
    std::shared_ptr<const DuplicateIndex> index_;
    std::optional<Date> scanStartedAt_;
    FolderFinder finder_;
    Job<std::int64_t, DuplicateScan::Result> scanJob_;
};

}
