/// Prints what a search for duplicates costs beside a bare loop that reads and digests the same
/// bytes and beside the programs of this kind that are installed, all in one run: with a warm cache
/// CPU seconds against the loop and wall time against the others, the same with a cold cache where
/// this process may empty it. `--large` adds what a million candidates take: memory, and the
/// longest time in which a search does not notice that it is cancelled; `--only-large` leaves out
/// all else.
///
/// Each other program is asked for the mode nearest to ours in which it removes nothing: fdupes
/// compares by MD5 and byte by byte, rdfind by SHA-256, jdupes by a weaker digest and byte by byte.

#include "BareComparison.h"
#include "Contenders.h"
#include "MadeTree.h"

#include <DuplicatesKit/DuplicateScanner.h>
#include <HostKit/HostLayout.h>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <iterator>
#include <string_view>

namespace tolvane {
namespace {

DuplicateScanResult scan(const std::string& tree, Bytes minimumSize) {
    DuplicateScanner scanner({minimumSize, true, {}}, systemFileManager(HostLayout::current()));
    return scanner.scan(FileURL(tree));
}

/// The bare loop first, ours next, then the peers.
std::vector<Contender> all(const std::string& tree) {
    std::vector<Contender> contenders{
        {"bare loop", [tree] { BareComparison().run(tree); }},
        {"search", [tree] { scan(tree, 1); }},
    };
    std::ranges::move(
        installed({
            {"fdupes", "-r", "-q", "-m", tree},
            {"rdfind", "-dryrun", "true", "-checksum", "sha256", "-makeresultsfile", "false", tree},
            {"jdupes", "-r", "-q", "-m", tree},
        }),
        std::back_inserter(contenders));
    return contenders;
}

void print(const std::string& title, const std::vector<Contender>& contenders,
           const std::vector<Cost>& costs) {
    fmt::print("{}\n", title);
    const Cost& bare = costs[0];
    const Cost& ours = costs[1];
    for (std::size_t index = 0; index < contenders.size(); ++index) {
        const Cost& cost = costs[index];
        fmt::print("  {:<12}{:>8.3f} s CPU {:>5.2f} x bare {:>8.3f} s wall {:>6.2f} x ours "
                   "{:>7.1f} MiB peak\n",
                   contenders[index].name, cost.cpuSeconds, cost.cpuSeconds / bare.cpuSeconds,
                   cost.wallSeconds, cost.wallSeconds / ours.wallSeconds,
                   static_cast<double>(cost.peakKibibytes) / 1024);
    }
}

/// Whether the loop that ours is measured by does the same work.
void requireSameResult(const std::string& tree) {
    BareComparison bare;
    bare.run(tree);
    const DuplicateScanResult ours = scan(tree, 1);
    if (bare.duplicates != ours.duplicateFiles()) {
        fmt::print(stderr, "the bare loop found {} duplicates, the search {}\n", bare.duplicates,
                   ours.duplicateFiles());
        std::exit(1);
    }
    fmt::print("{} files, {} of them compared, {} in {} groups\n", ours.scannedFiles,
               ours.candidateFiles, ours.duplicateFiles(), ours.groups.size());
}

/// Lets the system forget what it has read; false when this process may not.
bool emptyCache() {
    ::sync();
    const int file = ::open("/proc/sys/vm/drop_caches", O_WRONLY | O_CLOEXEC);
    const bool isDone = file >= 0 && ::write(file, "3", 1) == 1;
    ::close(file);
    return isDone;
}

/// The longest time between two moments of some work.
class LongestPause {
  public:
    void end() {
        const Clock::time_point now = Clock::now();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }
    double milliseconds() const { return Milliseconds(longest_).count(); }
    double millisecondsSinceLast() const { return Milliseconds(Clock::now() - last_).count(); }

  private:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;

    Clock::time_point last_ = Clock::now();
    Clock::duration longest_{};
};

/// What a search takes for each candidate beside the characters of its path, and how long it goes
/// without asking whether it is cancelled, until it returns.
void printCrowd(const std::string& title, const std::string& tree, Bytes minimumSize) {
    inOwnProcess([&] {
        const long before = residentKibibytes();
        DuplicateScanner scanner({minimumSize, true, {}}, systemFileManager(HostLayout::current()));
        LongestPause pause;
        const DuplicateScanResult result = scanner.scan(FileURL(tree), {}, [&pause] {
            pause.end();
            return false;
        });
        const double rest = pause.millisecondsSinceLast();
        const double taken = static_cast<double>(residentKibibytes() - before) * 1024;
        const auto path = static_cast<double>(tree.size() + std::strlen("/file-123456.txt"));
        fmt::print("{}: {} candidates, {} in groups, at most {:.0f} bytes each beside the path; "
                   "asked every {:.0f} ms or sooner, back {:.0f} ms after it asked last\n",
                   title, result.candidateFiles, result.duplicateFiles(),
                   taken / static_cast<double>(result.candidateFiles) - path, pause.milliseconds(),
                   rest);
    });
}

void runLarge() {
    constexpr std::int64_t million = 1'000'000;
    printCrowd("1,000,000 different files of one size", MadeTree::numbered(million), 1);
    printCrowd("1,000,000 empty files", MadeTree::flat(million), 0);
    printCrowd("500,000 pairs of one size", MadeTree::pairs(million, 1), 1);
    printCrowd("500,000 pairs of 4,000 sizes", MadeTree::pairs(million, 4'000), 1);
}

void runAll() {
    const std::string tree = MadeTree::copies(40'000);
    requireSameResult(tree);
    const std::vector<Contender> contenders = all(tree);
    print("warm cache", contenders, measure(contenders, 5));
    if (emptyCache()) {
        print("cold cache", contenders, measure(contenders, 2, [] { emptyCache(); }));
    } else {
        fmt::print("cold cache: only root may empty it\n");
    }
}

}
}

int main(int argc, char** argv) {
    const std::string_view mode = argc > 1 ? argv[1] : "";
    if (mode != "--only-large") {
        tolvane::runAll();
    }
    if (mode == "--large" || mode == "--only-large") {
        tolvane::runLarge();
    }
    return 0;
}
