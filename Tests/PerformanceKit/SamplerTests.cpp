#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <PerformanceKit/MemorySampler.h>
#include <PerformanceKit/ProcessSampler.h>
#include <PerformanceKit/VolumeSampler.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tolvane {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Bytes largest = INT64_MAX;

TEST(MemorySampler, derivesWhatIsUsed) {
    const MemoryCounters counters{.unit = 4096,
                                  .total = 4096'000,
                                  .free = 100,
                                  .active = 1,
                                  .inactive = 200,
                                  .wired = 2,
                                  .compressed = 3,
                                  .purgeable = 4,
                                  .speculative = 300,
                                  .swapTotal = 5,
                                  .swapUsed = 6,
                                  .pressureLevel = 2};
    const MemoryStats stats = MemorySampler::stats(counters).value();
    EXPECT_EQ(stats, (MemoryStats{4096'000, 409'600, 4096, 819'200, 8192, 12'288, 16'384, 1'228'800,
                                  5, 6, 2}));
    EXPECT_EQ(stats.used(), 4096 * 400);
    EXPECT_DOUBLE_EQ(stats.usedFraction(), 0.4);
    EXPECT_EQ((MemoryStats{.total = 5, .free = 3, .inactive = 2, .speculative = 1}).used(), 0);
    EXPECT_EQ(MemoryStats{}.usedFraction(), 0);
    for (const auto& [level, label] : std::initializer_list<std::pair<int, const char*>>{
             {4, "Critical"}, {2, "Warning"}, {1, "Normal"}, {3, "Normal"}, {-7, "Normal"}}) {
        EXPECT_EQ(MemoryStats{.pressureLevel = level}.pressureLabel(), label);
    }
    for (std::int64_t MemoryCounters::*const count :
         {&MemoryCounters::free, &MemoryCounters::active, &MemoryCounters::inactive,
          &MemoryCounters::wired, &MemoryCounters::compressed, &MemoryCounters::purgeable,
          &MemoryCounters::speculative}) {
        MemoryCounters tooLarge = counters;
        tooLarge.*count = largest / 4096 + 1;
        EXPECT_FALSE(MemorySampler::stats(tooLarge));
    }
    EXPECT_FALSE(MemorySampler::stats({.unit = -1}));
    EXPECT_FALSE(MemorySampler::stats({.unit = 1, .total = -1}));
    EXPECT_FALSE(MemorySampler::sample({FileURL("/nowhere"), FileURL("/nowhere"), {}}));
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
        return described(ProcessSampler::parse(text, 8));
    };
    EXPECT_THAT(parsed("  123   2048  1.5 " + name + "  \n"),
                ElementsAre("123 2097152 1.5 " + name));
    EXPECT_EQ((HeavyProcess{1, name, 0, 0}).displayName(), "A  B");
    EXPECT_THAT(parsed("1 10 0.0 a\n\n2 x 0.0 b\n3 30 0,5 c\n4 40\n5 50 0.0\n6 60 0.0   \n"
                       "7 70 nan d\n8 80 1e400 e\n9 9007199254740993 0.0 f\n2147483648 1 0.0 g\n"
                       "\t10 10 99.9 h\r\n-1 20 -0.5 i\n11 1\t2 0.0 j\n12 1 0 \0k"s),
                ElementsAre("-1 20480 -0.5 i", "1 10240 0 a", "10 10240 99.9 h", "12 1024 0 \0k"s))
        << "equally heavy ones keep their order";
    std::string many;
    for (int pid = 1; pid <= 20; ++pid) {
        many += fmt::format("{} {} 0.0 p\n", pid, pid * 7 % 20);
    }
    EXPECT_EQ(ProcessSampler::parse(many, 8).size(), 8U);
    EXPECT_EQ(ProcessSampler::parse(many, 8)[0].rssBytes, 19 * 1024);
    EXPECT_THAT(ProcessSampler::parse(many, 0), IsEmpty());
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
    EXPECT_EQ(ProcessSampler::top(2, layout.tools, layout.sources).size(), 2U);
}

TEST(ProcessSampler, listsNothingWhenPsFails) {
    const TemporaryHome home;
    const auto top = [&](const FileURL& ps, const std::function<bool()>& isCancelled = {}) {
        return described(ProcessSampler::top(
            8, {.lsof = {}, .processTree = {}, .heavyProcesses = {ps, {}}}, {}, isCancelled));
    };
    EXPECT_THAT(top(home.url("none")), IsEmpty());
    EXPECT_THAT(top(madeUpTool(home, "echo 1 1 0.0 kept; echo no >&2; exit 1")),
                ElementsAre("1 1024 0 kept"))
        << "whatever the status";
    EXPECT_THAT(top(madeUpTool(home, "head -c 70000 /dev/zero >&2; yes '1 1 0 y' | head -n 9999")),
                testing::SizeIs(8));
    int asked = 0;
    EXPECT_THAT(top(madeUpTool(home, "trap '' TERM; exec sleep 100"), [&] { return ++asked > 2; }),
                IsEmpty());
}

TEST(VolumeSampler, namesAVolumeAndToleratesMissingFigures) {
    const TemporaryHome home;
    const HostLayout::Sources sources = HostLayout::current().sources;
    EXPECT_GT(VolumeSampler::sample(FileURL("/"), sources).value().total, 0);
    EXPECT_FALSE(VolumeSampler::sample(home.url("none"), sources));
    const VolumeStats bare = VolumeSampler::stats(FileURL("/a/b"), {.total = 10}, std::nullopt);
    EXPECT_EQ(bare, (VolumeStats{"b", 10, 10, 0, 0}));
    EXPECT_EQ(bare.usedFraction(), 0);
    EXPECT_EQ(VolumeSampler::stats(FileURL("/"), {}, std::nullopt).name, "/");
    const VolumeStats all = VolumeSampler::stats(FileURL("/"), {8, 6, 5, 4}, "Disk");
    EXPECT_EQ(all, (VolumeStats{"Disk", 8, 6, 5, 4}));
    EXPECT_EQ(all.usedFraction(), 0.25);
    EXPECT_EQ((VolumeStats{"", 0, 5, 0, 0}).usedFraction(), 0);
}

}
}
