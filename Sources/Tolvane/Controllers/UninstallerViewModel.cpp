#include <HostKit/Text.h>

#include <Controllers/ScanRoles.h>
#include <Controllers/ShownText.h>
#include <Controllers/UninstallerTexts.h>
#include <Controllers/UninstallerViewModel.h>
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tolvane {
namespace {

constexpr Seconds reportInterval = 0.1;
constexpr QLatin1StringView autoSelectKey("autoSelectFirstApp");

/// -1 when there is none.
int rowOfApp(const std::vector<AppRow>& rows, const std::string& id) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&id](const AppRow& row) { return row.app().id() == id; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

/// Icons and sizes stay until they are known anew.
void takeOver(std::vector<AppRow>& rows, const std::vector<AppRow>& before) {
    std::unordered_map<std::string_view, const AppRow*> known;
    for (const AppRow& row : before) {
        known.emplace(row.app().id(), &row);
    }
    for (AppRow& row : rows) {
        if (const auto found = known.find(row.app().id()); found != known.end()) {
            row.iconKey = found->second->iconKey;
            row.size = found->second->size;
        }
    }
}

std::vector<InstalledApp> appsOf(const std::vector<AppRow>& rows) {
    std::vector<InstalledApp> apps;
    apps.reserve(rows.size());
    std::transform(rows.begin(), rows.end(), std::back_inserter(apps),
                   [](const AppRow& row) { return row.app(); });
    return apps;
}

}

UninstallerViewModel::UninstallerViewModel(const Environment& environment)
    : lookedInText_(UninstallerTexts::lookedIn(environment.layout.applications.folders))
    , leftOutText_(shownText(environment.layout.applications.leftOut))
    , environment_(environment)
    , installed_(std::make_shared<const std::vector<InstalledApp>>())
    , rows_(AppRows::roles(), [](const AppRow& row) { return AppRows::idOf(row.app()); })
    , failureFolders_(ScanRoles::failureFolders())
    , detail_(environment, [this] { detailFound(); })
    , activity_([this] { return activityState(); })
    , removal_(environment,
               {.onRemoved = [this](const auto& receipts) { removed(receipts); },
                .onFailed = [this](const RemovalError& error) { removalFailed(error); },
                .onRestored = [this](std::size_t count,
                                     const auto& failed) { restored(count, failed); }})
    , loadJob_(
          environment.workers, reportInterval,
          [this](std::int64_t read) {
              readBundles_ = read;
              activity_.refresh();
          },
          [this](UninstallerScan::Inventory inventory) { apply(std::move(inventory)); },
          [this](const std::string& reason) { abandonLoad(reason); })
    , iconJob_(environment.workers, 0, {},
               [this](UninstallerScan::Icons icons) { showIcons(std::move(icons)); }) {
    connect(&removal_, &Removal::isRemovingChanged, this,
            [this] { isWorking_ = removal_.isRemoving(); });
    connect(&removal_, &Removal::showReviewChanged, this, &UninstallerViewModel::reviewClosed);
}

UninstallerViewModel::~UninstallerViewModel() = default;

// The list

void UninstallerViewModel::appeared() {
    if (!hasLoaded_) {
        load();
    }
}

void UninstallerViewModel::load() {
    if (!isLoading_ && !isWorking_) {
        startLoad();
    }
}

void UninstallerViewModel::startLoad() {
    isLoading_ = true;
    readBundles_ = 0;
    loadStartedAt_ = environment_.clock();
    loadJob_.start([layout = environment_.layout,
                    files = environment_.files](const Report<std::int64_t>& report,
                                                const std::function<bool()>& isCancelled) {
        return UninstallerScan::inventory(layout, files, report, isCancelled);
    });
    stage_ = hasLoaded_ ? Ui::Stage::Result : Ui::Stage::Working;
    activity_.setRunning(true);
}

void UninstallerViewModel::stopLoading() {
    if (isLoading_) {
        loadJob_.discard();
        endLoad();
    }
}

void UninstallerViewModel::refresh() {
    load();
    if (selected()) {
        select(*selected());
    }
}

void UninstallerViewModel::apply(UninstallerScan::Inventory inventory) {
    takeOver(inventory.rows, apps_);
    apps_ = std::move(inventory.rows);
    const bool areOthers = *installed_ != *inventory.installed;
    installed_ = std::move(inventory.installed);
    failuresText_ = unreadFoldersText(inventory.failures);
    failureFolders_.reset(failuresByFolder(inventory.failures));
    hasLoaded_ = true;
    endLoad();
    showRows();
    iconJob_.start([layout = environment_.layout, files = environment_.files,
                    apps = apps_](const auto&, const std::function<bool()>& isCancelled) {
        return UninstallerScan::icons(layout, *files, apps, isCancelled);
    });
    if (areOthers && selected()) {
        // Whose its leftovers may be too was asked of the applications known until now.
        select(*selected());
    }
    if (environment_.defaults.flag(autoSelectKey) && !selected() && !apps_.empty()) {
        select(apps_.front().app());
    }
    log(fmt::format("uninstaller inventory apps={}", apps_.size()));
}

void UninstallerViewModel::abandonLoad(const std::string& reason) {
    banner_ = QStringLiteral("The applications could not be listed: ") + shownText(reason);
    log("uninstaller inventory failed: " + reason);
    endLoad();
}

void UninstallerViewModel::endLoad() {
    isLoading_ = false;
    stage_ = hasLoaded_ ? Ui::Stage::Result : Ui::Stage::Start;
    activity_.setRunning(false);
}

void UninstallerViewModel::showIcons(UninstallerScan::Icons icons) {
    for (AppRow& row : apps_) {
        row.iconKey = icons[row.app().id()];
    }
    if (selected()) {
        detail_.setIconKey(icons[selected()->id()]);
    }
    showRows();
}

void UninstallerViewModel::setQuery(const QString& text) {
    query_ = text;
    showRows();
}

void UninstallerViewModel::showRows() {
    const std::string needle = lowercased(query_.value().toStdString());
    std::vector<AppRow> rows;
    std::copy_if(apps_.begin(), apps_.end(), std::back_inserter(rows),
                 [&needle](const AppRow& row) { return row.matches(needle); });
    countText_ = UninstallerTexts::count(rows.size(), apps_.size());
    emptyText_ = rows.empty() && hasLoaded_ ? UninstallerTexts::whyEmpty(apps_.size()) : QString();
    isUpdating_ = true;
    rows_.update(std::move(rows));
    Q_EMIT rowsUpdated();
    isUpdating_ = false;
}

std::vector<InstalledApp> UninstallerViewModel::apps() const {
    return appsOf(apps_);
}

std::vector<InstalledApp> UninstallerViewModel::filteredApps() const {
    return appsOf(rows_.records());
}

QString UninstallerViewModel::idAt(int row) const {
    const AppRow* const found = rows_.record(row);
    return found == nullptr ? QString() : AppRows::idOf(found->app());
}

int UninstallerViewModel::selectedRow() const {
    return selected() ? rowOfApp(rows_.records(), selected()->id()) : -1;
}

const AppRow* UninstallerViewModel::find(const std::string& id) const {
    const int row = rowOfApp(apps_, id);
    return row < 0 ? nullptr : &apps_[static_cast<std::size_t>(row)];
}

Activity::State UninstallerViewModel::activityState() const {
    return {.title = QStringLiteral("Looking for applications"),
            .countsText = UninstallerTexts::progress(readBundles_),
            .elapsed = isLoading_ ? environment_.clock() - loadStartedAt_ : 0};
}

void UninstallerViewModel::openFailures() {
    showFailures_ = true;
}

void UninstallerViewModel::closeFailures() {
    showFailures_ = false;
}

// The selection

void UninstallerViewModel::select(const InstalledApp& app) {
    if (isWorking_) {
        return;
    }
    isDetailStale_ = false;
    removal_.closeReview();
    const AppRow* const row = find(app.id());
    detail_.show(app, installed_, row == nullptr ? QString() : row->iconKey);
}

void UninstallerViewModel::select(const QString& id) {
    const AppRow* const row = find(AppRows::identifier(id));
    if (!isUpdating_ && row != nullptr && !(selected() && selected()->id() == row->app().id())) {
        select(row->app());
    }
}

void UninstallerViewModel::clearSelection() {
    if (!isWorking_) {
        isDetailStale_ = false;
        removal_.closeReview();
        detail_.clear();
    }
}

void UninstallerViewModel::detailFound() {
    const InstalledApp& app = *selected();
    if (const int row = rowOfApp(apps_, app.id()); row >= 0) {
        apps_[static_cast<std::size_t>(row)].size = appSize();
        showRows();
    }
    log(fmt::format("uninstaller detail app={} size={} leftovers={}", app.bundleID, appSize(),
                    leftovers().size()));
}

void UninstallerViewModel::dismissBanner() {
    banner_ = QString();
}

void UninstallerViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
