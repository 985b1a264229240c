#include "Arguments.h"
#include "Command.h"
#include "DuplicatesReport.h"

#include <DuplicatesKit/DuplicateScanner.h>
#include <ScanKit/ExcludedPrefixes.h>
#include <Services/CountFormat.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace tolvane {
namespace {

/// How far a search has come that has compared so many files in so many seconds.
std::string factsOf(std::int64_t compared, Seconds seconds) {
    if (compared == 0) {
        return "Looking for files";
    }
    const double rate = static_cast<double>(compared) / std::max(seconds, 0.1);
    return CountFormat::counted(compared, "file") + " of equal size  " +
           CountFormat::grouped(std::llround(rate)) + "/s";
}

class DuplicatesCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("PATH", path_, "The folder to look through")
            ->type_name("")
            ->check(pathError)
            ->required();
        app.add_option("--minimum-size", minimumSize_,
                       "Leave out smaller files (bytes, 1048576 when not given)")
            ->type_name("N")
            ->check(countError);
        app.add_flag("--include-hidden", includesHidden_, "Look at hidden items, too");
        app.add_option("--exclude", excluded_, "Leave out a folder (repeatable)")
            ->type_name("PREFIX")
            ->allow_extra_args(false)
            ->check(pathError);
        app.add_flag("--print0", printsCopies_,
                     "Print only the paths of the copies that may go, ended by NUL");
    }

    Exit run(Console& console, const Host& host) override {
        if (printsCopies_ && console.writesJSON()) {
            console.complain("--print0 and --json exclude each other");
            return Exit::wrongCommandLine;
        }
        const Result<FileURL, std::string> root = host.place(path_);
        if (!root) {
            return console.fail(root.error());
        }
        const Result<DuplicateOptions, std::string> options = makeOptions(host, *root);
        if (!options) {
            return console.fail(options.error());
        }
        const DuplicatesReport report = scan(console, host, *root, *options);
        for (const ScanFailure& failure : report.result.errors) {
            if (failure.path == root->path()) {
                return console.fail("Could not list " + failure.path + ": " + failure.reason);
            }
        }
        print(console, host, report);
        return report.isPartial ? Exit::cancelled : Exit::done;
    }

  private:
    Result<DuplicateOptions, std::string> makeOptions(const Host& host, const FileURL& root) const {
        DuplicateOptions options{minimumSize_, !includesHidden_,
                                 excludedPrefixes(root, host.layout, *host.files)};
        for (const std::string& prefix : excluded_) {
            const Result<FileURL, std::string> url = host.place(prefix);
            if (!url) {
                return tl::unexpected(url.error());
            }
            options.excludedPrefixes.push_back(host.layout.asSeenFrom(root, *url).path());
        }
        return options;
    }

    static DuplicatesReport scan(Console& console, const Host& host, const FileURL& root,
                                 const DuplicateOptions& options) {
        const Date start = steadyTime();
        Date comparisonStart = start;
        std::int64_t compared = 0;
        const auto isCancelled = [&] {
            if (console.progress().isDue()) {
                console.progress().show(factsOf(compared, steadyTime() - comparisonStart),
                                        root.path());
            }
            return console.isCancelled();
        };
        DuplicateScanner scanner(options, host.files);
        DuplicateScanResult result = scanner.scan(
            root,
            [&](std::int64_t count) {
                comparisonStart = count == 1 ? steadyTime() : comparisonStart;
                compared = count;
            },
            isCancelled);
        console.progress().clear();
        return {std::move(result), scanner.lastUncertain(), options, steadyTime() - start,
                console.isCancelled()};
    }

    void print(Console& console, const Host& host, const DuplicatesReport& report) const {
        if (printsCopies_) {
            printCopies(console.out(), report);
        } else if (console.writesJSON()) {
            printAsJson(console.out(), report);
        } else {
            printAsText(console, host, report);
        }
        complain(console, report);
    }

    std::string path_;
    Bytes minimumSize_ = 1'048'576;
    bool includesHidden_ = false;
    std::vector<std::string> excluded_;
    bool printsCopies_ = false;
};

}

std::unique_ptr<Command> makeDuplicatesCommand() {
    return std::make_unique<DuplicatesCommand>();
}

}
