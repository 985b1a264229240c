// What the performance controller does for the machine and the desktop.

#include <PerformanceKit/MemorySampler.h>
#include <Services/PurgeResult.h>
#include <Services/ThinningTarget.h>

#include <Controllers/PerformanceTexts.h>
#include <Controllers/PerformanceViewModel.h>
#include <Controllers/ShownText.h>

#include <utility>

namespace tolvane {
namespace {

Bytes available(const std::optional<MemoryStats>& memory) {
    return memory ? memory->available() : 0;
}

}

void PerformanceViewModel::begin(const std::string& key) {
    isBusy_ = true;
    runningKey_ = key;
    showMaintenance();
}

void PerformanceViewModel::end() {
    isBusy_ = false;
    runningKey_.clear();
    showMaintenance();
}

void PerformanceViewModel::showMaintenance() {
    maintenanceRows_.update(PerformanceRows::maintenance(statuses_, failed_, runningKey_));
}

void PerformanceViewModel::runMaintenance(const std::string& key, Action action) {
    if (isBusy_) {
        return;
    }
    statuses_[key] = PerformanceTexts::running;
    failed_.erase(key);
    begin(key);
    maintenanceJob_.start(
        [service = service_, action = std::move(action)](const auto&, const auto& isCancelled) {
            return action(service, isCancelled);
        });
}

void PerformanceViewModel::maintained(const MaintenanceOutcome& outcome) {
    const std::string key = runningKey_;
    statuses_[key] = outcome.message;
    if (!outcome.isSuccess()) {
        failed_.insert(key);
    }
    end();
    banner_ = shownLines(outcome.message);
    log("performance maintenance " + key + ": " + outcome.message);
    if (outcome.isSuccess()) {
        startSnapshots();
        sampleVolume();
    }
}

void PerformanceViewModel::thinSnapshots() {
    const std::optional<ThinningTarget> target = ThinningTarget::of(inventory_, volume());
    if (!target) {
        banner_ = QString::fromUtf8(ThinningTarget::nothingToThin);
        return;
    }
    runMaintenance("snapshots", [target](const auto& service, const auto& isCancelled) {
        return service.thinLocalSnapshots(target->volume, target->bytes, target->urgency,
                                          isCancelled);
    });
}

void PerformanceViewModel::freeRAM() {
    if (isBusy_) {
        return;
    }
    begin("purge");
    const HostLayout::Sources& sources = environment_.layout.sources;
    purgeJob_.start([service = service_, sources, before = MemorySampler::sample(sources)](
                        const auto&, const auto& isCancelled) {
        MaintenanceOutcome outcome = service.freeRAMWithAdministrator(isCancelled);
        return Purged{std::move(outcome), before, MemorySampler::sample(sources)};
    });
}

void PerformanceViewModel::purged(const Purged& purge) {
    end();
    figures_.memory = purge.after;
    publishMemory();
    startProcesses();
    if (purge.outcome.isSuccess()) {
        const PurgeResult result = PurgeResult::between(purge.before, purge.after);
        banner_ = shownText(result.text());
        log("performance free ram success delta=" + std::to_string(result.delta));
    } else {
        banner_ = shownLines(purge.outcome.message);
        log("performance free ram failed: " + purge.outcome.message);
    }
}

void PerformanceViewModel::releaseAppMemory() {
    const Bytes before = available(memory());
    const Bytes released = service_.releaseApplicationMemory();
    refreshStats();
    banner_ =
        shownText(PerformanceTexts::released(released, difference(available(memory()), before)));
    log("performance allocator relief bytes=" + std::to_string(released));
}

void PerformanceViewModel::runRow(const QString& key) {
    if (key == "purge") {
        freeRAM();
    } else if (key == "own") {
        releaseAppMemory();
    } else if (key == "snapshots") {
        thinSnapshots();
    } else if (key == "dns") {
        runMaintenance("dns", [](const auto& service, const auto& isCancelled) {
            return service.flushDNS(isCancelled);
        });
    } else if (key == "ls") {
        runMaintenance("ls", [](const auto& service, const auto& isCancelled) {
            return service.rebuildLaunchServices(isCancelled);
        });
    } else if (key == "spotlight") {
        runMaintenance("spotlight", [](const auto& service, const auto& isCancelled) {
            return service.reindexSpotlight("/", isCancelled);
        });
    }
}

void PerformanceViewModel::cancelActivity() {
    if (isBusy_) {
        maintenanceJob_.cancel();
        purgeJob_.cancel();
    } else {
        stopWaiting();
    }
}

void PerformanceViewModel::openLoginItemsSettings() {
    environment_.workspace.openSettingsPane(SettingsPane::loginItems);
}

void PerformanceViewModel::copyPID(const QString& id) {
    if (const ListedProcess* const listed = find(id)) {
        const QString pid = QString::number(listed->process.pid);
        environment_.workspace.copyText(pid);
        banner_ = QStringLiteral("Copied PID ") + pid;
    }
}

void PerformanceViewModel::revealAgent(int row) {
    if (const StartupAgent* const agent = agentRows_.record(row)) {
        environment_.workspace.reveal(agent->url);
    }
}

void PerformanceViewModel::dismissBanner() {
    banner_ = QString();
}

}
