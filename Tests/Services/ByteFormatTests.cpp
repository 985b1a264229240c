#include <Services/ByteFormat.h>

#include <gmock/gmock.h>

#include <limits>
#include <vector>

namespace tolvane {
namespace {

std::vector<std::string> texts(const std::vector<Bytes>& sizes) {
    std::vector<std::string> list;
    for (const Bytes size : sizes) {
        list.push_back(ByteFormat::text(size));
    }
    return list;
}

TEST(ByteFormat, roundsAtEveryBoundaryAsStated) {
    using testing::ElementsAre;
    using Limits = std::numeric_limits<Bytes>;
    EXPECT_THAT(
        texts({0, 1, 49, 50, 949, 950, 1'499, 1'500, 999'499}),
        ElementsAre("0 KB", "0 KB", "0 KB", "0.1 KB", "0.9 KB", "1 KB", "1 KB", "2 KB", "999 KB"));
    EXPECT_THAT(texts({999'500, 1'000'000, 1'049'999, 1'050'000, 999'949'999}),
                ElementsAre("1 MB", "1 MB", "1 MB", "1.1 MB", "999.9 MB"));
    EXPECT_THAT(texts({999'950'000, 1'004'999'999, 1'005'000'000, 1'100'000'000, 999'994'999'999}),
                ElementsAre("1 GB", "1 GB", "1.01 GB", "1.1 GB", "999.99 GB"));
    EXPECT_THAT(texts({999'995'000'000, 1'050'000'000'000, 999'999'000'000'000, Limits::max()}),
                ElementsAre("1 TB", "1.05 TB", "1000 TB", "9223372.04 TB"));
    EXPECT_THAT(texts({-1, -500, -999'500, Limits::min()}),
                ElementsAre("0 KB", "-0.5 KB", "-1 MB", "-9223372.04 TB"));
}

}
}
