#include <HostKit/Collation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace tolvane {
namespace {

using testing::ElementsAre;
using Names = std::vector<std::string>;

Names sorted(const Collation& collation, Names names) {
    std::stable_sort(names.begin(), names.end(), [&](const std::string& a, const std::string& b) {
        return collation.compare(a, b) < 0;
    });
    return names;
}

int sign(int value) {
    return static_cast<int>(value > 0) - static_cast<int>(value < 0);
}

TEST(Collation, ordersNamesAsPeopleDo) {
    const Collation collation("en_US.UTF-8");
    EXPECT_THAT(sorted(collation, {"node10", "v1.10", "b", "App 10", "node2", "B", "a", "v1.9",
                                   "app 9", "_", "caf\u00e9", "cafe", "cafz", ".hidden"}),
                ElementsAre("_", ".hidden", "a", "app 9", "App 10", "b", "B", "cafe", "caf\u00e9",
                            "cafz", "node2", "node10", "v1.9", "v1.10"));
    EXPECT_EQ(collation.compare("R\u00e9sum\u00e9", "re\u0301sume\u0301"), 0);
    EXPECT_LT(collation.compare("9999999999999999999999", "10000000000000000000000"), 0);
}

TEST(Collation, followsTheLanguage) {
    const Names words{"zebra", "\u00e4pple", "apple"};
    EXPECT_THAT(sorted(Collation("de_DE.UTF-8"), words),
                ElementsAre("apple", "\u00e4pple", "zebra"));
    EXPECT_THAT(sorted(Collation("sv_SE"), words), ElementsAre("apple", "zebra", "\u00e4pple"));
    for (const char* unknown : {"C", "C.UTF-8", "POSIX", "", "xx_YY", "!\xff", "@"}) {
        EXPECT_THAT(sorted(Collation(unknown), {"b10", "B2", "a", "Z"}),
                    ElementsAre("a", "B2", "b10", "Z"))
            << unknown;
    }
}

TEST(Collation, takesTheUsersLanguageFromTheFirstVariableThatIsSet) {
    const auto isSwedish = [](const char* all, const char* collate, const char* language) {
        ::setenv("LC_ALL", all, 1);
        ::setenv("LC_COLLATE", collate, 1);
        ::setenv("LANG", language, 1);
        return Collation().compare("z", "\u00e4") < 0;
    };
    EXPECT_TRUE(isSwedish("sv_SE.UTF-8", "de_DE", "de_DE"));
    EXPECT_TRUE(isSwedish("", "sv_SE.UTF-8", "de_DE"));
    EXPECT_TRUE(isSwedish("", "", "sv_SE.UTF-8"));
    EXPECT_FALSE(isSwedish("C", "sv_SE.UTF-8", "sv_SE.UTF-8"));
    EXPECT_FALSE(isSwedish("", "", ""));
}

TEST(Collation, givesKeysThatCompareAsTheNamesDo) {
    const Collation collation("en_US");
    const Names names{
        "",          "a",    "A",         "a b",    "ab", "node2", "node10",
        "\xff",      "\xfe", "caf\u00e9", "\u4e2d", "0",  "00",    std::string(255, 'n'),
        "cafe\u0301"};
    for (const std::string& a : names) {
        for (const std::string& b : names) {
            const int order = sign(collation.compare(a, b));
            EXPECT_EQ(sign(collation.sortKey(a).compare(collation.sortKey(b))), order)
                << a << " " << b;
        }
    }
    EXPECT_EQ(collation.compare("bad \xff", "bad \xfe"), 0) << "neither is text";
}

}
}
