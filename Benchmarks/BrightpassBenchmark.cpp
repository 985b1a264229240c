/// Prints what a one-pass check costs beside its three parts run alone, on a made-up home of some
/// ten thousand files with junk, applications, what they leave behind, and duplicates. Goal: at
/// most 1.1 times their sum.

#include <ScanKit/ExcludedPrefixes.h>
#include <ScanKit/FileSizeCalculator.h>
#include <Support/TemporaryHome.h>

#include <BrightpassKit/BrightpassScanner.h>
#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>

namespace tolvane {
namespace {

constexpr int rounds = 9;

double cpuMilliseconds() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

/// The least of several rounds, which other programs disturb least.
class Least {
  public:
    void measure(const std::function<void()>& work) {
        const double start = cpuMilliseconds();
        work();
        milliseconds_ = std::min(milliseconds_, cpuMilliseconds() - start);
    }
    double milliseconds() const { return milliseconds_; }

  private:
    double milliseconds_ = std::numeric_limits<double>::max();
};

/// Returns the number of files.
int fill(const TemporaryHome& home) {
    int files = 0;
    const auto write = [&](const std::string& place, const std::string& content) {
        home.write(place, content);
        ++files;
    };
    for (int number = 0; number < 5'000; ++number) {
        write(fmt::format(".cache/cache {}/item {}", number / 50, number), "cached");
    }
    for (int number = 0; number < 200; ++number) {
        const std::string id = fmt::format("org.example.application{}", number);
        write(fmt::format("Applications/{}.AppDir/{}.desktop", id, id),
              fmt::format("[Desktop Entry]\nName=Application {}\n", number));
        write(".config/" + id + "/settings", "s");
        for (int item = 0; item < 5; ++item) {
            write(fmt::format(".local/share/{}/data/{}", id, item), "data");
        }
    }
    for (int number = 0; number < 3'600; ++number) {
        // Of three files two are equal; all have their size in common with others.
        const int content = number % 3 == 2 ? 10'000 + number : number / 3;
        write(fmt::format("Downloads/folder {}/{}", number / 40, number),
              fmt::format("{:>{}}", content, 8'000 + content % 100));
    }
    return files;
}

struct Parts {
    Least junk;
    Least apps;
    Least duplicates;
    Least whole;
};

void measure(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
             Parts& parts) {
    const HostLayout::Locations& places = layout.locations;
    parts.junk.measure([&] {
        for (const FileURL& root : layout.junkRoots) {
            FileSizeCalculator::allocatedSize(*files, root);
        }
    });
    parts.apps.measure([&] {
        const AppInventory inventory(files, places.home, std::nullopt, layout.applications);
        const LeftoverFinder finder(places.home, places.systemLibrary, files,
                                    ProtectionPolicy(layout.protection), layout.leftovers);
        for (const InstalledApp& app : inventory.scan(false)) {
            finder.leftovers(app, true);
        }
    });
    parts.duplicates.measure([&] {
        DuplicateScanner({.minimumSize = BrightpassScanner::minimumDuplicateSize,
                          .skipsHiddenFiles = true,
                          .excludedPrefixes = excludedPrefixes(places.downloads, layout, *files)},
                         files)
            .scan(places.downloads);
    });
    parts.whole.measure([&] {
        BrightpassScanner::of(layout, files, places.downloads)
            .scan({layout.junkRoots, places.downloads, false});
    });
}

void runAll() {
    constexpr double limit = 1.1;
    const TemporaryHome home;
    const int count = fill(home);
    const HostLayout layout = HostLayout::freedesktop(home.url(), {});
    const std::shared_ptr<const FileManager> files = systemFileManager(layout);
    const BrightpassReport report =
        BrightpassScanner::of(layout, files, layout.locations.downloads)
            .scan({layout.junkRoots, layout.locations.downloads, false});
    fmt::print("{} files: {} bytes of junk, {} applications with leftovers, {} duplicates\n", count,
               report.junkBytes(), report.apps.size(), report.duplicates->duplicateFiles());
    Parts parts;
    for (int round = 0; round < rounds; ++round) {
        measure(layout, files, parts);
    }
    const double sum =
        parts.junk.milliseconds() + parts.apps.milliseconds() + parts.duplicates.milliseconds();
    const double ratio = parts.whole.milliseconds() / sum;
    fmt::print("junk {:.1f} ms, applications {:.1f} ms, duplicates {:.1f} ms, sum {:.1f} ms CPU\n"
               "one-pass check {:.1f} ms CPU: {:.2f} times the sum, at most {}  {}\n",
               parts.junk.milliseconds(), parts.apps.milliseconds(),
               parts.duplicates.milliseconds(), sum, parts.whole.milliseconds(), ratio, limit,
               ratio <= limit ? "ok" : "TOO SLOW");
}

}
}

int main() {
    tolvane::runAll();
}
