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
#include <cstring>
#include <ctime>
#include <iterator>
#include <limits>
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

/// How long a search goes without asking whether it is cancelled, and what of that is its own work.
/// The rest is waiting: for the disk, or for the processor on a machine that has other work.
class Pauses {
  public:
    void asked() {
        const Moment now = Moment::now();
        wall_ = std::max(wall_, now.wall - last_.wall);
        cpu_ = std::max(cpu_, now.cpu - last_.cpu);
        last_ = now;
        ++questions_;
    }
    std::int64_t questions() const { return questions_; }
    std::string longest() const { return text(wall_, cpu_); }
    std::string sinceLast() const {
        const Moment now = Moment::now();
        return text(now.wall - last_.wall, now.cpu - last_.cpu);
    }

  private:
    struct Moment {
        double wall;
        double cpu;

        static Moment now() { return {seconds(CLOCK_MONOTONIC), seconds(CLOCK_THREAD_CPUTIME_ID)}; }
        static double seconds(clockid_t clock) {
            timespec time{};
            ::clock_gettime(clock, &time);
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
        }
    };

    static std::string text(double wall, double cpu) {
        return fmt::format("{:.0f} ms ({:.0f} ms CPU)", wall * 1000, cpu * 1000);
    }

    Moment last_ = Moment::now();
    double wall_ = 0;
    double cpu_ = 0;
    std::int64_t questions_ = 0;
};

constexpr std::int64_t never = std::numeric_limits<std::int64_t>::max();

/// Tells a search to stop when it asks for the `cancelledAt`th time.
DuplicateScanResult timed(Pauses& pauses, const std::string& tree, Bytes minimumSize,
                          std::int64_t cancelledAt) {
    DuplicateScanner scanner({minimumSize, true, {}}, systemFileManager(HostLayout::current()));
    DuplicateScanResult result = scanner.scan(FileURL(tree), {}, [&] {
        pauses.asked();
        return pauses.questions() >= cancelledAt;
    });
    fmt::print("  {}: {} files in groups, asked every {} or sooner, back {} after it asked last\n",
               cancelledAt == never ? "to its end" : "cancelled shortly before",
               result.duplicateFiles(), pauses.longest(), pauses.sinceLast());
    return result;
}

/// What a search takes for each candidate beside the characters of its path, and how long somebody
/// who cancels waits.
void printCrowd(const std::string& title, const std::string& tree, Bytes minimumSize) {
    inOwnProcess([&] {
        const long before = residentKibibytes();
        Pauses pauses;
        fmt::print("{}\n", title);
        const std::int64_t candidates = timed(pauses, tree, minimumSize, never).candidateFiles;
        const double taken = static_cast<double>(residentKibibytes() - before) * 1024;
        const auto path = static_cast<double>(tree.size() + std::strlen("/file-123456.txt"));
        fmt::print("  {} candidates, at most {:.0f} bytes each beside the path\n", candidates,
                   taken / static_cast<double>(candidates) - path);
        Pauses cancelled;
        timed(cancelled, tree, minimumSize, pauses.questions() / 100 * 99);
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
