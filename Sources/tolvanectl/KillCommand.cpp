#include "Command.h"
#include "Json.h"
#include "ShownText.h"

#include <HostKit/Processes.h>
#include <PortKit/PortKillerService.h>
#include <PortKit/PortScanner.h>
#include <Services/PortTexts.h>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include <algorithm>
#include <set>

namespace tolvane {
namespace {

/// A process to be signalled, by one of its listeners.
struct Target {
    PortListener listener;
    std::optional<StartTime> startTime;
};

struct Report {
    std::vector<PortListener> signalled;
    std::vector<std::string> errors;
};

class KillCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        CLI::Option* const port =
            app.add_option("PORT", port_, "Signal every process that listens on this port")
                ->type_name("")
                ->check(CLI::Range(1, 65'535));
        app.add_option("--pid", pid_, "Signal the listening process with this number")
            ->type_name("PID")
            ->excludes(port);
        app.add_flag("--force", isForced_, "Send SIGKILL, which no process can refuse");
        app.add_flag("--tree", includesChildren_, "Signal all descendants first");
        app.add_flag("--yes", isAgreed_, "Do not ask");
    }

    Exit run(Console& console, const Host& host) override {
        if (port_.has_value() == pid_.has_value()) {
            console.complain("PORT or --pid is required");
            return Exit::wrongCommandLine;
        }
        if (!isAgreed_ && !Console::canAsk()) {
            console.complain("There is no terminal to ask on; --yes goes without");
            return Exit::wrongCommandLine;
        }
        const PortScanner scanner(host.layout.tools, host.layout.sources);
        const auto listeners = scanner.scan([&] { return console.isCancelled(); });
        if (console.isCancelled()) {
            return Exit::cancelled;
        }
        if (!listeners) {
            return console.fail(listeners.error().description());
        }
        const std::vector<Target> chosen = targets(*listeners, Processes(host.layout.sources));
        if (chosen.empty()) {
            return console.fail(nothingFound());
        }
        const bool isAgreed = isAgreed_ || console.ask(question(chosen));
        const Report report = isAgreed ? signal(chosen, host) : Report();
        tell(console, report);
        if (!isAgreed) {
            console.complain("Nothing was signalled");
            return Exit::cancelled;
        }
        return report.errors.empty() ? Exit::done : Exit::failed;
    }

  private:
    bool isMeant(const PortListener& listener) const {
        return port_ ? listener.listensOn(*port_) : listener.pid == *pid_;
    }

    /// Each process once.
    std::vector<Target> targets(const std::vector<PortListener>& listeners,
                                const Processes& processes) const {
        std::vector<Target> chosen;
        for (const PortListener& listener : listeners) {
            const bool isNew = std::none_of(chosen.begin(), chosen.end(), [&](const Target& each) {
                return each.listener.pid == listener.pid;
            });
            if (isNew && isMeant(listener)) {
                chosen.push_back({listener, processes.startTime(listener.pid)});
            }
        }
        return chosen;
    }

    std::string nothingFound() const {
        return port_
                   ? "Nothing that you may see listens on port " + std::to_string(*port_)
                   : "Process " + std::to_string(*pid_) + " does not listen, or you may not see it";
    }

    std::string question(const std::vector<Target>& chosen) const {
        std::string text;
        for (const Target& target : chosen) {
            text += PortTexts::listening(target.listener) + " ";
        }
        return text + "Send " + std::string(PortTexts::name(signalToSend())) +
               (includesChildren_ ? " to it and all its descendants?" : "?");
    }

    PortKillSignal signalToSend() const {
        return isForced_ ? PortKillSignal::force : PortKillSignal::terminate;
    }

    Report signal(const std::vector<Target>& chosen, const Host& host) const {
        const PortKillerService killer(host.layout.tools, host.layout.sources);
        Report report;
        // Servers share a port with their children.
        std::set<std::int32_t> reached;
        for (const auto& [listener, startTime] : chosen) {
            if (reached.contains(listener.pid)) {
                report.signalled.push_back(listener);
                continue;
            }
            if (!startTime) {
                // It ended before it was told from later processes of its number.
                report.errors.push_back(PortKillError::processGone(listener.pid).description());
                continue;
            }
            const Result<void, PortKillError> sent =
                killer.kill(listener, signalToSend(), includesChildren_, ::getpid(), startTime, {},
                            [&reached](std::int32_t pid) { reached.insert(pid); });
            if (sent) {
                report.signalled.push_back(listener);
            } else {
                report.errors.push_back(sent.error().description());
            }
        }
        return report;
    }

    void tell(Console& console, const Report& report) const {
        if (console.writesJSON()) {
            JSON pids = JSON::array();
            for (const PortListener& listener : report.signalled) {
                pids.push_back(listener.pid);
            }
            print(console.out(), JSON{{"signalled", std::move(pids)}, {"errors", report.errors}});
        } else {
            for (const PortListener& listener : report.signalled) {
                console.out().format("{}\n", shownText(PortTexts::sent(listener, signalToSend())));
            }
        }
        for (const std::string& error : report.errors) {
            console.complain(error);
        }
    }

    std::optional<std::int64_t> port_;
    std::optional<std::int32_t> pid_;
    bool isForced_ = false;
    bool includesChildren_ = false;
    bool isAgreed_ = false;
};

}

std::unique_ptr<Command> makeKillCommand() {
    return std::make_unique<KillCommand>();
}

}
