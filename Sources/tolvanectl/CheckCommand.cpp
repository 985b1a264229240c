#include "Arguments.h"
#include "CheckReport.h"
#include "Command.h"
#include "Failures.h"

#include <BrightpassKit/BrightpassScanner.h>
#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

class CheckCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        CLI::Option* const root =
            app.add_option("--duplicates-root", duplicatesRoot_,
                           "Look for duplicates in this folder, not in the downloads")
                ->type_name("DIR")
                ->check(pathError);
        app.add_flag("--no-duplicates", leavesOutDuplicates_, "Do not look for duplicates")
            ->excludes(root);
        app.add_flag("--system-apps", includesSystemApps_, "Include the system's own applications");
    }

    Exit run(Console& console, const Host& host) override {
        const Result<BrightpassOptions, std::string> options = makeOptions(host);
        if (!options) {
            return console.fail(options.error());
        }
        std::string stage;
        const auto tell = [&](const std::string& text) {
            console.progress().clear();
            console.complain(text);
            stage = text;
        };
        const auto isCancelled = [&] {
            if (console.progress().isDue()) {
                console.progress().show(stage, "");
            }
            return console.isCancelled();
        };
        const BrightpassReport report =
            BrightpassScanner::of(host.layout, host.files, options->duplicatesRoot)
                .scan(*options, tell, isCancelled);
        console.progress().clear();
        print(console, report);
        return console.isCancelled() ? Exit::cancelled : Exit::done;
    }

  private:
    Result<BrightpassOptions, std::string> makeOptions(const Host& host) const {
        BrightpassOptions options{.junkRoots = host.layout.junkRoots,
                                  .duplicatesRoot = std::nullopt,
                                  .includeSystemApps = includesSystemApps_};
        if (leavesOutDuplicates_) {
            return options;
        }
        options.duplicatesRoot = host.layout.locations.downloads;
        if (!duplicatesRoot_.empty()) {
            const Result<FileURL, std::string> url = host.place(duplicatesRoot_);
            if (!url) {
                return tl::unexpected(url.error());
            }
            options.duplicatesRoot = *url;
        }
        return options;
    }

    static void print(Console& console, const BrightpassReport& report) {
        const bool isPartial = console.isCancelled();
        if (console.writesJSON()) {
            printAsJson(console.out(), report, isPartial);
        } else {
            printAsText(console, report, isPartial);
        }
        if (report.duplicates) {
            complainOfFailures(console, report.duplicates->errors);
        }
    }

    std::string duplicatesRoot_;
    bool leavesOutDuplicates_ = false;
    bool includesSystemApps_ = false;
};

}

std::unique_ptr<Command> makeCheckCommand() {
    return std::make_unique<CheckCommand>();
}

}
