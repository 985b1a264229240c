// What a person does with the listeners: end their processes, copy a port, look at a program.

#include <Services/PortTexts.h>

#include <Controllers/PortRows.h>
#include <Controllers/PortsViewModel.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QCoreApplication>
#include <set>
#include <utility>

namespace tolvane {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds pauseAfterKill = 350ms;
constexpr std::chrono::milliseconds pauseAfterKillAll = 500ms;

std::int32_t ownPID() {
    return static_cast<std::int32_t>(QCoreApplication::applicationPid());
}

PortKillSignal signalOf(bool force) {
    return force ? PortKillSignal::force : PortKillSignal::terminate;
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
        std::set<std::int32_t> waiting = PortRows::processes(listeners);
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

// One listener

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

}
