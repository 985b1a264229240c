#include <Services/ByteFormat.h>

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace tolvane {
namespace {

TEST(ByteFormat, roundsAtEveryBoundaryAsStated) {
    const std::vector<std::pair<Bytes, std::string>> table{
        {0, "0 KB"},
        {1, "0 KB"},
        {49, "0 KB"},
        {50, "0.1 KB"},
        {500, "0.5 KB"},
        {949, "0.9 KB"},
        {950, "1 KB"},
        {999, "1 KB"},
        {1'000, "1 KB"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {1'000'000, "1 MB"},
        {1'049'999, "1 MB"},
        {1'050'000, "1.1 MB"},
        {1'500'000, "1.5 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {1'004'999'999, "1 GB"},
        {1'005'000'000, "1.01 GB"},
        {1'100'000'000, "1.1 GB"},
        {2'000'000'000, "2 GB"},
        {999'994'999'999, "999.99 GB"},
        {999'995'000'000, "1 TB"},
        {1'050'000'000'000, "1.05 TB"},
        {999'999'000'000'000, "1000 TB"},
        {std::numeric_limits<Bytes>::max(), "9223372.04 TB"},
        {-1, "0 KB"},
        {-500, "-0.5 KB"},
        {-999'500, "-1 MB"},
        {std::numeric_limits<Bytes>::min(), "-9223372.04 TB"},
    };
    for (const auto& [bytes, expected] : table) {
        EXPECT_EQ(ByteFormat::text(bytes), expected) << bytes;
    }
}

}
}
