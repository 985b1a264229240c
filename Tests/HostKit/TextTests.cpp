#include <HostKit/Text.h>

#include <gtest/gtest.h>

#include <array>

namespace tolvane {
namespace {

TEST(Text, showsAndCountsEveryBadByteAsOneCharacter) {
    struct Case {
        std::string_view bytes;
        std::string_view shown;
        std::size_t characters;
    };
    constexpr std::array<Case, 9> cases{{
        {"", "", 0},
        {"plain", "plain", 5},
        {"\u00e9\u4e2d\U0001F600", "\u00e9\u4e2d\U0001F600", 3},
        {"e\u0301", "e\u0301", 2},
        {"a\xffz", "a\uFFFDz", 3},
        {"\xe4\xb8", "\uFFFD\uFFFD", 2},                    // ends within a character
        {"\xc0\xaf", "\uFFFD\uFFFD", 2},                    // overlong
        {"\xed\xa0\x80", "\uFFFD\uFFFD\uFFFD", 3},          // surrogate
        {"\xf4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD", 4} // beyond U+10FFFF
    }};
    for (const Case& each : cases) {
        EXPECT_EQ(displayText(each.bytes), each.shown);
        EXPECT_EQ(characterCount(each.bytes), each.characters) << each.shown;
        EXPECT_EQ(isValidUTF8(each.bytes), each.bytes == each.shown) << each.shown;
        EXPECT_TRUE(isValidUTF8(displayText(each.bytes))) << each.shown;
    }
}

TEST(Text, isLowercasedInEveryScriptAndLocale) {
    EXPECT_EQ(lowercased("AZ[az-09"), "az[az-09");
    EXPECT_EQ(lowercased("\u00c9T\u00c9 \u0416 I\xff"), "\u00e9t\u00e9 \u0436 i\uFFFD");
}

TEST(Text, knowsSpellingsOfOneText) {
    struct Case {
        std::string_view a;
        std::string_view b;
        bool isEqual;
    };
    constexpr std::array<Case, 11> cases{{
        {"/Caf\u00e9/x", "/Cafe\u0301/x", true},
        {"/Cafe", "/Cafe\u0301", false},
        {"/Cafe\u0301x", "/Cafexx", false},
        {"\u212a", "K", true},                    // the Kelvin sign is the letter
        {"\u1ea5", "a\u0302\u0301", true},        // two marks
        {"a\u0323\u0307", "a\u0307\u0323", true}, // marks in another order
        {"\u00e9", "\u00e8", false},              // differs within a character
        {"\ufb01", "fi", false},                  // only compatible
        {"/a", "/A", false},
        {"\xff/\u00e9", "\xff/e\u0301", false}, // no text at all
        {"\xff", "\xff", true},
    }};
    for (const Case& each : cases) {
        EXPECT_EQ(canonicallyEqual(each.a, each.b), each.isEqual) << each.a << " " << each.b;
        EXPECT_EQ(canonicallyEqual(each.b, each.a), each.isEqual) << each.b << " " << each.a;
    }
}

TEST(Text, findsAFolderAboveInAnySpelling) {
    EXPECT_TRUE(hasCanonicalPrefix("/Cafe\u0301/x", "/Caf\u00e9"));
    EXPECT_TRUE(hasCanonicalPrefix("/Caf\u00e9", "/Cafe\u0301"));
    EXPECT_TRUE(hasCanonicalPrefix("/usr/\xff", "/usr"));
    EXPECT_FALSE(hasCanonicalPrefix("/Cafe\u0301s", "/Caf\u00e9"));
    EXPECT_FALSE(hasCanonicalPrefix("/usr\u0301/x", "/usr")) << "the mark belongs to the name";
    EXPECT_FALSE(hasCanonicalPrefix("/usrlocal", "/usr"));
    EXPECT_FALSE(hasCanonicalPrefix("/us", "/usr"));
}

}
}
