#include <HostKit/Checked.h>

#include <gtest/gtest.h>

namespace tolvane {
namespace {

TEST(Checked, computesUpToTheLimits) {
    EXPECT_EQ(sum(INT64_MAX - 1, 1), INT64_MAX);
    EXPECT_EQ(difference(INT64_MIN + 1, 1), INT64_MIN);
    EXPECT_EQ(product(INT64_MAX / 512, 512), INT64_MAX - 511);
    std::int64_t total = -5;
    add(total, 12);
    EXPECT_EQ(total, 7);
}

TEST(CheckedDeathTest, stopsTheProgramBeyondThem) {
    EXPECT_DEATH(static_cast<void>(sum(INT64_MAX, 1)), "64 bits \\(addition\\)");
    EXPECT_DEATH(static_cast<void>(difference(INT64_MIN, 1)), "64 bits \\(subtraction\\)");
    EXPECT_DEATH(static_cast<void>(product(INT64_MAX / 512 + 1, 512)), "\\(multiplication\\)");
}

}
}
