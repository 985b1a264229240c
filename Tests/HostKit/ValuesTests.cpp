#include <HostKit/Checked.h>
#include <HostKit/Date.h>
#include <HostKit/Digest.h>

#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace tolvane {
namespace {

TEST(CheckedDeathTest, computesUpToTheLimitsAndStopsTheProgramBeyond) {
    EXPECT_EQ(sum(INT64_MAX - 1, 1), INT64_MAX);
    EXPECT_EQ(difference(INT64_MIN + 1, 1), INT64_MIN);
    EXPECT_EQ(product(INT64_MAX / 512, 512), INT64_MAX - 511);
    std::int64_t total = -5;
    add(total, 12);
    EXPECT_EQ(total, 7);
    EXPECT_DEATH(static_cast<void>(sum(INT64_MAX, 1)), "64 bits \\(addition\\)");
    EXPECT_DEATH(static_cast<void>(difference(INT64_MIN, 1)), "64 bits \\(subtraction\\)");
    EXPECT_DEATH(static_cast<void>(product(INT64_MAX / 512 + 1, 512)), "\\(multiplication\\)");
}

TEST(Date, isWrittenInUTCToTheSecondWithFourDigitsOfYear) {
    EXPECT_EQ(iso8601(1794773666.999), "2026-11-15T20:14:26Z");
    EXPECT_EQ(iso8601(951827696), "2000-02-29T12:34:56Z");
    EXPECT_EQ(iso8601(-0.5), "1969-12-31T23:59:59Z") << "cut towards the past";
    EXPECT_EQ(iso8601(-62135596801), "0000-12-31T23:59:59Z");
    EXPECT_EQ(iso8601(1e300), "9999-12-31T23:59:59Z");
    EXPECT_EQ(iso8601(-1e300), "0000-01-01T00:00:00Z");
    EXPECT_EQ(iso8601(std::numeric_limits<Date>::quiet_NaN()), "1970-01-01T00:00:00Z");
}

// Known answers of FIPS 180-4.
TEST(Digest, givesTheKnownAnswersOneAfterAnother) {
    Digest digest;
    EXPECT_EQ(hexadecimal(digest.finish()),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    const std::string thousand(1000, 'a');
    for (int i = 0; i < 1000; ++i) {
        digest.update(std::as_bytes(std::span(thousand)));
    }
    EXPECT_EQ(hexadecimal(digest.finish()),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

}
}
