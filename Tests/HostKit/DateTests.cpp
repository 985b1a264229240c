#include <HostKit/Date.h>

#include <gtest/gtest.h>

#include <limits>

namespace tolvane {
namespace {

TEST(Date, isWrittenInUTCToTheSecond) {
    EXPECT_EQ(iso8601(0), "1970-01-01T00:00:00Z");
    EXPECT_EQ(iso8601(1794773666.999), "2026-11-15T20:14:26Z");
    EXPECT_EQ(iso8601(951827696), "2000-02-29T12:34:56Z");
    EXPECT_EQ(iso8601(-0.5), "1969-12-31T23:59:59Z") << "cut towards the past";
    EXPECT_EQ(iso8601(-62135596801), "0000-12-31T23:59:59Z");
}

TEST(Date, staysWithinFourDigitsOfYear) {
    EXPECT_EQ(iso8601(1e300), "9999-12-31T23:59:59Z");
    EXPECT_EQ(iso8601(-1e300), "0000-01-01T00:00:00Z");
    EXPECT_EQ(iso8601(std::numeric_limits<Date>::quiet_NaN()), "1970-01-01T00:00:00Z");
}

}
}
