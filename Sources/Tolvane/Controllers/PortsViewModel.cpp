#include <HostKit/Text.h>
#include <Services/CountFormat.h>
#include <Services/PortTexts.h>
#include <Services/PortsFilter.h>

#include <Controllers/PortRows.h>
#include <Controllers/PortsViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QCoreApplication>
#include <algorithm>
#include <set>
#include <utility>

namespace tolvane {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds pauseAfterKill = 350ms;
constexpr std::chrono::milliseconds pauseAfterKillAll = 500ms;
/// How long lsof or ps may take before the screen says that it is waited for.
constexpr std::chrono::milliseconds usualScan = 2000ms;

std::int32_t ownPID() {
    return static_cast<std::int32_t>(QCoreApplication::applicationPid());
}

PortKillSignal signalOf(bool force) {
    return force ? PortKillSignal::force : PortKillSignal::terminate;
}

std::set<std::int32_t> distinctPIDs(const std::vector<PortListener>& listeners) {
    std::set<std::int32_t> pids;
    for (const PortListener& listener : listeners) {
        pids.insert(listener.pid);
    }
    return pids;
}

/// Only the very process that was listed: what had ended before its start could be told is gone.
Result<void, PortKillError> signal(const PortKillerService& killer, const PortListener& listener,
                                   PortKillSignal signal, bool includeChildren,
                                   std::optional<StartTime> startTime,
                                   const std::function<bool()>& isCancelled) {
    return startTime
               ? killer.kill(listener, signal, includeChildren, ownPID(), startTime, isCancelled)
               : tl::unexpected(PortKillError::processGone(listener.pid));
}

std::optional<StartTime> startTimeOf(const PortListener& listener, const StartTimes& times) {
    const auto found = times.find(listener.pid);
    return found == times.end() ? std::nullopt : std::optional(found->second);
}

}

PortsViewModel::PortsViewModel(const Environment& environment)
    : autoRefresh_(true)
    , sortKey_(Ui::PortKey::Port)
    , environment_(environment)
    , killer_(environment.layout.tools, environment.layout.sources)
    , rows_(PortRows::roles(), PortRows::idOf)
    , scanJob_(
          environment.workers, 0, {},
          [this](PortsScan::Outcome outcome) { apply(std::move(outcome)); },
          [this](const std::string& reason) { scanFailed(reason); })
    , killJob_(
          environment.workers, 0, {}, [this](const Killed& outcome) { killed(outcome); },
          [this](const std::string& reason) { signallingBroke(reason); })
    , killAllJob_(
          environment.workers, 0, {},
          [this](KilledAll outcome) { killedAll(outcome, killsAllByForce_); },
          [this](const std::string& reason) { signallingBroke(reason); }) {
    clock_.setInterval(refreshInterval);
    connect(&clock_, &QTimer::timeout, this, &PortsViewModel::tick);
    patience_.setSingleShot(true);
    patience_.setInterval(usualScan);
    connect(&patience_, &QTimer::timeout, this, &PortsViewModel::publishWaiting);
    afterSignals_.setSingleShot(true);
    connect(&afterSignals_, &QTimer::timeout, this, &PortsViewModel::refresh);
    signalPatience_.setSingleShot(true);
    signalPatience_.setInterval(usualScan);
    connect(&signalPatience_, &QTimer::timeout, this, &PortsViewModel::publishWaiting);
    showRows();
}

PortsViewModel::~PortsViewModel() = default;

void PortsViewModel::setShown(bool isShown) {
    if (isShown == clock_.isActive()) {
        return;
    }
    if (isShown) {
        clock_.start();
        if (listeners_.empty()) {
            refresh();
        }
    } else {
        clock_.stop();
    }
    Q_EMIT isShownChanged();
}

std::vector<PortListener> PortsViewModel::filtered() const {
    return PortsFilter(query_.value().toStdString()).filtered(listeners_);
}

std::optional<PortListener> PortsViewModel::selected() const {
    return find(selectedID_);
}

// Scanning

void PortsViewModel::tick() {
    if (autoRefresh_ && !isScanning_) {
        refresh();
    }
}

void PortsViewModel::refresh() {
    if (isScanning_) {
        return;
    }
    isScanning_ = true;
    patience_.start();
    scanJob_.start([layout = environment_.layout](const auto&, const auto& isCancelled) {
        return PortsScan::run(layout, isCancelled);
    });
}

void PortsViewModel::stopWaiting() {
    if (isScanning_) {
        scanJob_.discard();
        endScan();
    }
    if (isSignalling_) {
        killJob_.discard();
        killAllJob_.discard();
        endSignalling();
    }
}

void PortsViewModel::publishWaiting() {
    waitingText_ = isScanning_ && !patience_.isActive()
                       ? QStringLiteral("lsof has not answered yet; still waiting")
                   : isSignalling_ && !signalPatience_.isActive()
                       ? QStringLiteral("ps has not answered yet; still waiting")
                       : QString();
}

void PortsViewModel::apply(PortsScan::Outcome outcome) {
    if (!outcome) {
        scanFailed(outcome.error().description());
        return;
    }
    listeners_ = std::move(outcome->listeners);
    startTimes_ = std::move(outcome->startTimes);
    unseenText_ = shownText(PortTexts::notShown(outcome->unseenSockets, Processes::sight()));
    hasResult_ = true;
    isScanning_ = false;
    if (!selected()) {
        selectedID_ = QString();
    }
    endScan();
}

void PortsViewModel::scanFailed(const std::string& description) {
    banner_ = shownLines(description);
    log("ports scan failed: " + description);
    endScan();
}

void PortsViewModel::endScan() {
    patience_.stop();
    isScanning_ = false;
    publishWaiting();
    showRows();
}

void PortsViewModel::setAutoRefresh(bool isOn) {
    autoRefresh_ = isOn;
}

void PortsViewModel::setQuery(const QString& text) {
    query_ = text;
    showRows();
}

void PortsViewModel::sortBy(Ui::PortKey key) {
    isDescending_ = key == sortKey_.value() && !isDescending_;
    sortKey_ = key;
    showRows();
}

void PortsViewModel::showRows() {
    std::vector<PortListener> rows = filtered();
    PortRows::sort(rows, sortKey_, isDescending_);
    const auto shown = static_cast<std::int64_t>(rows.size());
    const auto all = static_cast<std::int64_t>(listeners_.size());
    isUpdating_ = true;
    rows_.update(std::move(rows), RecordModel<PortListener>::Replacement::change);
    Q_EMIT rowsUpdated();
    isUpdating_ = false;
    hasListeners_ = all > 0;
    const std::string count = CountFormat::counted(all, "listener");
    countText_ = shownText(shown == all ? count : CountFormat::grouped(shown) + " of " + count);
    emptyText_ = shown > 0     ? QString()
                 : !hasResult_ ? QStringLiteral("The listeners are not known yet")
                 : all == 0    ? QStringLiteral("No process listens on a TCP port")
                               : QStringLiteral("No listener matches the filter");
    killAllText_ = QStringLiteral("This sends SIGTERM to %1 process(es). Some may refuse or "
                                  "require higher privileges.")
                       .arg(distinctPIDs(listeners_).size());
}

// Killing

void PortsViewModel::kill(const PortListener& listener, bool force, bool includeChildren) {
    kill({listener, signalOf(force), includeChildren, startTimeOf(listener, startTimes_)});
}

void PortsViewModel::kill(Kill wanted) {
    if (isSignalling_) {
        return;
    }
    beginSignalling();
    kill_ = std::move(wanted);
    killJob_.start([killer = killer_, wanted = kill_](const auto&, const auto& isCancelled) {
        return signal(killer, wanted.listener, wanted.signal, wanted.includeChildren,
                      wanted.startTime, isCancelled);
    });
}

void PortsViewModel::killed(const Killed& outcome) {
    endSignalling();
    if (outcome) {
        banner_ = shownText(PortTexts::sent(kill_.listener, kill_.signal));
        log(fmt::format("ports kill pid={} port={} force={} tree={}", kill_.listener.pid,
                        kill_.listener.port, kill_.signal == PortKillSignal::force,
                        kill_.includeChildren));
    } else {
        const std::string description = outcome.error().description();
        banner_ = shownText(description);
        log(fmt::format("ports kill failed pid={}: {}", kill_.listener.pid, description));
    }
    refreshAfter(pauseAfterKill);
}

void PortsViewModel::beginSignalling() {
    isSignalling_ = true;
    signalPatience_.start();
}

void PortsViewModel::endSignalling() {
    signalPatience_.stop();
    isSignalling_ = false;
    publishWaiting();
}

void PortsViewModel::signallingBroke(const std::string& reason) {
    endSignalling();
    banner_ = shownText(reason);
    log("ports kill failed: " + reason);
    refreshAfter(pauseAfterKill);
}

void PortsViewModel::killAll(bool force) {
    if (isSignalling_) {
        return;
    }
    beginSignalling();
    killsAllByForce_ = force;
    killAllJob_.start([killer = killer_, listeners = listeners_, times = startTimes_,
                       force](const auto&, const auto& isCancelled) {
        KilledAll count;
        std::set<std::int32_t> waiting = distinctPIDs(listeners);
        for (const PortListener& listener : listeners) {
            if (waiting.erase(listener.pid) > 0) {
                const Killed outcome = signal(killer, listener, signalOf(force), false,
                                              startTimeOf(listener, times), isCancelled);
                ++(outcome ? count.sent : count.failed);
            }
        }
        return count;
    });
}

void PortsViewModel::killedAll(KilledAll outcome, bool force) {
    endSignalling();
    std::string text = fmt::format("Signaled {} process(es)", outcome.sent);
    if (outcome.failed > 0) {
        text += fmt::format("; {} refused or gone", outcome.failed);
    }
    banner_ = shownText(text);
    log(fmt::format("ports kill all sent={} failed={} force={}", outcome.sent, outcome.failed,
                    force));
    refreshAfter(pauseAfterKillAll);
}

void PortsViewModel::refreshAfter(std::chrono::milliseconds pause) {
    afterSignals_.start(pause);
}

void PortsViewModel::askToKill(const QString& id) {
    dismissKill();
    pendingKill_ = find(id);
    if (pendingKill_) {
        pendingStartTime_ = startTimeOf(*pendingKill_, startTimes_);
        pendingKillText_ = shownText(PortTexts::listening(*pendingKill_));
    }
}

void PortsViewModel::dismissKill() {
    pendingKill_.reset();
    pendingKillText_ = QString();
}

void PortsViewModel::killPending(bool force) {
    const std::optional<PortListener> listener = pendingKill_;
    if (listener && !isSignalling_) {
        dismissKill();
        kill({*listener, signalOf(force), false, pendingStartTime_});
    }
}

void PortsViewModel::forceKill(const QString& id) {
    if (const auto listener = find(id)) {
        kill(*listener, true, false);
    }
}

void PortsViewModel::killTree(const QString& id) {
    if (const auto listener = find(id)) {
        kill(*listener, true, true);
    }
}

void PortsViewModel::askToKillAll() {
    confirmKillAll_ = !listeners_.empty();
}

void PortsViewModel::dismissKillAll() {
    confirmKillAll_ = false;
}

void PortsViewModel::killAllAsked(bool force) {
    if (!isSignalling_) {
        dismissKillAll();
        killAll(force);
    }
}

// Rows

std::optional<PortListener> PortsViewModel::find(const QString& id) const {
    if (id.isEmpty()) {
        return std::nullopt;
    }
    const std::string wanted = id.toStdString();
    const auto found = std::find_if(listeners_.begin(), listeners_.end(),
                                    [&](const PortListener& row) { return row.id() == wanted; });
    return found == listeners_.end() ? std::nullopt : std::optional(*found);
}

void PortsViewModel::select(const QString& id) {
    if (!isUpdating_) {
        selectedID_ = find(id) ? id : QString();
    }
}

void PortsViewModel::copyPort(const PortListener& listener) {
    const QString port = QString::number(listener.port);
    environment_.workspace.copyText(port);
    banner_ = QStringLiteral("Copied port ") + port;
}

void PortsViewModel::copyPort(const QString& id) {
    if (const auto listener = find(id)) {
        copyPort(*listener);
    }
}

void PortsViewModel::reveal(const QString& id) {
    if (hasExecutable(id)) {
        environment_.workspace.reveal(FileURL(*find(id)->executablePath));
    }
}

bool PortsViewModel::hasExecutable(const QString& id) const {
    const auto listener = find(id);
    return listener && listener->executablePath;
}

QString PortsViewModel::idAt(int row) const {
    const std::vector<PortListener>& rows = rows_.records();
    return row < 0 || row >= rows_.rowCount() ? QString()
                                              : PortRows::idOf(rows[static_cast<std::size_t>(row)]);
}

int PortsViewModel::rowOf(const QString& id) const {
    const std::vector<PortListener>& rows = rows_.records();
    const std::string wanted = id.toStdString();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const PortListener& row) {
        return !wanted.empty() && row.id() == wanted;
    });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

void PortsViewModel::dismissBanner() {
    banner_ = QString();
}

void PortsViewModel::log(const std::string& message) const {
    environment_.log.write(displayText(message));
}

}
