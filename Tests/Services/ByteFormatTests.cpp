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

TEST(ByteFormat, readsWhatPeopleTypeAndRefusesTheRest) {
    const std::vector<std::pair<std::string, Bytes>> sizes{
        {"0", 0},
        {" 1 MB ", 1'000'000},
        {"500 KB", 500'000},
        {"1.5gb", 1.5e9},
        {"1MiB", 1'048'576},
        {"1,048,576", 1'048'576},
        {"12 bytes", 12},
        {".25 k", 250},
        {"0.1 TB", 100'000'000'000},
        {"2.000001 K", 2000},
        {"9223372036854775807", std::numeric_limits<Bytes>::max()}};
    for (const auto& [text, size] : sizes) {
        EXPECT_EQ(ByteFormat::parse(text).value_or(-1), size) << text;
    }
    for (const std::string text :
         {"", " ", ".", "MB", "-1", "1 MB 2", "1,5 MB", "1,0000", "0x10", "1e6", "1..2", "\xff",
          "one", "9223372036854775808", "9223372036854775807.6", "99999999999 TB"}) {
        EXPECT_FALSE(ByteFormat::parse(text)) << text;
    }
    for (const auto& [size, text] :
         std::vector<std::pair<Bytes, std::string>>{{0, "0 KB"},
                                                    {1'500'000, "1.5 MB"},
                                                    {1'048'576, "1 MiB"},
                                                    {1'048'577, "1,048,577 bytes"}}) {
        EXPECT_EQ(ByteFormat::exactText(size), text);
        EXPECT_EQ(ByteFormat::parse(text), size);
    }
}

}
}
