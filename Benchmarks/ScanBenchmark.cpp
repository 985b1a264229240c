/// Prints what a scan costs beside the bare system calls and `du -s` over the same tree, all in one
/// run with a warm cache: CPU seconds, ratios, peak memory, bytes a kept node, and what it costs to
/// print the result. `--large` adds trees of a million and of three million files.

#include "BareWalk.h"
#include "Contenders.h"
#include "MadeTree.h"

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/FileTreeScanner.h>

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <vector>

namespace tolvane {
namespace {

ScanOutcome scan(const std::string& tree, const ScanOptions& options) {
    FileTreeScanner scanner(options, systemFileManager(HostLayout::current()));
    return scanner.scan(FileURL(tree));
}

Contender bare(const std::string& tree) {
    return {"bare system calls", [tree] { BareWalk().walk(tree); }};
}

Contender ours(const std::string& tree) {
    return {"scan", [tree] { scan(tree, fullScanOptions({})); }};
}

Contender oursInDetail(const std::string& tree) {
    return {"scan, detailed", [tree] { scan(tree, detailedScanOptions({})); }};
}

Contender du(const std::string& tree) {
    return {"du -s", [tree] { become({"du", "-s", tree}); }};
}

/// Other programs that measure folders, those of them that this machine has.
std::vector<Contender> peers(const std::string& tree) {
    const std::vector<std::vector<std::string>> commands{
        {"ncdu", "-0", "-o", "/dev/null", tree},
        {"gdu", "--non-interactive", "--no-progress", "--summarize", tree},
        {"dua", "aggregate", tree},
        {"dust", "-d", "0", tree},
        {"diskus", tree},
    };
    std::vector<Contender> found = installed(commands);
    found.insert(found.begin(), du(tree));
    return found;
}

/// The bare walk first, ours next, then the peers.
std::vector<Contender> all(const std::string& tree) {
    std::vector<Contender> contenders{bare(tree), ours(tree)};
    std::ranges::move(peers(tree), std::back_inserter(contenders));
    return contenders;
}

Contender text(const std::string& programs, const std::string& tree) {
    return {"tolvanectl", [=] { become({programs + "/tolvanectl", "scan", tree}); }};
}

Contender json(const std::string& programs, const std::string& tree) {
    return {"tolvanectl --json", [=] {
                become({programs + "/tolvanectl", "--json", "scan", tree});
            }};
}

void compare(const std::string& title, const std::vector<Contender>& contenders, int rounds,
             std::int64_t entries) {
    const std::vector<Cost> costs = measure(contenders, rounds);
    fmt::print("{}\n", title);
    for (std::size_t index = 0; index < contenders.size(); ++index) {
        fmt::print("  {:<20}{:>8.3f} s CPU {:>7.0f} ns/entry {:>6.2f} x {:>7.1f} MiB peak\n",
                   contenders[index].name, costs[index].cpuSeconds,
                   costs[index].cpuSeconds * 1e9 / static_cast<double>(entries),
                   costs[index].cpuSeconds / costs[0].cpuSeconds,
                   static_cast<double>(costs[index].peakKibibytes) / 1024);
    }
}

/// What the result of a scan holds when the scan is over, by the growth of this process's memory.
void printBytesPerNode(const std::string& title, const std::string& tree) {
    inOwnProcess([&] {
        const long before = residentKibibytes();
        const ScanOutcome outcome = scan(tree, fullScanOptions({}));
        const NodeTotals all = totals(outcome.root);
        const std::int64_t nodes = all.listedFileCount + all.listedDirectoryCount;
        fmt::print(
            "{}: {} kept nodes, at most {:.0f} bytes each (peak of the whole scan)\n", title, nodes,
            static_cast<double>(residentKibibytes() - before) * 1024 / static_cast<double>(nodes));
    });
}

void runAll(const std::string& programs, bool isLarge) {
    const std::string spread = MadeTree::spread(300'000, 30'000);
    compare("300,000 files in 30,000 folders", all(spread), 7, 330'000);
    const std::string flat = MadeTree::flat(300'000);
    compare("300,000 files in one folder", all(flat), 5, 300'000);
    const std::string chain = MadeTree::chain(200, 100);
    compare("a chain 200 levels deep, 100 files each", all(chain), 15, 20'200);
    printBytesPerNode("300,000 files in 30,000 folders", spread);
    compare("the same, printed", {ours(spread), text(programs, spread), json(programs, spread)}, 5,
            330'000);
    if (!isLarge) {
        return;
    }
    const std::string million = MadeTree::flat(1'000'000);
    compare("1,000,000 files in one folder", {bare(million), ours(million), oursInDetail(million)},
            3, 1'000'000);
    const std::string worst = MadeTree::spread(250'000, 250'000);
    printBytesPerNode("250,000 files in 250,000 folders", worst);
    const std::string huge = MadeTree::spread(3'000'000, 300'000);
    compare("3,000,000 files in 300,000 folders", all(huge), 2, 3'300'000);
}

}
}

int main(int argc, char** argv) {
    const bool isLarge = argc > 1 && std::strcmp(argv[1], "--large") == 0;
    const std::string program = argv[0];
    tolvane::runAll(program.substr(0, program.rfind('/')), isLarge);
    return 0;
}
