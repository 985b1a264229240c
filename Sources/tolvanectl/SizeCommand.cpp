#include "Arguments.h"
#include "Command.h"
#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <ScanKit/FileSizeCalculator.h>
#include <Services/ByteFormat.h>

#include <CLI/CLI.hpp>

namespace tolvane {
namespace {

struct ItemSize {
    FileURL url;
    Bytes allocatedSize = 0;
    /// Absent when the measuring was cancelled before.
    std::optional<Bytes> logicalSize;
};

JSON toJson(const ItemSize& size) {
    JSON object = JSON::object();
    putPath(object, "path", size.url.path());
    object["allocatedSize"] = size.allocatedSize;
    object["logicalSize"] = size.logicalSize ? JSON(*size.logicalSize) : JSON();
    return object;
}

class SizeCommand : public Command {
  public:
    void declare(CLI::App& app) override {
        app.add_option("PATH", paths_, "The items to measure")
            ->type_name("")
            ->check(pathError)
            ->required();
    }

    Exit run(Console& console, const Host& host) override {
        const Result<std::vector<FileURL>, std::string> urls = host.places(paths_);
        if (!urls) {
            return console.fail(urls.error());
        }
        for (const FileURL& url : *urls) {
            if (const Result<void, SystemError> measurable = probe(*host.files, url); !measurable) {
                return console.fail("Could not measure " + url.path() + ": " +
                                    measurable.error().message());
            }
        }
        const std::vector<ItemSize> sizes = measure(console, host, *urls);
        print(console, sizes);
        return console.isCancelled() ? Exit::cancelled : Exit::done;
    }

  private:
    /// A folder that cannot be listed would count as empty.
    static Result<void, SystemError> probe(const FileManager& files, const FileURL& url) {
        return files.targetType(url) == FileType::directory
                   ? files.probeReading(url)
                   : files.values(url).map([](const ResourceValues&) {});
    }

    static std::vector<ItemSize> measure(Console& console, const Host& host,
                                         const std::vector<FileURL>& urls) {
        std::vector<ItemSize> sizes;
        for (const FileURL& url : urls) {
            if (console.isCancelled()) {
                break;
            }
            const auto isCancelled = [&] {
                if (console.progress().isDue()) {
                    console.progress().show("Measuring", url.path());
                }
                return console.isCancelled();
            };
            ItemSize size{url, FileSizeCalculator::allocatedSize(*host.files, url, isCancelled),
                          std::nullopt};
            if (!console.isCancelled()) {
                size.logicalSize = FileSizeCalculator::logicalSize(*host.files, url, isCancelled);
            }
            sizes.push_back(std::move(size));
        }
        console.progress().clear();
        return sizes;
    }

    static void print(Console& console, const std::vector<ItemSize>& sizes) {
        if (console.writesJSON()) {
            tolvane::print(console.out(), listOf(sizes));
            return;
        }
        Table table({Alignment::right, Alignment::right, Alignment::left});
        table.add({"ON DISK", "CONTENT", "PATH"});
        for (const ItemSize& size : sizes) {
            table.add({ByteFormat::text(size.allocatedSize),
                       size.logicalSize ? ByteFormat::text(*size.logicalSize) : "cancelled",
                       shownText(size.url.path())});
        }
        console.out().append(table.text());
        if (console.isCancelled()) {
            console.complain("Cancelled: a partial result");
        }
    }

    std::vector<std::string> paths_;
};

}

std::unique_ptr<Command> makeSizeCommand() {
    return std::make_unique<SizeCommand>();
}

}
