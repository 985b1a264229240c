#include <HostKit/Text.h>
#include <Services/ByteFormat.h>

#include <Controllers/DuplicatesTexts.h>
#include <Controllers/DuplicatesViewModel.h>
#include <Controllers/ScanRoles.h>
#include <Controllers/ScanTexts.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QPointer>
#include <algorithm>
#include <limits>
#include <utility>

namespace tolvane {
namespace {

constexpr Seconds reportInterval = 0.1;
constexpr QLatin1StringView rootPathKey("duplicatesRootPath");
constexpr QLatin1StringView autoRunKey("autoRunDuplicates");

/// The places where copies gather.
std::vector<QuickLocation> quickRoots(const HostLayout& layout) {
    std::vector<QuickLocation> places = quickLocations(layout);
    std::erase_if(places, [&](const QuickLocation& place) {
        return place.url != layout.locations.home && place.url != layout.locations.downloads;
    });
    return places;
}

}

DuplicatesViewModel::DuplicatesViewModel(const Environment& environment)
    : environment_(environment)
    , root_(environment.defaults.path(rootPathKey).value_or(environment.layout.locations.downloads))
    , rows_(selection_)
    , activity_([this] { return activityState(); })
    , removal_(environment,
               {.onRemoved = [this](const auto& receipts) { removed(receipts); },
                .onFailed = [this](const RemovalError& error) { removalFailed(error); },
                .onRestored = [this](std::size_t count,
                                     const auto& failed) { restored(count, failed); }})
    , quickPlaces_(ScanRoles::quickPlaces(environment.files))
    , failureFolders_(ScanRoles::failureFolders())
    , finder_(environment, {.onFound = [this](const FileURL& folder) { scanRoot(folder); },
                            .onNone = [this](const QString& text) { banner_ = text; }})
    , scanJob_(
          environment.workers, reportInterval,
          [this](std::int64_t count) {
              checkedFiles_ =
                  static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
              activity_.refresh();
          },
          [this](DuplicateScan::Result result) { apply(std::move(result)); },
          [this](const std::string& reason) { abandonScan(reason); }) {
    connect(&removal_, &Removal::isRemovingChanged, this,
            [this] { isWorking_ = removal_.isRemoving(); });
    quickPlaces_.reset(quickRoots(environment.layout));
    setMinimumSize(usualMinimumSize);
    publishRoot();
}

DuplicatesViewModel::~DuplicatesViewModel() = default;

// Scanning

void DuplicatesViewModel::appeared() {
    publishRoot();
    if (environment_.defaults.flag(autoRunKey) && !index_ && !scanJob_.isRunning()) {
        scan();
    }
}

void DuplicatesViewModel::chooseRoot() {
    environment_.workspace.chooseFolder(QStringLiteral("Choose a folder to look for duplicates in"),
                                        root_, [self = QPointer(this)](const FileURL& chosen) {
                                            if (self) {
                                                self->scanRoot(chosen);
                                            }
                                        });
}

void DuplicatesViewModel::scanRoot(const FileURL& root) {
    if (isWorking_) {
        return;
    }
    root_ = root;
    publishRoot();
    scan();
}

void DuplicatesViewModel::scan() {
    // What moves files looks through the root afterwards.
    if (!isWorking_) {
        banner_ = QString();
        removal_.closeReview();
        startScan();
    }
}

void DuplicatesViewModel::startScan() {
    finder_.discard();
    cancel();
    isScanning_ = true;
    clearResult();
    scanStartedAt_ = environment_.clock();
    log(fmt::format("duplicates scan start root={} min={}", root_.path(), minimumSize_));
    scanJob_.start([layout = environment_.layout, files = environment_.files, root = root_,
                    minimumSize = minimumSize_](const Report<std::int64_t>& report,
                                                const std::function<bool()>& isCancelled) {
        return DuplicateScan::scan(layout, files, root, minimumSize, report, isCancelled);
    });
    publishStage();
}

void DuplicatesViewModel::cancel() {
    scanJob_.cancel();
    isScanning_ = false;
    publishStage();
}

void DuplicatesViewModel::cancelActivity() {
    if (isScanning_) {
        cancel();
    } else {
        // The scan was asked to stop and has not come back: something below the root hangs.
        scanJob_.discard();
        publishStage();
    }
}

void DuplicatesViewModel::scanDropped(const QList<QUrl>& urls) {
    finder_.find(urls, QStringLiteral("Only folders of this computer can be looked through."));
}

void DuplicatesViewModel::scanPath(const QString& text) {
    std::string path = text.trimmed().toStdString();
    if (path == "~" || path.starts_with("~/")) {
        path.replace(0, 1, environment_.layout.locations.home.path());
    }
    const bool isPath = path.starts_with('/') && path.find('\0') == std::string::npos;
    const std::optional<FileURL> place =
        isPath ? std::optional(environment_.layout.underHome(FileURL(path).standardized()))
               : fileURL(QUrl(text.trimmed()));
    finder_.find(place ? std::vector{*place} : std::vector<FileURL>(),
                 QStringLiteral("There is no such folder: ") + shownText(path));
}

void DuplicatesViewModel::scanQuickPlace(int row) {
    if (const QuickLocation* const place = quickPlaces_.record(row)) {
        scanRoot(place->url);
    }
}

bool DuplicatesViewModel::setMinimumSize(const QString& text) {
    const Result<Bytes, std::string> size = ByteFormat::parse(text.toStdString());
    if (size) {
        setMinimumSize(*size);
    } else {
        minimumSizeError_ = shownText(size.error());
    }
    return size.has_value();
}

void DuplicatesViewModel::setMinimumSize(Bytes size) {
    minimumSize_ = size;
    minimumSizeText_ = shownText(ByteFormat::exactText(size));
    minimumSizeError_ = QString();
}

void DuplicatesViewModel::apply(DuplicateScan::Result result) {
    isPartial_ = result.isCancelled;
    publishResult(result);
    replaceIndex(std::move(result.index));
    isScanning_ = false;
    const DuplicateScanResult& found = index_->result();
    log(fmt::format("duplicates done groups={} wasted={} files={} errors={}", found.groups.size(),
                    found.wastedBytes(), found.scannedFiles, found.errors.size()));
    publishStage();
}

void DuplicatesViewModel::abandonScan(const std::string& reason) {
    isScanning_ = false;
    banner_ = QStringLiteral("The scan failed: ") + shownText(reason);
    log("duplicates scan failed: " + reason);
    publishStage();
}

void DuplicatesViewModel::clearResult() {
    checkedFiles_ = 0;
    isPartial_ = false;
    showFailures_ = false;
    replaceIndex(nullptr);
    summaryText_ = QString();
    checkedText_ = QString();
    elapsedText_ = QString();
    leftOutText_ = QString();
    failuresText_ = QString();
    emptyText_ = QString();
    failureFolders_.reset({});
}

void DuplicatesViewModel::replaceIndex(std::shared_ptr<const DuplicateIndex> index) {
    std::shared_ptr<const DuplicateIndex> before = std::exchange(index_, std::move(index));
    selection_.load(index_);
    rows_.show(index_);
    hasGroups_ = rows_.rowCount() > 0;
    ticksChanged(std::nullopt);
    if (before) {
        environment_.workers.run([before = std::move(before)]() mutable { before.reset(); });
    }
}

// Sheets

void DuplicatesViewModel::openFailures() {
    if (index_) {
        failureFolders_.reset(failuresByFolder(index_->result().errors));
        showFailures_ = true;
    }
}

void DuplicatesViewModel::closeFailures() {
    showFailures_ = false;
}

// Derived

std::vector<DuplicateGroup> DuplicatesViewModel::groups() const {
    return index_ ? index_->groups() : std::vector<DuplicateGroup>();
}

std::vector<DuplicateFile> DuplicatesViewModel::selectedFiles() const {
    std::vector<DuplicateFile> files;
    for (const DuplicateIndex::Position position : selection_.selected()) {
        files.push_back(index_->file(position));
    }
    return files;
}

std::set<std::string> DuplicatesViewModel::selectedPaths() const {
    std::set<std::string> paths;
    for (const DuplicateFile& file : selectedFiles()) {
        paths.insert(file.id());
    }
    return paths;
}

Activity::State DuplicatesViewModel::activityState() const {
    const QString name = rootName_;
    return {.title = isScanning_ ? QStringLiteral("Looking for duplicates in ") + name
                                 : QStringLiteral("Stopping"),
            .countsText = DuplicatesTexts::progress(checkedFiles_),
            .elapsed = scanStartedAt_ ? environment_.clock() - *scanStartedAt_ : 0};
}

void DuplicatesViewModel::publishRoot() {
    rootPath_ = shownPath(root_);
    rootName_ = ScanTexts::name(root_);
    // A folder that was chosen may lie where nothing answers; that shows when it is scanned.
    isRootOffered_ =
        root_ != environment_.layout.locations.downloads || environment_.files->exists(root_);
    lockedText_ = DuplicatesTexts::locked(root_);
}

void DuplicatesViewModel::publishStage() {
    const bool isRunning = scanJob_.isRunning();
    const Ui::Stage settled = index_ ? Ui::Stage::Result : Ui::Stage::Start;
    stage_ = isRunning ? Ui::Stage::Working : settled;
    activity_.setRunning(isRunning);
}

void DuplicatesViewModel::publishResult(const DuplicateScan::Result& result) {
    summaryText_ = DuplicatesTexts::summary(*result.index);
    checkedText_ = DuplicatesTexts::checked(result.index->result());
    elapsedText_ = DuplicatesTexts::elapsed(result);
    leftOutText_ = DuplicatesTexts::leftOut(result);
    failuresText_ = unreadFoldersText(result.index->result().errors);
    emptyText_ = DuplicatesTexts::whyEmpty(result);
}

void DuplicatesViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
