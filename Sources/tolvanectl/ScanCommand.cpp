#include "Arguments.h"
#include "Command.h"
#include "ScanReport.h"
#include "ScanSetting.h"
#include "TreemapPicture.h"

#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileTreeScanner.h>
#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <CLI/CLI.hpp>

#include <cmath>

namespace tolvane {
namespace {

using CountFormat::grouped;

std::string settingError(const std::string& setting) {
    ScanOptions ignored = fullScanOptions({});
    const Result<void, std::string> applied = applySetting(ignored, setting);
    return applied ? "" : applied.error();
}

std::string sizeError(const std::string& text) {
    return pictureSize(text) ? "" : "\"" + text + "\" is not WIDTHxHEIGHT in pixels";
}

class ScanCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("PATH", path_, "The folder to measure")
            ->type_name("")
            ->check(pathError)
            ->required();
        app.add_flag("--detailed", isDetailed_, "Keep many more files of each folder");
        app.add_option("--set", settings_, "Override a scan option (repeatable)")
            ->type_name("FIELD=VALUE")
            ->allow_extra_args(false)
            ->check(settingError);
        app.add_option("--depth", depth_, "Levels of children to print (1 as text, all as JSON)")
            ->type_name("N")
            ->check(countError);
        app.add_option("--top", top_, "List so many of the largest files")
            ->type_name("N")
            ->check(countError);
        CLI::Option* svg =
            app.add_option("--svg", pictureFile_, "Draw the folder's children into a file")
                ->type_name("FILE")
                ->check(pathError);
        app.add_option("--size", pictureSize_, "Size of the drawing in pixels (1200x800)")
            ->type_name("WxH")
            ->check(sizeError)
            ->needs(svg);
    }

    Exit run(Console& console, const Host& host) override {
        const Result<FileURL, std::string> root = host.place(path_);
        if (!root) {
            return console.fail(root.error());
        }
        const Result<ScanOptions, std::string> options = makeOptions(host, *root);
        if (!options) {
            return console.fail(options.error());
        }
        const ScanReport report = scan(console, host, *root, *options);
        if (const std::optional<std::string> reason = reasonNotListed(report)) {
            return console.fail("Could not list " + root->path() + ": " + *reason);
        }
        print(console, host, report);
        return drawPicture(console, host, report);
    }

  private:
    Result<ScanOptions, std::string> makeOptions(const Host& host, const FileURL& root) const {
        std::vector<std::string> excluded = excludedPrefixes(root, host.layout, *host.files);
        ScanOptions options = isDetailed_ ? detailedScanOptions(std::move(excluded))
                                          : fullScanOptions(std::move(excluded));
        for (const std::string& setting : settings_) {
            if (const auto applied = applySetting(options, setting); !applied) {
                return tl::unexpected(applied.error());
            }
        }
        for (std::string& prefix : options.excludedPathPrefixes) {
            const Result<FileURL, std::string> url = host.place(prefix);
            if (!url) {
                return tl::unexpected(url.error());
            }
            prefix = host.layout.asSeenFrom(root, *url).path();
        }
        return options;
    }

    ScanReport scan(Console& console, const Host& host, const FileURL& root,
                    const ScanOptions& options) const {
        const Date start = steadyTime();
        FileTreeScanner scanner(options, host.files);
        ScanOutcome outcome = scanner.scan(root, progressOn(console.progress()),
                                           [&] { return console.isCancelled(); });
        console.progress().clear();
        return {std::move(outcome),
                scanner.lastFailures(),
                options,
                steadyTime() - start,
                depth_,
                top_};
    }

    static ScanProgressCallback progressOn(ProgressLine& line) {
        if (!line.isShown()) {
            return {};
        }
        return [&line](const ScanProgress& progress) {
            if (line.isDue()) {
                const auto items =
                    static_cast<double>(progress.filesScanned + progress.directoriesScanned);
                const double rate = items / std::max(line.elapsed(), 0.1);
                line.show(fmt::format(
                              "{} files  {} folders  {}  {}/s", grouped(progress.filesScanned),
                              grouped(progress.directoriesScanned),
                              ByteFormat::text(progress.scannedBytes), grouped(std::llround(rate))),
                          progress.currentPath);
            }
        };
    }

    /// Why nothing at all could be measured; absent when something was.
    static std::optional<std::string> reasonNotListed(const ScanReport& report) {
        const FileNode& root = report.outcome.root;
        const bool isEmpty = root.children().empty() && root.hiddenFiles() == 0;
        const bool isOnlyRoot = isEmpty && report.failures.size() == 1 &&
                                report.failures.front().path == root.url().path();
        return isOnlyRoot ? std::optional(report.failures.front().reason) : std::nullopt;
    }

    static void print(Console& console, const Host& host, const ScanReport& report) {
        if (console.writesJSON()) {
            printAsJson(console.out(), report);
        } else {
            printAsText(console, host, report);
        }
    }

    Exit drawPicture(Console& console, const Host& host, const ScanReport& report) const {
        if (!pictureFile_.empty()) {
            const Result<FileURL, std::string> file = host.place(pictureFile_);
            if (!file) {
                return console.fail(file.error());
            }
            const auto drawn = writeTreemap(report.outcome.root, *pictureSize(pictureSize_), *file);
            if (!drawn) {
                return console.fail("Could not write " + file->path() + ": " +
                                    drawn.error().message());
            }
        }
        return report.isPartial() ? Exit::cancelled : Exit::done;
    }

    std::string path_;
    bool isDetailed_ = false;
    std::vector<std::string> settings_;
    std::optional<std::int64_t> depth_;
    std::optional<std::int64_t> top_;
    std::string pictureFile_;
    std::string pictureSize_ = "1200x800";
};

}

std::unique_ptr<Command> makeScanCommand() {
    return std::make_unique<ScanCommand>();
}

}
