#pragma once

#include <ArborviewKit/SelectionModel.h>
#include <ArborviewKit/Treemap.h>
#include <ScanKit/ScanFailure.h>
#include <ScanKit/ScanProgress.h>
#include <Services/Job.h>
#include <Services/QuickLocation.h>

#include <Controllers/Activity.h>
#include <Controllers/DiskScan.h>
#include <Controllers/Environment.h>
#include <Controllers/FailureFolder.h>
#include <Controllers/FolderCache.h>
#include <Controllers/FolderFinder.h>
#include <Controllers/FolderModel.h>
#include <Controllers/Inspector.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/Removal.h>
#include <Controllers/ScanStatistics.h>
#include <Controllers/Ui.h>

#include <QList>
#include <QString>
#include <QUrl>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of the size map: scans a folder or volume, moves about in the tree, loads folders
/// in detail, keeps what is ticked, moves it to the Trash and back. For the main thread.
class ScanViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(ScanViewModel, tolvane::Ui::Stage, stage)
    PUBLISHED(ScanViewModel, bool, isScanning)
    /// Seconds of the last scan.
    PUBLISHED(ScanViewModel, double, elapsed)
    /// Whether the result is that of a scan which was cancelled.
    PUBLISHED(ScanViewModel, bool, isPartial)
    PUBLISHED(ScanViewModel, int, selectedCount)
    /// Grows with every change of what is ticked.
    PUBLISHED(ScanViewModel, int, selectionVersion)
    PUBLISHED(ScanViewModel, bool, showFailures)
    PUBLISHED(ScanViewModel, bool, showPurgeable)
    /// One line about the last removal, undo or load; empty when there is none.
    PUBLISHED(ScanViewModel, QString, banner)
    PUBLISHED(ScanViewModel, bool, isLoadingFolder)
    PUBLISHED(ScanViewModel, QString, loadingFolderName)
    PUBLISHED(ScanViewModel, QString, loadingPath)

    // Ready text.
    PUBLISHED(ScanViewModel, QString, scannedPath)
    PUBLISHED(ScanViewModel, QString, scannedName)
    /// "3 items, 1.2 GB"; empty when nothing is ticked.
    PUBLISHED(ScanViewModel, QString, selectionText)
    /// Size and counts of the folder on screen.
    PUBLISHED(ScanViewModel, QString, folderText)
    /// "Scanned in 2.1 s"
    PUBLISHED(ScanViewModel, QString, elapsedText)
    /// "12 items could not be read"; empty when all could.
    PUBLISHED(ScanViewModel, QString, failuresText)
    /// "1.2 GB purgeable"; empty without a result.
    PUBLISHED(ScanViewModel, QString, purgeableText)
    /// What lies below the scanned folder and is in no total.
    PUBLISHED(ScanViewModel, QString, notCountedText)
    /// Why the folder on screen shows nothing; empty when it shows something.
    PUBLISHED(ScanViewModel, QString, emptyText)
    /// Why nothing of this scan can be removed; empty when it can.
    PUBLISHED(ScanViewModel, QString, lockedText)
    /// Path of the last scan; empty before the first.
    PUBLISHED(ScanViewModel, QString, lastScanPath)
    /// Whether `goBack` leads anywhere.
    PUBLISHED(ScanViewModel, bool, canGoBack)
    /// "grid" or "list".
    PUBLISHED(ScanViewModel, QString, spaceAnalysisView)

    Q_PROPERTY(tolvane::ListModel* crumbs READ crumbs CONSTANT)
    Q_PROPERTY(tolvane::FolderModel* folder READ folder CONSTANT)
    Q_PROPERTY(tolvane::Inspector* inspector READ inspector CONSTANT)
    Q_PROPERTY(tolvane::Activity* activity READ activity CONSTANT)
    Q_PROPERTY(tolvane::Removal* removal READ removal CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    Q_PROPERTY(tolvane::ListModel* quickPlaces READ quickPlaces CONSTANT)
    Q_PROPERTY(tolvane::ListModel* failureFolders READ failureFolders CONSTANT)
    Q_PROPERTY(tolvane::ListModel* purgeable READ purgeable CONSTANT)

  public:
    ListModel* crumbs() { return &crumbs_; }
    FolderModel* folder() { return &folder_; }
    Inspector* inspector() { return &inspector_; }
    Activity* activity() { return &activity_; }
    Removal* removal() { return &removal_; }
    AccessStatus* access() { return &environment_.access; }
    ListModel* quickPlaces() { return &quickPlaces_; }
    ListModel* failureFolders() { return &failureFolders_; }
    ListModel* purgeable() { return &purgeable_; }

    /// Scans of up to so many files are loaded in detail at once when something has no row.
    static constexpr std::int64_t automaticDetailLimit = 60'000;
    static constexpr std::size_t purgeableLimit = 500;

    explicit ScanViewModel(const Environment& environment);
    ~ScanViewModel() override;

    // Fields

    /// The folders from the scanned one to the one on screen; empty before the first result.
    const std::vector<FileNode>& path() const { return path_; }
    const std::optional<ScanProgress>& progress() const { return progress_; }
    const std::optional<ScanProgress>& folderProgress() const { return folderProgress_; }
    const std::vector<ScanFailure>& failures() const { return failures_; }
    const FullDiskAccessStatus& fda() const { return environment_.access.status(); }
    const std::optional<FileURL>& scannedURL() const { return scannedURL_; }
    Bytes selectedSize() const { return selection_.selectedSize(); }
    const std::optional<FileNode>& inspected() const { return inspected_; }
    std::optional<Date> scanStartedAt() const { return scanStartedAt_; }
    std::optional<Date> folderStartedAt() const { return folderStartedAt_; }

    // Scanning

    /// `origin` tells the log who asked.
    void scan(const FileURL& url, const QString& origin);
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void scanAgain();
    Q_INVOKABLE void scanLast();
    Q_INVOKABLE void scanQuickPlace(int row);
    Q_INVOKABLE void scanFolderOnScreen();
    Q_INVOKABLE void chooseFolder();
    /// The first of `urls` that is a local folder.
    Q_INVOKABLE void scanDropped(const QList<QUrl>& urls);
    /// Stops whatever the activity tells of.
    Q_INVOKABLE void cancelActivity();

    // Navigation

    void drill(const FileNode& node);
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void jump(int index);
    /// Opens a folder as `drill` does, without its guard against double clicks: one that is loaded
    /// in detail is shown as it is, another is loaded first.
    void loadContents(const FileNode& node);
    void loadFolder(const FileNode& node);
    Q_INVOKABLE void cancelFolderLoad();
    /// Loads the folder on screen in detail.
    Q_INVOKABLE void rescanInDetail();

    // Items, by the text of their id

    /// Enters a folder; opens a file in its application.
    Q_INVOKABLE void open(const QString& nodeID);
    Q_INVOKABLE void inspect(const QString& nodeID);
    Q_INVOKABLE void select(const QString& nodeID, bool additive);
    Q_INVOKABLE void reveal(const QString& nodeID);
    Q_INVOKABLE void copyPath(const QString& nodeID);

    // Selection

    void select(const FileNode& node, bool additive);
    Q_INVOKABLE void selectAllChildren();
    Q_INVOKABLE void clearSelection();
    std::vector<FileNode> topLevelSelected() const;
    /// The topmost selected nodes. The scanned folder is selected once all in it is, but can never
    /// be removed, so the selected ones of its children stand for it.
    std::vector<FileNode> chosenNodes() const;
    const SelectionModel& selection() const { return selection_; }

    // Removal

    /// Opens the sheet on `topLevelSelected()`.
    Q_INVOKABLE void prepareReview();
    /// Opens the sheet on `chosenNodes()` when anything is ticked: what a person means who ticks
    /// all in the scanned folder.
    Q_INVOKABLE void reviewChosen();
    Q_INVOKABLE void removeReviewed();
    Q_INVOKABLE void undoRemoval();
    Q_INVOKABLE void dismissBanner();

    // Sheets and the rest

    Q_INVOKABLE void openFailures();
    Q_INVOKABLE void closeFailures();
    Q_INVOKABLE void openPurgeable();
    Q_INVOKABLE void closePurgeable();
    /// Shows the file of that row of `purgeable` in the file manager.
    Q_INVOKABLE void revealPurgeable(int row);
    Q_INVOKABLE void setSpaceAnalysisView(const QString& view);
    Q_INVOKABLE void refreshFDA();
    Q_INVOKABLE void relaunch();
    /// Regular files that the system may reclaim, largest first.
    std::vector<FileNode> purgeableFiles(std::size_t limit) const;
    std::vector<FailureFolder> failuresByFolder() const;

    // Derived for the progress display

    std::optional<ScanProgress> activeProgress() const;
    std::optional<Date> activeStartedAt() const;
    std::optional<double> activeFraction() const;
    std::optional<Seconds> activeETA() const;
    QString activeTitle() const;

    /// Shares of a treemap of the inspected folder, else of the folder on screen; empty before a
    /// result. `treemapChanged` tells that they are others.
    std::vector<TreemapEntry> treemapEntries() const;

  Q_SIGNALS:
    void pathChanged();
    void treemapChanged();

  private:
    /// Of a scan that follows a removal or its undoing.
    static constexpr QLatin1StringView rescanOrigin{"rescan"};
    static constexpr QLatin1StringView viewKey{"spaceAnalysisView"};
    static constexpr QLatin1StringView gridView{"grid"};
    static constexpr QLatin1StringView listView{"list"};

    void apply(DiskScan::Result result);
    void abandonScan(const std::string& reason);
    void clearResult();
    void applyFolder(const DiskScan::FolderResult& result);
    void abandonFolder(const std::string& reason);
    void clearLoading();
    /// Shows another tree in the place of the current one: the path, the ticks and what is
    /// inspected are carried over.
    void replaceTree(std::shared_ptr<const ScannedTree> tree);
    /// Drops the replaced tree on a worker: that takes a while for a large one.
    void retire();

    void navigate(std::vector<FileNode> path);
    void push(const FileNode& node);
    void enterParent(const FileNode& node);
    bool isGuarded() const;
    const FileNode* find(const QString& nodeID) const;
    void inspectNode(std::optional<FileNode> node);
    void selectionChanged();

    void review(const std::vector<FileNode>& nodes);
    void removed(const std::vector<RemovalReceipt>& receipts);
    void removalFailed(const RemovalError& error);
    void restored(std::size_t restored, const std::vector<RemovalError>& failed);

    Seconds activeElapsed() const;
    Activity::State activityState() const;
    void publishStage();
    void publishFolder();
    void publishScanned(const DiskScan::Result& result);
    void log(const std::string& message) const;

    const Environment& environment_;
    ScanStatistics statistics_;
    SelectionModel selection_;
    FolderModel folder_;
    Inspector inspector_;
    Activity activity_;
    Removal removal_;
    RecordModel<FileNode> crumbs_;
    RecordModel<QuickLocation> quickPlaces_;
    RecordModel<FailureFolder> failureFolders_;
    RecordModel<FileNode> purgeable_;

    std::shared_ptr<const ScannedTree> tree_;
    std::shared_ptr<const ScannedTree> retired_;
    std::vector<FileNode> path_;
    std::optional<ScanProgress> progress_;
    std::optional<ScanProgress> folderProgress_;
    std::vector<ScanFailure> failures_;
    std::vector<std::string> excludedPrefixes_;
    std::optional<FileURL> scannedURL_;
    std::optional<FileNode> inspected_;
    std::optional<Date> scanStartedAt_;
    std::optional<Date> folderStartedAt_;
    std::optional<ScanStatistics::Expected> expected_;
    FolderCache folderCache_;
    Bytes removedSize_ = 0;
    Date navigationGuardUntil_ = std::numeric_limits<Date>::lowest();
    FolderFinder finder_;
    Job<ScanProgress, DiskScan::Result> scanJob_;
    Job<ScanProgress, DiskScan::FolderResult> folderJob_;
};

}
