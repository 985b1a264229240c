#include "Harness.h"
#include "WholeHome.h"

#include <Support/OwnMount.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tolvane {
namespace {

constexpr const char* settings = ".config/Tolvane/Tolvane.conf";

std::string startedWith(Harness& harness) {
    return std::to_string(harness.app().currentModule()) + ' ' +
           harness.controller().spaceAnalysisView().toStdString();
}

/// Works with the program where its home folder takes nothing, which it is again afterwards.
void workOn(const TemporaryHome& home) {
    const std::string stored = home.read(settings);
    const std::vector<TreeState> before = wholeState(home);
    {
        Harness harness(home);
        EXPECT_EQ(startedWith(harness), "3 list");
        harness.showModule("Space Analysis");
        harness.window().resize(900, 600);
        harness.controller().setSpaceAnalysisView("grid");
        harness.scan(home.url("data"));
        EXPECT_EQ(startedWith(harness), "0 grid") << "remembered while the program runs";
        harness.click(harness.itemNamed("goes"));
        harness.press(Qt::Key_Delete);
        harness.click("reviewRemove");
        ASSERT_TRUE(Harness::eventually(
            [&] { return harness.controller().banner().startsWith("Could not move "); }));
    }
    EXPECT_EQ(home.read(settings), stored);
    EXPECT_EQ(wholeState(home), before);
}

/// Once there is room again.
void workAsUsual(const TemporaryHome& home) {
    {
        Harness harness(home);
        harness.controller().setSpaceAnalysisView("list");
        harness.controller().setSpaceAnalysisView("grid");
    }
    const std::string stored = home.read(settings);
    EXPECT_NE(stored.find("initialModule=ports\n"), std::string::npos) << stored;
    EXPECT_NE(stored.find("spaceAnalysisView=grid\n"), std::string::npos) << stored;
}

class DiskFault : public testing::Test {
  protected:
    DiskFault()
        : disk(OwnMount::memory(outer.path("disk"), "size=8m"))
        , home(outer.path("disk")) {
        fillWholeHome(home);
        home.write(settings, "[General]\ninitialModule=ports\nspaceAnalysisView=list\n");
    }

    const TemporaryHome outer;
    const OwnMount disk;
    const TemporaryHome home;
};

TEST_F(DiskFault, aFullDiskLeavesAProgramThatWorksAndLosesNothing) {
    {
        std::ofstream filler(outer.path("disk/filler"));
        const std::string megabyte(1'000'000, 'x');
        for (int count = 0; count < 10; ++count) {
            filler << megabyte << std::flush;
        }
        ASSERT_FALSE(filler) << "the volume was to be full";
    }
    workOn(home);
    std::filesystem::remove(outer.path("disk/filler"));
    workAsUsual(home);
}

TEST_F(DiskFault, aReadOnlyDiskLeavesAProgramThatWorksAndLosesNothing) {
    disk.makeReadOnly();
    workOn(home);
    disk.makeWritable();
    workAsUsual(home);
}

}
}
