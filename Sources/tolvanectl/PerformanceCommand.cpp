#include "Command.h"
#include "PerformanceReport.h"

#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/SnapshotScanner.h>
#include <PerformanceKit/StartupScanner.h>
#include <PerformanceKit/VolumeSampler.h>

#include <CLI/CLI.hpp>

#include <cstdint>
#include <limits>

namespace tolvane {
namespace {

class PerformanceCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("--limit", limit_, "List so many of the heaviest processes")
            ->type_name("N")
            ->check(CLI::Range(std::int64_t{0}, std::numeric_limits<std::int64_t>::max()))
            ->capture_default_str();
    }

    Exit run(Console& console, const Host& host) override {
        const PerformanceReport report = sample(console, host);
        if (console.writesJSON()) {
            printAsJson(console.out(), report);
        } else {
            printAsText(console, report);
        }
        if (!console.isCancelled()) {
            return Exit::done;
        }
        console.complain("Cancelled: what was not asked for is missing");
        return Exit::cancelled;
    }

  private:
    PerformanceReport sample(const Console& console, const Host& host) const {
        const auto isCancelled = [&] { return console.isCancelled(); };
        const HostLayout& layout = host.layout;
        PerformanceReport report;
        report.memory = MemorySampler::sample(layout.sources);
        report.volume = VolumeSampler::sample(FileURL("/"), layout.sources);
        report.processes = ProcessSampler::top(static_cast<std::size_t>(limit_), layout.tools,
                                               layout.sources, isCancelled);
        report.agents =
            StartupScanner::scan(layout.locations.home, *host.files, layout.startup, isCancelled);
        report.snapshots = SnapshotScanner::scan(layout.snapshots, isCancelled);
        return report;
    }

    std::int64_t limit_ = 8;
};

}

std::unique_ptr<Command> makePerformanceCommand() {
    return std::make_unique<PerformanceCommand>();
}

}
