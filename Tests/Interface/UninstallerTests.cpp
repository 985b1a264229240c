#include "Harness.h"

#include <Support/FaultyFiles.h>

#include <gtest/gtest.h>

namespace tolvane {
namespace {

class UninstallerTests : public testing::Test {
  protected:
    UninstallerTests() {
        install("org.example.paint", "Paint");
        home.write(".config/org.example.paint/settings", "s");
        home.write(".local/share/org.example.paint/odd \xff\n<b>", "d");
        home.write(".cache/org.example.paint/tiles", std::string(50'000, 't'));
        install("org.example.stays", "Stays");
        home.write(".config/org.example.stays/settings", "s");
    }

    void install(const std::string& id, const std::string& name) const {
        const std::string bundle = "Applications/" + id + ".AppDir/";
        home.write(bundle + "AppRun", "#!/bin/sh\n");
        home.write(bundle + id + ".desktop", "[Desktop Entry]\nName=" + name + "\nExec=AppRun\n");
    }

    static UninstallerViewModel& show(Harness& harness) {
        harness.showModule("Uninstaller");
        UninstallerViewModel& controller = harness.app().uninstaller();
        EXPECT_TRUE(Harness::eventually([&] { return controller.stage() == Ui::Stage::Result; }));
        return controller;
    }
    /// Until the chosen application has been looked at.
    static bool awaitDetail(Harness& harness) {
        return Harness::eventually([&] {
            UninstallerViewModel& controller = harness.app().uninstaller();
            const AppDetail& detail = *controller.detail();
            return detail.hasApp() && !detail.isLoading() && !controller.isLoading();
        });
    }

    TemporaryHome home;
};

TEST_F(UninstallerTests, canBeWorkedByKeyboardAlone) {
    Harness harness(home);
    UninstallerViewModel& controller = show(harness);
    EXPECT_TRUE(harness.shows("Choose an application"));
    harness.press(Qt::Key_F, Qt::ControlModifier);
    harness.type("PAINT");
    ASSERT_TRUE(Harness::eventually([&] { return controller.rows()->count() == 1; }));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(awaitDetail(harness));
    EXPECT_TRUE(harness.shows(controller.detail()->leftoversText()));
    harness.press(Qt::Key_Delete);
    ASSERT_NE(harness.find("reviewRow3"), nullptr) << "the application and three leftovers";
    ASSERT_TRUE(harness.tabTo("reviewRow0"));
    harness.press(Qt::Key_Delete);
    EXPECT_EQ(controller.removal()->rows()->count(), 3) << "one is left out";
    harness.press(Qt::Key_Return);
    EXPECT_FALSE(controller.showReview()) << "the default button removes nothing";
    harness.press(Qt::Key_Delete);
    ASSERT_TRUE(harness.tabTo("reviewRemove"));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(harness.shows("Removed Paint and 3 leftover item(s)"));
    for (const char* const gone :
         {"Applications/org.example.paint.AppDir", ".config/org.example.paint",
          ".cache/org.example.paint", ".local/share/org.example.paint"}) {
        EXPECT_FALSE(home.has(gone)) << gone;
    }
    EXPECT_TRUE(home.has(".config/org.example.stays"));
    harness.press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(harness.shows("Restored 4 item(s)"));
    EXPECT_EQ(home.read(".local/share/org.example.paint/odd \xff\n<b>"), "d");
}

TEST_F(UninstallerTests, tellsWhereItCouldNotLook) {
    home.makeFolder("Applications/locked");
    const auto locked = [](FileOperation, const FileURL& url) {
        return url.lastPathComponent() == "locked" ? std::optional(SystemError{EACCES})
                                                   : std::nullopt;
    };
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return std::make_shared<FaultyFiles>(std::move(files), locked);
                    }});
    show(harness);
    harness.click("showFailures");
    EXPECT_TRUE(harness.shows("1 folder could not be read"));
    EXPECT_TRUE(harness.shows(QString::fromStdString(home.path("Applications"))));
}

}
}
