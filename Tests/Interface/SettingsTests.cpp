#include "Harness.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>

namespace tolvane {
namespace {

QWindow* settingsWindow() {
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
        if (window->title() == "Settings" && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

TEST(Settings, openInAWindowOfTheirOwnAndCloseAgain) {
    const TemporaryHome home;
    Harness harness(home);
    harness.press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(Harness::eventually([] { return settingsWindow() != nullptr; }));
    harness.app().settings()->access()->recheck();
    EXPECT_TRUE(Harness::eventually(
        [&] { return harness.app().settings()->logTail().contains("app launch version=1.2.3"); }));
    QTest::keyClick(settingsWindow(), Qt::Key_Escape);
    EXPECT_TRUE(Harness::eventually([] { return settingsWindow() == nullptr; }));

    harness.click("showSettings");
    EXPECT_TRUE(Harness::eventually([] { return settingsWindow() != nullptr; })) << "a second time";
}

}
}
