#include "Command.h"
#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <PortKit/PortScanner.h>
#include <Services/PortTexts.h>
#include <Services/PortsFilter.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <chrono>
#include <thread>

namespace tolvane {
namespace {

/// What one look at the machine showed.
struct Look {
    std::vector<PortListener> listeners;
    /// Listening sockets whose processes this user may not see.
    std::size_t unseen = 0;
};

/// Waits in small steps, so that a cancellation is noticed.
void wait(std::chrono::milliseconds time, const Console& console) {
    constexpr std::chrono::milliseconds step{100};
    for (; time.count() > 0 && !console.isCancelled(); time -= step) {
        std::this_thread::sleep_for(std::min(time, step));
    }
}

class PortsCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("QUERY", query_,
                       "Show only listeners with this in port, process, PID, address or path")
            ->type_name("");
        app.add_flag("--watch", watches_, "Look again every 4.5 seconds, on a terminal");
    }

    Exit run(Console& console, const Host& host) override {
        if (watches_ && (console.writesJSON() || !console.hasScreen())) {
            console.complain("--watch needs a terminal and goes without --json");
            return Exit::wrongCommandLine;
        }
        do {
            const Result<Look, PortScanError> look = lookAround(console, host);
            if (console.isCancelled()) {
                break;
            }
            if (!look) {
                return console.fail(look.error().description());
            }
            show(console, *look);
        } while (watches_ && goesOn(console));
        return console.isCancelled() ? Exit::cancelled : Exit::done;
    }

  private:
    Result<Look, PortScanError> lookAround(const Console& console, const Host& host) const {
        const PortScanner scanner(host.layout.tools, host.layout.sources);
        return scanner.scan([&] { return console.isCancelled(); })
            .map([&](const std::vector<PortListener>& listeners) {
                return Look{PortsFilter(query_).filtered(listeners),
                            scanner.countUnseen(listeners)};
            });
    }

    void show(Console& console, const Look& look) const {
        if (console.writesJSON()) {
            print(console.out(), listOf(look.listeners));
            return;
        }
        if (watches_) {
            console.out().append(Console::wipe());
        }
        console.out().append(look.listeners.empty() ? "Nothing to show.\n"
                                                    : table(look.listeners).text());
        if (look.unseen > 0) {
            console.out().format(
                "{}\n",
                console.styled(Style::faint, PortTexts::notShown(look.unseen, Processes::sight())));
        }
        if (watches_) {
            console.out().format("{}\n", console.styled(Style::faint, "Refreshing every 4.5 s."));
        }
    }

    static Table table(const std::vector<PortListener>& listeners) {
        Table table({Alignment::right, Alignment::left, Alignment::right, Alignment::left,
                     Alignment::left});
        table.add({"PORT", "PROCESS", "PID", "ADDRESSES", "EXECUTABLE"});
        for (const PortListener& listener : listeners) {
            table.add({std::to_string(listener.port), shownText(listener.processName),
                       std::to_string(listener.pid), shownText(listener.addressSummary()),
                       shownText(listener.executablePath.value_or("-"))});
        }
        return table;
    }

    /// Hands on what was shown and waits for the next look; false when there is to be none.
    static bool goesOn(Console& console) {
        constexpr std::chrono::milliseconds interval{4500};
        if (!console.out().flush()) {
            return false;
        }
        wait(interval, console);
        return !console.isCancelled();
    }

    std::string query_;
    bool watches_ = false;
};

}

std::unique_ptr<Command> makePortsCommand() {
    return std::make_unique<PortsCommand>();
}

}
