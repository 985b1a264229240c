#include <HostKit/Text.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <PerformanceKit/StartupScanner.h>
#include <PerformanceKit/VolumeSampler.h>

#include <Controllers/PerformanceTexts.h>
#include <Controllers/PerformanceViewModel.h>
#include <Controllers/ShownText.h>

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvane {
namespace {

using namespace std::chrono_literals;

/// How long a tool may take before the screen says that it is waited for.
constexpr std::chrono::milliseconds usualRun = 2000ms;
constexpr std::chrono::milliseconds pauseAfterQuit = 350ms;

/// Byte for byte, unlike what is shown.
template <class Record>
QString encodedID(const Record& record) {
    return QString::fromUtf8(QByteArray::fromStdString(record.id()).toPercentEncoding());
}

QString titleOf(const FigureRow& row) {
    return row.title;
}

QString keyOf(const MaintenanceRow& row) {
    return row.key;
}

void startSingle(QTimer& timer, std::chrono::milliseconds interval) {
    timer.setSingleShot(true);
    timer.start(interval);
}

}

PerformanceViewModel::PerformanceViewModel(const Environment& environment)
    : environment_(environment)
    , service_(environment.layout, environment.files)
    , memoryParts_(PerformanceRows::figureRoles(), titleOf)
    , memoryFigures_(PerformanceRows::figureRoles(), titleOf)
    , processRows_(PerformanceRows::processRoles(), PerformanceRows::idOf)
    , agentRows_(PerformanceRows::agentRoles(), encodedID<StartupAgent>)
    , snapshotRows_(PerformanceRows::snapshotRoles(), encodedID<LocalSnapshot>)
    , maintenanceRows_(PerformanceRows::maintenanceRoles(), keyOf)
    , memoryHistory_(refreshInterval)
    , processesJob_(
          environment.workers, 0, {},
          [this](std::vector<ListedProcess> listed) { applyProcesses(std::move(listed)); },
          [this](const std::string&) { applyProcesses({}); })
    , agentsJob_(
          environment.workers, 0, {},
          [this](std::vector<StartupAgent> agents) { applyAgents(std::move(agents)); },
          [this](const std::string&) { applyAgents({}); })
    , snapshotsJob_(
          environment.workers, 0, {},
          [this](SnapshotInventory inventory) { applySnapshots(std::move(inventory)); },
          [this](const std::string&) { applySnapshots({}); })
    , maintenanceJob_(
          environment.workers, 0, {},
          [this](const MaintenanceOutcome& outcome) { maintained(outcome); },
          [this](const std::string& reason) { maintained(MaintenanceOutcome::failure(reason)); })
    , purgeJob_(
          environment.workers, 0, {}, [this](const Purged& purge) { purged(purge); },
          [this](const std::string& reason) {
              purged({MaintenanceOutcome::failure(reason), {}, memory()});
          }) {
    clock_.setInterval(refreshInterval);
    connect(&clock_, &QTimer::timeout, this, &PerformanceViewModel::tick);
    connect(&afterQuit_, &QTimer::timeout, this, &PerformanceViewModel::refreshStats);
    for (QTimer* const patience : {&processesPatience_, &snapshotsPatience_}) {
        connect(patience, &QTimer::timeout, this, &PerformanceViewModel::publishWaiting);
    }
    showMaintenance();
}

PerformanceViewModel::~PerformanceViewModel() = default;

void PerformanceViewModel::setShown(bool isShown) {
    if (isShown == clock_.isActive()) {
        return;
    }
    if (isShown) {
        clock_.start();
        refreshAll();
    } else {
        clock_.stop();
    }
    Q_EMIT isShownChanged();
}

std::vector<HeavyProcess> PerformanceViewModel::processes() const {
    std::vector<HeavyProcess> processes;
    std::transform(processRows_.records().begin(), processRows_.records().end(),
                   std::back_inserter(processes),
                   [](const ListedProcess& listed) { return listed.process; });
    return processes;
}

std::vector<StartupAgent> PerformanceViewModel::runAtLoadAgents() const {
    std::vector<StartupAgent> atOnce;
    std::copy_if(agents().begin(), agents().end(), std::back_inserter(atOnce),
                 [](const StartupAgent& agent) { return agent.runAtLoad; });
    return atOnce;
}

std::optional<HeavyProcess> PerformanceViewModel::pendingQuit() const {
    return pendingQuit_ ? std::optional(pendingQuit_->process) : std::nullopt;
}

// Sampling

void PerformanceViewModel::tick() {
    // A "ps" that hangs is no reason to stop looking at the memory, nor to start a second one.
    if (processesJob_.isRunning()) {
        sampleFigures();
    } else {
        refreshStats();
    }
}

void PerformanceViewModel::refreshStats() {
    sampleFigures();
    startProcesses();
}

void PerformanceViewModel::refreshAll() {
    refreshStats();
    startAgents();
    startSnapshots();
}

void PerformanceViewModel::sampleFigures() {
    figures_ = PerformanceSampling::figures(environment_.layout.sources);
    if (memory()) {
        memoryHistory_.add(environment_.clock(), memory()->usedFraction());
    }
    publishMemory();
    publishVolume();
}

void PerformanceViewModel::sampleVolume() {
    figures_.volume = VolumeSampler::sample(FileURL("/"), environment_.layout.sources);
    publishVolume();
}

void PerformanceViewModel::startProcesses() {
    startSingle(processesPatience_, usualRun);
    processesJob_.start([layout = environment_.layout](const auto&, const auto& isCancelled) {
        return PerformanceSampling::processes(layout, isCancelled);
    });
}

void PerformanceViewModel::startAgents() {
    agentsJob_.start([layout = environment_.layout,
                      files = environment_.files](const auto&, const auto& isCancelled) {
        return StartupScanner::scan(layout.locations.home, *files, layout.startup, isCancelled);
    });
}

void PerformanceViewModel::startSnapshots() {
    startSingle(snapshotsPatience_, usualRun);
    snapshotsJob_.start(
        [tools = environment_.layout.snapshots](const auto&, const auto& isCancelled) {
            return SnapshotScanner::scan(tools, isCancelled);
        });
}

void PerformanceViewModel::stopWaiting() {
    processesJob_.discard();
    snapshotsJob_.discard();
    knowsProcesses_ = true;
    if (!knowsSnapshots_) {
        knowsSnapshots_ = true;
        snapshotsText_ = QStringLiteral("Not known");
    }
    publishWaiting();
}

void PerformanceViewModel::applyProcesses(std::vector<ListedProcess> listed) {
    for (ListedProcess& row : listed) {
        const double total = memory() ? static_cast<double>(memory()->total) : 0;
        row.share = total > 0 ? static_cast<double>(row.process.rssBytes) / total : 0;
    }
    isUpdating_ = true;
    processRows_.update(std::move(listed));
    if (find(selectedID_) == nullptr) {
        selectedID_ = QString();
    }
    Q_EMIT processesUpdated();
    isUpdating_ = false;
    knowsProcesses_ = true;
    publishWaiting();
}

void PerformanceViewModel::applyAgents(std::vector<StartupAgent> agents) {
    agentsText_ = PerformanceTexts::agents(agents);
    agentRows_.update(std::move(agents));
    knowsAgents_ = true;
}

void PerformanceViewModel::applySnapshots(SnapshotInventory inventory) {
    inventory_ = std::move(inventory);
    snapshotsText_ = PerformanceTexts::snapshots(inventory_);
    snapshotRows_.update(inventory_.all());
    knowsSnapshots_ = true;
    publishWaiting();
}

void PerformanceViewModel::publishMemory() {
    memoryParts_.update(PerformanceRows::memoryParts(memory()));
    memoryFigures_.update(PerformanceRows::memoryFigures(memory()));
    memoryText_ = memory() ? PerformanceTexts::used(*memory()) : QString();
    history_ = memoryHistory_.fractions();
    historyText_ = PerformanceTexts::history(memoryHistory_);
    hasMemory_ = memory().has_value();
}

void PerformanceViewModel::publishVolume() {
    hasVolume_ = volume().has_value();
    volumeName_ = volume() ? shownText(volume()->name) : QString();
    volumeText_ = volume() ? PerformanceTexts::available(*volume()) : QString();
    volumeNote_ = volume() ? PerformanceTexts::availableNote(*volume()) : QString();
    volumeUsed_ = volume() ? volume()->usedFraction() : 0;
}

void PerformanceViewModel::publishWaiting() {
    waitingText_ = processesJob_.isRunning() && !processesPatience_.isActive()
                       ? QStringLiteral("ps has not answered yet; still waiting")
                   : snapshotsJob_.isRunning() && !snapshotsPatience_.isActive()
                       ? QStringLiteral("The list of snapshots has not come yet; still waiting")
                       : QString();
}

// Rows

const ListedProcess* PerformanceViewModel::find(const QString& id) const {
    return processRows_.record(rowOf(id));
}

void PerformanceViewModel::select(const QString& id) {
    if (!isUpdating_) {
        selectedID_ = find(id) != nullptr ? id : QString();
    }
}

QString PerformanceViewModel::processAt(int row) const {
    const ListedProcess* const process = processRows_.record(row);
    return process == nullptr ? QString() : PerformanceRows::idOf(*process);
}

int PerformanceViewModel::rowOf(const QString& id) const {
    const std::vector<ListedProcess>& rows = processRows_.records();
    const auto found = std::find_if(rows.begin(), rows.end(), [&id](const ListedProcess& row) {
        return PerformanceRows::idOf(row) == id;
    });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

// Quitting

void PerformanceViewModel::quit(const ListedProcess& listed) {
    const std::int32_t pid = listed.process.pid;
    // What had ended before its start could be told is gone: only the first process starts at 0.
    const MaintenanceOutcome outcome =
        service_.terminate(pid, static_cast<std::int32_t>(QCoreApplication::applicationPid()),
                           listed.startTime.value_or(StartTime{0}));
    banner_ = shownText(outcome.message);
    log("performance terminate pid=" + std::to_string(pid) + " result=" + outcome.message);
    startSingle(afterQuit_, pauseAfterQuit);
}

void PerformanceViewModel::askToQuit(const QString& id) {
    const ListedProcess* const listed = find(id);
    pendingQuit_ = listed != nullptr ? std::optional(*listed) : std::nullopt;
    pendingQuitText_ =
        listed != nullptr ? PerformanceTexts::quitQuestion(listed->process) : QString();
}

void PerformanceViewModel::dismissQuit() {
    askToQuit({});
}

void PerformanceViewModel::quitPending() {
    if (const std::optional<ListedProcess> listed = pendingQuit_) {
        dismissQuit();
        quit(*listed);
    }
}

void PerformanceViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
