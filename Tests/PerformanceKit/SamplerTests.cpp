#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/VolumeSampler.h>
#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tolvane {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(MemorySampler, derivesWhatIsUsed) {
    const MemoryCounters counters{4096, 4096'000, 100, 1, 200, 2, 3, 4, 300, 5, 6, 2};
    const MemoryStats stats = MemorySampler::stats(counters).value();
    EXPECT_EQ(stats, (MemoryStats{4096'000, 409'600, 4096, 819'200, 8192, 12'288, 16'384, 1'228'800,
                                  5, 6, 2}));
    EXPECT_EQ(stats.used(), 4096 * 400);
    EXPECT_DOUBLE_EQ(stats.usedFraction(), 0.4);
    EXPECT_EQ((MemoryStats{.total = 5, .free = 3, .inactive = 2, .speculative = 1}).used(), 0);
    EXPECT_EQ(MemoryStats{}.usedFraction(), 0);
    std::string labels;
    for (const std::int32_t level : {4, 2, 1, 3, -7}) {
        labels += MemoryStats{.pressureLevel = level}.pressureLabel() + " ";
    }
    EXPECT_EQ(labels, "Critical Warning Normal Normal Normal ");
    for (const auto count :
         {&MemoryCounters::free, &MemoryCounters::active, &MemoryCounters::inactive,
          &MemoryCounters::wired, &MemoryCounters::compressed, &MemoryCounters::purgeable,
          &MemoryCounters::speculative}) {
        MemoryCounters tooLarge = counters;
        tooLarge.*count = INT64_MAX / 4096 + 1;
        EXPECT_FALSE(MemorySampler::stats(tooLarge));
    }
    EXPECT_FALSE(MemorySampler::stats({.unit = -1}));
    EXPECT_FALSE(MemorySampler::stats({.unit = 1, .total = -1}));
}

/// "123 2097152 1.5 name" of each.
std::vector<std::string> described(const std::vector<HeavyProcess>& processes) {
    std::vector<std::string> lines;
    for (const HeavyProcess& of : processes) {
        lines.push_back(fmt::format("{} {} {} {}", of.pid, of.rssBytes, of.cpuPercent, of.name));
    }
    return lines;
}

TEST(ProcessSampler, readsWhatPsPrints) {
    const std::string name = "/Applications/A B.app/Contents/MacOS/A  B";
    const auto parsed = [](std::string_view text) {
        return described(ProcessSampler::parse(text, 3));
    };
    EXPECT_THAT(parsed("  123   2048  1.5 " + name + "  \n"),
                ElementsAre("123 2097152 1.5 " + name));
    EXPECT_EQ((HeavyProcess{1, name, 0, 0}).displayName(), "A  B");
    EXPECT_THAT(parsed("1 10 0.0 a\n\n2 x 0.0 b\n3 30 0,5 c\n4 40\n5 50 0.0\n6 60 0.0   \n"
                       "7 70 nan d\n8 80 1e400 e\n9 9007199254740993 0.0 f\n2147483648 99 0.0 g\n"
                       "\t10 10 99.9 h\r\n-1 20 -0.5 i\n11 99\t2 0.0 j\n12 1 0 k\n"),
                ElementsAre("-1 20480 -0.5 i", "1 10240 0 a", "10 10240 99.9 h"))
        << "equally heavy ones keep their order, and no more than three are wanted";
    std::string equal;
    for (int pid = 1; pid <= 40; ++pid) {
        equal += fmt::format("{} 1 0.0 a\n", pid);
    }
    EXPECT_THAT(parsed(equal), ElementsAre("1 1024 0 a", "2 1024 0 a", "3 1024 0 a"));
    EXPECT_THAT(parsed("12 1 0 \0k"s), ElementsAre("12 1024 0 \0k"s));
    EXPECT_THAT(ProcessSampler::parse("1 1 1 a", 0), IsEmpty());
    std::string longLine;
    longLine.resize(10'000'000, '9');
    EXPECT_THAT(parsed("1 1 " + longLine + " a\n" + longLine), IsEmpty());
}

TEST(ProcessSampler, listsRealProcessesByTheirPrograms) {
    const HostLayout layout = HostLayout::current();
    const ListeningProcess made({"127.0.0.1"}, "a b (c");
    const auto find = [&](const HostLayout::Sources& sources) {
        std::string found;
        for (const HeavyProcess& process : ProcessSampler::top(99'999, layout.tools, sources)) {
            found += process.pid == made.pid() ? process.name : "";
        }
        return found;
    };
    EXPECT_EQ(find(layout.sources), std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_EQ(find({FileURL("/nowhere"), {}, {}}), "a b (c") << "which ended, or is another's";
}

TEST(ProcessSampler, listsWhatItCanWhenPsFails) {
    const TemporaryHome home;
    const auto top = [&](const FileURL& ps, const std::function<bool()>& isCancelled = {}) {
        HostLayout::Tools tools = HostLayout::darwin(home.url()).tools;
        tools.heavyProcesses.executable = ps;
        return described(ProcessSampler::top(8, tools, {}, isCancelled));
    };
    EXPECT_THAT(top(home.url("none")), IsEmpty());
    EXPECT_THAT(top(madeUpTool(home, "echo \"1 1 0.0 $*\"; echo no >&2; exit 1")),
                ElementsAre("1 1024 0 -axo pid=,rss=,%cpu=,comm= -m"));
    EXPECT_THAT(top(madeUpTool(home, "head -c 70000 /dev/zero >&2; yes '1 1 0 y' | head -n 9999")),
                testing::SizeIs(8));
    int asked = 0;
    EXPECT_THAT(top(madeUpTool(home, "trap '' TERM; exec sleep 100"), [&] { return ++asked > 2; }),
                IsEmpty());
}

TEST(VolumeSampler, namesAVolumeAndToleratesMissingFigures) {
    const HostLayout::Sources sources = HostLayout::current().sources;
    EXPECT_GT(VolumeSampler::sample(FileURL("/"), sources).value().total, 0);
    EXPECT_FALSE(VolumeSampler::sample(FileURL("/nowhere/at all"), sources));
    const VolumeStats bare = VolumeSampler::stats(FileURL("/a/b"), {.total = 10}, std::nullopt);
    EXPECT_EQ(bare, (VolumeStats{"b", 10, 10, 0, 0}));
    EXPECT_EQ(bare.usedFraction() + (VolumeStats{"", 0, 5, 0, 0}).usedFraction(), 0);
    EXPECT_EQ(VolumeSampler::stats(FileURL("/"), {}, std::nullopt).name, "/");
    const VolumeStats all = VolumeSampler::stats(FileURL("/"), {8, 6, 5, 4}, "Disk");
    EXPECT_EQ(all, (VolumeStats{"Disk", 8, 6, 5, 4}));
    EXPECT_EQ(all.usedFraction(), 0.25);
}

}
}
