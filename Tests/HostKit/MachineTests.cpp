#include <HostKit/Machine.h>
#include <Support/RunProgram.h>
#include <Support/TemporaryHome.h>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <vector>

namespace tolvane {
namespace {

TEST(Machine, knowsTheCapacityOfAVolume) {
    const TemporaryHome home;
    const std::optional<VolumeCapacity> capacity = Machine::volume(home.url());
    ASSERT_TRUE(capacity);
    std::istringstream told(
        runProgram({"df", "-B1", "--output=size,avail", home.url().path()}).output);
    std::string heading;
    Bytes total = 0;
    Bytes available = 0;
    std::getline(told, heading) >> total >> available;
    EXPECT_EQ(capacity->total, total);
    // Others write meanwhile.
    EXPECT_NEAR(static_cast<double>(capacity->available.value_or(0)),
                static_cast<double>(available), static_cast<double>(total) / 20);
    EXPECT_FALSE(Machine::volume(home.url("missing")));
}

/// A machine whose /proc, /sys and /dev lie in a temporary folder.
class MadeUpMachine : public ::testing::Test {
  protected:
    /// The counters in the order of their declaration; "" when there are none.
    std::string memory() const {
        const auto of = Machine::memory(sources);
        return of ? fmt::format("{}: {} {} {} {} {} {} {}, {} of {}, {}", of->total / of->unit,
                                of->free, of->active, of->inactive, of->wired, of->compressed,
                                of->purgeable, of->speculative, of->swapUsed, of->swapTotal,
                                of->pressureLevel)
                  : "";
    }

    const TemporaryHome home;
    const HostLayout::Sources sources{home.url("proc"), home.url("sys"), home.url("dev")};
};

TEST_F(MadeUpMachine, tellsItsMemory) {
    const std::string least = "MemTotal: 100 kB\nMemFree: 10 kB\nMemAvailable: 40 kB\n";
    const std::string plain = "100: 10 0 30 0 0 0 0, 0 of 0, 1";
    EXPECT_EQ(memory(), "") << "without a file";
    for (const auto& [text, expected] : std::initializer_list<std::pair<std::string, std::string>>{
             {least, plain},
             {"MemTotal: 100\nMemFree: 50\nMemAvailable: 40", "100: 40 0 0 0 0 0 0, 0 of 0, 1"},
             {least + "Active: 1 kB\nInactive: 9 kB\nUnevictable: 2 kB\nSUnreclaim: 3 kB\n"
                      "KernelStack: 4 kB\nPageTables: 5 kB\nPercpu: 6 kB\nZswap: 7 kB\n"
                      "SReclaimable: 8 kB\nSwapTotal: 20 kB\nSwapFree: 5 kB\n",
              "100: 10 1 30 20 7 8 0, 15360 of 20480, 1"},
             {least + "SReclaimable: 8\nKReclaimable: 9\nSwapTotal: 1\nSwapFree: 2",
              "100: 10 0 30 0 0 9 0, 0 of 1024, 1"},
             {"no\n\n: 1\nActive: -5 kB\nPercpu: x kB\nZswap:\n" + least + "MemFree: 11 kB", plain},
             {least + "SwapTotal: 9223372036854775807 kB", plain},
             {least + "Unevictable: 9223372036854775807\nPercpu: 9223372036854775807", ""},
             {"MemTotal: 9223372036854775807\nMemFree: 1\nMemAvailable: 1", ""},
             {"MemTotal: 100 kB\nMemFree: 10 kB\n", ""}}) {
        home.write("proc/meminfo", text);
        EXPECT_EQ(memory(), expected) << text;
    }
    home.write("proc/meminfo", least + "Zswap: 7 kB\n");
    for (const auto& [text, level] : std::initializer_list<std::pair<const char*, int>>{
             {"some avg10=9.99 avg60=50.00\nfull avg10=9.99\n", 1},
             {"some avg10=10.00 avg60=0.00\nfull avg10=9.99\n", 2},
             {"some avg10=99.00\nfull avg10=10.00 avg60=0.00 total=1\n", 4},
             {"some avg10=\nfull avg10=nan\nsome avg10=11,5\nsome", 1}}) {
        home.write("proc/pressure/memory", text);
        EXPECT_THAT(memory(), testing::EndsWith(", " + std::to_string(level))) << text;
    }
    home.write("sys/block/zram0/mm_stat", "  4096 74 12288 0 12288 0 0\n");
    home.write("sys/block/zram1/mm_stat", "4096 74 4096\n");
    home.write("sys/block/zram2/mm_stat", "4096 74 -4096\n");
    home.write("sys/block/sda/mm_stat", "1 1 4096\n");
    EXPECT_THAT(memory(), testing::HasSubstr(" 23 0 0, "));
    home.write("sys/block/zram4/mm_stat", "0 0 9223372036854775807\n");
    EXPECT_EQ(memory(), "") << "more than can be";
}

TEST_F(MadeUpMachine, tellsTheLabelsOfItsVolumes) {
    const std::string device = home.write("dev/sd\xFF").path();
    const auto mount = [&](const std::string& source) {
        home.write("proc/self/mountinfo", "1 0 8:1 / / rw - ext4 /dev/other rw\n2 1 8:2 / " +
                                              home.url().path() + " rw - ext4 " + source + " rw\n");
        return Machine::volumeName(home.url("sys"), sources);
    };
    home.makeFolder("sys");
    EXPECT_EQ(mount(device), std::nullopt);
    home.makeLink("dev/disk/by-label/gone", "../../nothing");
    home.makeLink(R"(dev/disk/by-label/My\x20\xff\x2)", "../../sd\xFF");
    EXPECT_EQ(mount(device), "My \xFF\\x2");
    EXPECT_EQ(mount(home.makeLink("dev/mapper", device).path()), "My \xFF\\x2");
    EXPECT_EQ(mount("overlay"), std::nullopt);
    EXPECT_EQ(mount(home.path("dev/none")), std::nullopt);
}

TEST_F(MadeUpMachine, tellsWhetherItHasAGraphicsProcessor) {
    const auto isKnownBy = [&](const std::string& device) {
        home.write("dev/" + device);
        const bool isKnown = Machine::hasGraphicsProcessor(sources);
        std::filesystem::remove(home.path("dev/" + device));
        return isKnown;
    };
    EXPECT_FALSE(Machine::hasGraphicsProcessor(sources)) << "without any device";
    EXPECT_FALSE(isKnownBy("dri/card0")) << "it only shows pictures";
    EXPECT_TRUE(isKnownBy("dri/renderD128") && isKnownBy("nvidiactl") && isKnownBy("dxg"));
}

TEST_F(MadeUpMachine, givesFreeMemoryBack) {
    constexpr std::size_t size = 4000;
    std::vector<std::string> blocks(20'000);
    for (std::string& block : blocks) {
        block.assign(size, 'x');
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        std::string(i % 16 == 0 ? blocks[i] : "").swap(blocks[i]);
    }
    const HostLayout::Sources system = HostLayout::current().sources;
#ifndef __SANITIZE_ADDRESS__ // whose allocator keeps what is free
    EXPECT_GT(Machine::releaseAllocatorPages(system), Bytes{10'000 * size});
#endif
    EXPECT_LT(Machine::releaseAllocatorPages(system), Bytes{10'000 * size}) << "again";
    EXPECT_EQ(Machine::releaseAllocatorPages(sources), 0) << "nothing told";
}

}
}
