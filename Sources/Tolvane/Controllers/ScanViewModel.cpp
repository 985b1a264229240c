#include <HostKit/Text.h>

#include <Controllers/ScanEstimate.h>
#include <Controllers/ScanRoles.h>
#include <Controllers/ScanTexts.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QPointer>
#include <utility>

namespace tolvane {
namespace {

constexpr Seconds scanReportInterval = 0.1;
constexpr Seconds folderReportInterval = 0.12;
constexpr QLatin1StringView lastScanPathKey("lastScanPath");

}

ScanViewModel::ScanViewModel(const Environment& environment)
    : environment_(environment)
    , statistics_(environment.defaults)
    , folder_(selection_)
    , inspector_(environment)
    , activity_([this] { return activityState(); })
    , removal_(environment,
               {.onRemoved = [this](const auto& receipts) { removed(receipts); },
                .onFailed = [this](const RemovalError& error) { removalFailed(error); },
                .onRestored = [this](std::size_t count,
                                     const auto& failed) { restored(count, failed); }})
    , crumbs_(ScanRoles::crumb(), ScanRoles::nodeID)
    , quickPlaces_(ScanRoles::quickPlaces(environment.files))
    , failureFolders_(ScanRoles::failureFolders())
    , purgeable_(ScanRoles::purgeableFile(), ScanRoles::nodeID)
    , finder_(environment,
              {.onFound = [this](const FileURL& folder) { scan(folder, QStringLiteral("drop")); },
               .onNone = [this](const QString& text) { banner_ = text; }})
    , scanJob_(
          environment.workers, scanReportInterval,
          [this](const ScanProgress& progress) {
              progress_ = progress;
              activity_.refresh();
          },
          [this](DiskScan::Result result) { apply(std::move(result)); },
          [this](const std::string& reason) { abandonScan(reason); })
    , folderJob_(
          environment.workers, folderReportInterval,
          [this](const ScanProgress& progress) {
              folderProgress_ = progress;
              activity_.refresh();
          },
          [this](const DiskScan::FolderResult& result) { applyFolder(result); },
          [this](const std::string& reason) { abandonFolder(reason); }) {
    quickPlaces_.reset(quickLocations(environment.layout));
    const std::optional<FileURL> last = environment.defaults.path(lastScanPathKey);
    lastScanPath_ = last ? shownPath(*last) : QString();
    const std::optional<QString> view = environment.defaults.text(viewKey);
    spaceAnalysisView_ = view == listView ? QString(listView) : QString(gridView);
}

ScanViewModel::~ScanViewModel() = default;

// Scanning

void ScanViewModel::scan(const FileURL& url, const QString& origin) {
    finder_.discard();
    cancel();
    clearResult();
    if (origin != rescanOrigin) {
        banner_ = QString();
    }
    scannedURL_ = url;
    scannedPath_ = shownPath(url);
    scannedName_ = ScanTexts::name(url);
    lockedText_ = ScanTexts::locked(url);
    isScanning_ = true;
    scanStartedAt_ = environment_.clock();
    expected_ = statistics_.expected(url);
    environment_.access.refresh();
    environment_.defaults.setPath(lastScanPathKey, url);
    lastScanPath_ = shownPath(url);
    log("scan start path=" + url.path() + " origin=" + origin.toStdString());
    scanJob_.start(
        [layout = environment_.layout, files = environment_.files,
         url](const Report<ScanProgress>& report, const std::function<bool()>& isCancelled) {
            return DiskScan::scan(layout, files, url, report, isCancelled);
        });
    publishStage();
}

void ScanViewModel::cancel() {
    if (isScanning_) {
        log("scan cancel requested");
        scanJob_.cancel();
    }
    isScanning_ = false;
    publishStage();
}

void ScanViewModel::apply(DiskScan::Result result) {
    tree_ = std::move(result.tree);
    const FileNode& root = tree_->root();
    failures_ = std::move(result.failures);
    excludedPrefixes_ = std::move(result.excludedPrefixes);
    elapsed_ = result.seconds;
    isPartial_ = result.isCancelled;
    isScanning_ = false;
    progress_.reset();
    statistics_.save(root.url(), {result.totals.fileCount, result.totals.totalAllocatedSize});
    selection_.load(tree_);
    folderCache_.clear();
    folderJob_.discard();
    clearLoading();
    publishScanned(result);
    navigate({root});
    selectionChanged();
    log(fmt::format("scan done path={} total={} children={} files={} listedFiles={} dirs={} "
                    "errors={} seconds={:.2f} cancelled={}",
                    root.url().path(), result.totals.totalAllocatedSize, root.children().size(),
                    result.totals.fileCount, result.totals.listedFileCount,
                    result.totals.directoryCount, failures_.size(), result.seconds,
                    result.isCancelled));
    if (!result.isCancelled && result.totals.notListedFileCount() >= 1 &&
        result.totals.fileCount <= automaticDetailLimit) {
        loadFolder(root);
    }
    publishStage();
}

void ScanViewModel::abandonScan(const std::string& reason) {
    isScanning_ = false;
    progress_.reset();
    banner_ = QStringLiteral("The scan failed: ") + shownText(reason);
    log("scan failed: " + reason);
    publishStage();
}

void ScanViewModel::scanAgain() {
    if (scannedURL_) {
        scan(FileURL(*scannedURL_), QStringLiteral("scan again"));
    }
}

void ScanViewModel::scanLast() {
    if (const std::optional<FileURL> last = environment_.defaults.path(lastScanPathKey)) {
        scan(*last, QStringLiteral("last scan"));
    }
}

void ScanViewModel::scanQuickPlace(int row) {
    if (const QuickLocation* const place = quickPlaces_.record(row)) {
        scan(place->url, QStringLiteral("quick location"));
    }
}

void ScanViewModel::scanFolderOnScreen() {
    if (!path_.empty()) {
        scan(path_.back().url(), QStringLiteral("folder on screen"));
    }
}

void ScanViewModel::chooseFolder() {
    const FileURL start = scannedURL_.value_or(environment_.layout.locations.home);
    environment_.workspace.chooseFolder(QStringLiteral("Choose a folder to measure"), start,
                                        [self = QPointer(this)](const FileURL& chosen) {
                                            if (self) {
                                                self->scan(chosen,
                                                           QStringLiteral("folder chooser"));
                                            }
                                        });
}

void ScanViewModel::scanDropped(const QList<QUrl>& urls) {
    finder_.find(urls, QStringLiteral("Only folders of this computer can be measured."));
}

void ScanViewModel::cancelActivity() {
    if (isLoadingFolder_) {
        cancelFolderLoad();
    } else if (isScanning_) {
        cancel();
    } else {
        // The scan was asked to stop and has not come back: something below it hangs.
        scanJob_.discard();
        publishStage();
    }
}

void ScanViewModel::clearResult() {
    folderJob_.discard();
    clearLoading();
    selection_.load(std::shared_ptr<const ScannedTree>());
    folderCache_.clear();
    failures_.clear();
    progress_.reset();
    retired_ = std::exchange(tree_, nullptr);
    navigate({});
    selectionChanged();
    failuresText_ = QString();
    purgeableText_ = QString();
    notCountedText_ = QString();
    elapsedText_ = QString();
    isPartial_ = false;
    showFailures_ = false;
    showPurgeable_ = false;
    failureFolders_.reset({});
    purgeable_.reset({});
    retire();
}

void ScanViewModel::retire() {
    if (retired_) {
        environment_.workers.run(
            [tree = std::exchange(retired_, nullptr)]() mutable { tree.reset(); });
    }
}

// Derived

std::optional<ScanProgress> ScanViewModel::activeProgress() const {
    return isLoadingFolder_ ? folderProgress_ : progress_;
}

std::optional<Date> ScanViewModel::activeStartedAt() const {
    return isLoadingFolder_ ? folderStartedAt_ : scanStartedAt_;
}

std::optional<double> ScanViewModel::activeFraction() const {
    return ScanEstimate::fraction(expected_, activeProgress());
}

std::optional<Seconds> ScanViewModel::activeETA() const {
    return ScanEstimate::remaining(activeFraction(), activeElapsed());
}

Seconds ScanViewModel::activeElapsed() const {
    const std::optional<Date> start = activeStartedAt();
    return start ? environment_.clock() - *start : 0;
}

QString ScanViewModel::activeTitle() const {
    if (isLoadingFolder_) {
        return QStringLiteral("Loading ") + (loadingFolderName_.value().isEmpty()
                                                 ? QStringLiteral("folder")
                                                 : loadingFolderName_.value());
    }
    return QStringLiteral("Scanning ") +
           (scannedURL_ ? ScanTexts::name(*scannedURL_) : QStringLiteral("folder"));
}

Activity::State ScanViewModel::activityState() const {
    const bool isStopping = !isLoadingFolder_ && !isScanning_;
    const std::optional<ScanProgress> progress = activeProgress();
    return {.title = isStopping ? QStringLiteral("Stopping") : activeTitle(),
            .pathText = progress ? shownText(progress->currentPath) : QString(),
            .countsText = progress ? ScanTexts::progress(*progress) : QString(),
            .elapsed = activeElapsed(),
            .fraction = activeFraction(),
            .remaining = activeETA()};
}

void ScanViewModel::publishStage() {
    const bool isWorking = scanJob_.isRunning();
    const Ui::Stage settled = path_.empty() ? Ui::Stage::Start : Ui::Stage::Result;
    stage_ = isWorking ? Ui::Stage::Working : settled;
    activity_.setRunning(isWorking || isLoadingFolder_);
}

void ScanViewModel::publishFolder() {
    folderText_ = path_.empty() ? QString() : ScanTexts::contents(totals(path_.back()));
    emptyText_ = !path_.empty() && folder_.isEmpty()
                     ? ScanTexts::whyEmpty(path_.back().url(), failures_)
                     : QString();
}

void ScanViewModel::publishScanned(const DiskScan::Result& result) {
    elapsedText_ = ScanTexts::elapsed(result);
    failuresText_ = ScanTexts::failures(failures_);
    purgeableText_ = ScanTexts::purgeable(result.totals);
    notCountedText_ = ScanTexts::notCounted(result.notEntered);
}

void ScanViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
