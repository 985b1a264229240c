#include <HostKit/Machine.h>
#include <Support/RunProgram.h>
#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>

#include <sstream>

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
    EXPECT_NEAR(static_cast<double>(capacity->available.value_or(0)), static_cast<double>(available),
                static_cast<double>(total) / 20);
    EXPECT_FALSE(Machine::volume(home.url("missing")));
}

}
}
