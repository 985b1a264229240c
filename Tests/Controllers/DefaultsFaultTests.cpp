#include <Support/OwnMount.h>
#include <Support/TemporaryHome.h>

#include <Controllers/UserDefaults.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tolvane {
namespace {

TEST(DefaultsFault, aFullDiskKeepsTheValuesThatWereStored) {
    const TemporaryHome home;
    home.makeFolder("disk");
    const OwnMount disk = OwnMount::memory(home.path("disk"), "size=64k");
    const FileURL file = home.url("disk/settings.conf");
    UserDefaults(file).set("good", "value");
    const std::string stored = home.read("disk/settings.conf");
    EXPECT_NE(stored.find("good=value"), std::string::npos);
    std::ofstream filler(home.path("disk/filler"));
    filler << std::string(100'000, 'x') << std::flush;
    ASSERT_FALSE(filler) << "the volume was to be full";
    {
        UserDefaults defaults(file);
        defaults.set("late", QString(50'000, 'y'));
        EXPECT_EQ(defaults.text("good"), "value");
        EXPECT_EQ(defaults.text("late")->size(), 50'000);
    }
    EXPECT_EQ(home.read("disk/settings.conf"), stored);
}

}
}
