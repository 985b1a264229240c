#include <HostKit/DesktopEntry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

std::optional<std::string> programOf(const std::string& command) {
    return DesktopEntry::parse("[Desktop Entry]\nExec=" + command + "\n")->program();
}

TEST(DesktopEntry, tellsTheProgramThatItStarts) {
    struct Case {
        const char* command;
        std::optional<std::string> program;
    };
    const std::vector<Case> cases = {{"/opt/app/run --new %U", "/opt/app/run"},
                                     {"run", "run"},
                                     {"\"/home/a b/App Image\" %F", "/home/a b/App Image"},
                                     {R"("/a/\\"q\\"\\$x\\`y\\\\z" b)", R"(/a/"q"$x`y\z)"},
                                     {"/a\\sb", "/a"},
                                     {R"("/a\sb" c)", "/a b"},
                                     {"env GDK=x11 LC_ALL=C /a/run x=y", "/a/run"},
                                     {"/usr/bin/env -i \"A=1 2\" run", "run"},
                                     {"A=b run", "run"},
                                     {"/a/k=v/run", "/a/k=v/run"},
                                     {"%i %c /a/run", "/a/run"},
                                     {"/a/100%%/run%f", "/a/100%/run"},
                                     {"\"/a/unclosed run", "/a/unclosed run"},
                                     {"  \t", std::nullopt},
                                     {"env", std::nullopt},
                                     {"\"\"", std::nullopt},
                                     {"%", "%"},
                                     {"\\", "\\"}};
    for (const Case& each : cases) {
        EXPECT_EQ(programOf(each.command), each.program) << each.command;
    }
    EXPECT_EQ(DesktopEntry::parse("[Desktop Entry]\nName=x")->program(), std::nullopt);
}

TEST(DesktopEntry, tellsValuesInTheLanguageAskedFor) {
    const auto entry = DesktopEntry::parse("# comment\n\n[Desktop Entry]\r\n Name = Paint \r\n"
                                           "Name[de]=Malen\nName[de_AT]=Moln\nName[sr@latin]=Slik\n"
                                           "Comment=a\\tb\\nc\\\\d\\q\nNo value\n=x\n"
                                           "Again=1\nAgain=2\n[Desktop Action New]\nName=New\n");
    ASSERT_TRUE(entry);
    const std::vector<std::pair<const char*, const char*>> names = {
        {"C", "Paint"},         {"", "Paint"},           {"de_DE.UTF-8", "Malen"},
        {"de_AT@euro", "Moln"}, {"sr_RS@latin", "Slik"}, {"sr_RS", "Paint"}};
    for (const auto& [locale, name] : names) {
        EXPECT_EQ(entry->localized("Name", locale), name) << locale;
    }
    EXPECT_EQ(entry->value("Comment"), "a\tb\nc\\d\\q");
    EXPECT_EQ(entry->value("Again"), "2");
    EXPECT_EQ(entry->value("Missing"), std::nullopt);
}

TEST(DesktopEntry, refusesWhatIsNone) {
    using namespace std::string_literals;
    for (const std::string& text :
         {""s, "Name=x"s, "[Other]\nName=x"s, "[Desktop Entry]\nName=\0x"s,
          "[Desktop Entry]\nName=" + std::string(DesktopEntry::largestSize, 'x')}) {
        EXPECT_FALSE(DesktopEntry::parse(text));
    }
}

}
}
