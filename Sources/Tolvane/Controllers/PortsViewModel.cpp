#include <HostKit/Text.h>
#include <Services/PortTexts.h>
#include <Services/PortsFilter.h>

#include <Controllers/PortRows.h>
#include <Controllers/PortsViewModel.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

using namespace std::chrono_literals;

/// How long lsof or ps may take before the screen says that it is waited for.
constexpr std::chrono::milliseconds usualScan = 2000ms;

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
    banner_ = shownText(description);
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
    countText_ = hasResult_ ? shownPart(shown, all, "listener") : QString();
    emptyText_ = shown > 0     ? QString()
                 : !hasResult_ ? QStringLiteral("The listeners are not known")
                 : all == 0    ? QStringLiteral("No process listens on a TCP port")
                               : QStringLiteral("No listener matches the filter");
    killAllText_ = QStringLiteral("This sends SIGTERM to %1 process(es). Some may refuse or "
                                  "require higher privileges.")
                       .arg(PortRows::processes(listeners_).size());
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

bool PortsViewModel::hasExecutable(const QString& id) const {
    const auto listener = find(id);
    return listener && listener->executablePath;
}

QString PortsViewModel::idAt(int row) const {
    const PortListener* const listener = rows_.record(row);
    return listener == nullptr ? QString() : PortRows::idOf(*listener);
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
