#include "Harness.h"

#include <Support/FaultyFiles.h>
#include <Support/OddNames.h>

#include <Controllers/ShownText.h>
#include <gtest/gtest.h>

#include <set>

namespace tolvane {
namespace {

class FolderSheetTests : public testing::Test {
  protected:
    void ask(Harness& harness, const FileURL& start) {
        harness.app().chooser()->ask("Choose", start, [this](const FileURL& url) { chosen = url; });
        ASSERT_TRUE(
            harness.eventually([&] { return harness.app().chooser()->folders()->count() > 0; }));
        ASSERT_NE(harness.find("folderRows"), nullptr);
    }
    static QString shownPathOf(Harness& harness) {
        return harness.find("folderPath")->property("text").toString();
    }
    static bool reaches(Harness& harness, const FileURL& url) {
        return Harness::eventually([&] { return shownPathOf(harness) == shownPath(url); });
    }

    static bool lists(Harness& harness, int folders) {
        return Harness::eventually(
            [&] { return harness.app().chooser()->folders()->count() == folders; });
    }

    const TemporaryHome home;
    std::optional<FileURL> chosen;
};

TEST_F(FolderSheetTests, everyFolderCanBeChosenWhateverItsName) {
    for (const std::string& name : oddNames()) {
        home.makeFolder("odd/" + name);
    }
    Harness harness(home);
    std::set<FileURL> all;
    for (std::size_t i = 0; i < oddNames().size(); ++i) {
        ask(harness, home.url("odd"));
        harness.click("folderHidden");
        const int row = static_cast<int>(i);
        ASSERT_TRUE(lists(harness, static_cast<int>(oddNames().size())));
        harness.press(Qt::Key_Home);
        for (int step = 0; step < row; ++step) {
            harness.press(Qt::Key_Down);
        }
        harness.click("folderChoose");
        ASSERT_TRUE(chosen);
        all.insert(*chosen);
    }
    std::set<FileURL> expected;
    for (const std::string& name : oddNames()) {
        expected.insert(home.url("odd/" + name));
    }
    EXPECT_EQ(all, expected);
}

TEST_F(FolderSheetTests, isWorkedByKeyboardAlone) {
    home.makeFolder("alpha/inner/10");
    home.makeFolder("alpha/inner/9");
    home.makeFolder("beta");
    home.makeFolder("Berlin");
    home.makeFolder(".hidden");
    home.write("a file", "f");
    home.makeLink("link", "alpha/inner");
    home.makeLink("dangling", "nowhere");
    Harness harness(home);
    ask(harness, home.url("gone/long/ago"));
    EXPECT_TRUE(reaches(harness, home.url())) << "the nearest folder that is left";
    EXPECT_EQ(harness.app().chooser()->folders()->count(), 4);

    harness.type("be");
    EXPECT_EQ(shownPathOf(harness), shownPath(home.url("Berlin")));
    harness.type("t");
    EXPECT_EQ(shownPathOf(harness), shownPath(home.url("beta")));
    harness.press(Qt::Key_Home);
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(lists(harness, 1));
    harness.press(Qt::Key_Down);
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(lists(harness, 2));
    harness.press(Qt::Key_Down);
    EXPECT_EQ(shownPathOf(harness), shownPath(home.url("alpha/inner/9"))) << "numbers by value";
    harness.press(Qt::Key_Backspace);
    ASSERT_TRUE(reaches(harness, home.url("alpha/inner"))) << "where one came from is selected";
    harness.press(Qt::Key_Backspace);
    ASSERT_TRUE(reaches(harness, home.url("alpha")));
    ASSERT_TRUE(harness.tabTo("folderChoose"));
    harness.press(Qt::Key_Return);
    EXPECT_EQ(chosen, home.url("alpha"));
    EXPECT_FALSE(harness.app().chooser()->isOpen());

    chosen.reset();
    ask(harness, home.url());
    harness.press(Qt::Key_Escape);
    EXPECT_FALSE(harness.app().chooser()->isOpen());
    EXPECT_FALSE(chosen);
}

TEST_F(FolderSheetTests, aTypedPathIsGoneToOrChosenOrSaidToBeNone) {
    home.makeFolder("one/two");
    home.write("file", "f");
    Harness harness(home);
    const auto typePath = [&](const QString& text) {
        harness.click("folderPath");
        harness.press(Qt::Key_A, Qt::ControlModifier);
        harness.type(text);
    };
    ask(harness, home.url());
    for (const char* const path : {"nowhere", "file", "/etc/passwd"}) {
        typePath(path);
        harness.press(Qt::Key_Return);
        EXPECT_TRUE(harness.shows("There is no such folder.")) << path;
        harness.click("folderChoose");
        EXPECT_TRUE(harness.shows("There is no such folder.")) << path;
        EXPECT_FALSE(chosen);
    }
    typePath("~/one/../one");
    harness.press(Qt::Key_Return);
    EXPECT_TRUE(reaches(harness, home.url("one")));
    typePath("two");
    harness.click("folderChoose");
    EXPECT_TRUE(harness.eventually([&] { return chosen == home.url("one/two"); }));
}

TEST_F(FolderSheetTests, saysWhyAFolderCannotBeListed) {
    home.makeFolder("locked/inside");
    home.makeFolder("empty");
    Harness harness(home, {.files = [](std::shared_ptr<const FileManager> files) {
                        return refusing(std::move(files), "locked");
                    }});
    ask(harness, home.url());
    harness.doubleClick(harness.find("folderRow1"));
    EXPECT_TRUE(harness.shows("This folder could not be read: Permission denied."));
    harness.click("folderUp");
    ASSERT_TRUE(reaches(harness, home.url("locked")));
    harness.doubleClick(harness.find("folderRow0"));
    EXPECT_TRUE(harness.shows("There is no folder in here."));
    harness.click("folderPlace0");
    EXPECT_TRUE(reaches(harness, home.url()));
    harness.click("folderChoose");
    EXPECT_EQ(chosen, home.url());
}

}
}
