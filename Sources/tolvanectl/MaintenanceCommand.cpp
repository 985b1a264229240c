#include "Command.h"
#include "Json.h"
#include "ShownText.h"

#include <HostKit/Lines.h>
#include <PerformanceKit/MaintenanceService.h>
#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <PerformanceKit/VolumeSampler.h>
#include <Services/PurgeResult.h>
#include <Services/ThinningTarget.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>

namespace tolvane {
namespace {

/// One run of an action.
struct Work {
    const Host& host;
    const MaintenanceService service;
    const std::function<bool()> isCancelled;
};

MaintenanceOutcome thinSnapshots(const Work& work) {
    const SnapshotInventory inventory =
        SnapshotScanner::scan(work.host.layout.snapshots, work.isCancelled);
    const auto target = ThinningTarget::of(
        inventory, VolumeSampler::sample(FileURL("/"), work.host.layout.sources));
    return target ? work.service.thinLocalSnapshots(target->volume, target->bytes, target->urgency,
                                                    work.isCancelled)
                  : MaintenanceOutcome::success(ThinningTarget::nothingToThin);
}

MaintenanceOutcome purge(const Work& work) {
    const auto before = MemorySampler::sample(work.host.layout.sources);
    MaintenanceOutcome outcome = work.service.freeRAMWithAdministrator(work.isCancelled);
    if (outcome.isSuccess()) {
        const auto after = MemorySampler::sample(work.host.layout.sources);
        outcome.message = PurgeResult::between(before, after).text();
    }
    return outcome;
}

struct Action {
    /// Whether an administrator may be asked, perhaps on this very terminal.
    enum class Rights { user, administrator };

    const char* name;
    Rights rights;
    MaintenanceOutcome (*run)(const Work& work);
};

constexpr std::array<Action, 5> actions{
    {{"dns", Action::Rights::user,
      [](const Work& work) { return work.service.flushDNS(work.isCancelled); }},
     {"ls", Action::Rights::user,
      [](const Work& work) { return work.service.rebuildLaunchServices(work.isCancelled); }},
     {"spotlight", Action::Rights::user,
      [](const Work& work) { return work.service.reindexSpotlight("/", work.isCancelled); }},
     {"snapshots", Action::Rights::administrator, thinSnapshots},
     {"purge", Action::Rights::administrator, purge}}};

const Action* actionNamed(const std::string& name) {
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&](const Action& action) { return action.name == name; });
    return found == actions.end() ? nullptr : &*found;
}

class MaintenanceCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("ACTION", action_,
                       "dns, ls, spotlight, snapshots or purge; the last two may ask for an "
                       "administrator's password")
            ->type_name("")
            ->required()
            ->check([](const std::string& name) {
                return actionNamed(name) != nullptr ? std::string()
                                                    : "There is no action \"" + name + "\"";
            });
    }

    Exit run(Console& console, const Host& host) override {
        const Action& action = *actionNamed(action_);
        const Work work{host, {host.layout, host.files}, [&] {
                            // It would be drawn over the question.
                            if (action.rights == Action::Rights::user &&
                                console.progress().isDue()) {
                                console.progress().show("Running", "");
                            }
                            return console.isCancelled();
                        }};
        const MaintenanceOutcome outcome = action.run(work);
        console.progress().clear();
        if (console.writesJSON()) {
            print(console.out(),
                  JSON{{"isSuccess", outcome.isSuccess()}, {"message", outcome.message}});
        } else if (outcome.isSuccess()) {
            console.out().format("{}\n", shownText(outcome.message));
        }
        if (outcome.isSuccess()) {
            return Exit::done;
        }
        for (const std::string_view line : filledLines(outcome.message)) {
            console.complain(line);
        }
        return console.isCancelled() ? Exit::cancelled : Exit::failed;
    }

  private:
    std::string action_;
};

}

std::unique_ptr<Command> makeMaintenanceCommand() {
    return std::make_unique<MaintenanceCommand>();
}

}
