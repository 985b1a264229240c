#include "Harness.h"
#include "WholeHome.h"

#include <HostKit/Trash.h>

#include <fmt/format.h>
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

constexpr const char* file = ".config/Tolvane/Tolvane.conf";

/// What every module starts with.
std::string told(TolvaneApp& app) {
    return fmt::format("{} {} {} {}", app.currentModule(),
                       app.spaceAnalysis().spaceAnalysisView().toStdString(),
                       app.duplicates().root().lastPathComponent(),
                       app.brightpass().duplicatesPath().section('/', -1).toStdString());
}

TEST(Settings, nameTheModuleThatIsShownFirst) {
    RecordingWorkspace workspace;
    const std::vector<std::pair<std::string, int>> modules{
        {"arborview", 0},   {"uninstaller", 1}, {"duplicates", 2}, {"ports", 3},
        {"performance", 4}, {"brightpass", 5},  {"Ports", 0},      {"", 0}};
    for (const auto& [name, row] : modules) {
        const TemporaryHome home;
        home.write(file, "[General]\ninitialModule=" + name + "\n");
        const HostLayout layout = HostLayout::freedesktop(home.url(), {});
        TolvaneApp app({layout, systemFileManager(layout), systemTrash(layout), workspace, {}});
        EXPECT_EQ(app.currentModule(), row) << name;
    }
}

TEST(Settings, areHonouredByEveryModule) {
    const TemporaryHome home;
    fillWholeHome(home);
    home.write(file, fmt::format("[General]\ninitialModule=brightpass\nspaceAnalysisView=list\n"
                                 "autoRunDuplicates=true\nautoRunBrightpass=true\n"
                                 "autoSelectFirstApp=true\nlastScanPath={}\n"
                                 "duplicatesRootPath={}\nbrightpassDuplicatesPath={}\n",
                                 home.path("data"), home.path("Copies"), home.path("Copies")));
    for (const bool isSecondStart : {false, true}) {
        Harness harness(home);
        TolvaneApp& app = harness.app();
        EXPECT_EQ(told(app), "5 list Copies Copies");
        ASSERT_TRUE(Harness::eventually([&] { return app.brightpass().report() != nullptr; }));
        EXPECT_EQ(app.brightpass().report()->duplicates->root, home.url("Copies"));
        harness.showModule("Duplicates");
        ASSERT_TRUE(Harness::eventually([&] { return app.duplicates().groups().size() == 1; }));
        harness.showModule("Uninstaller");
        ASSERT_TRUE(Harness::eventually([&] { return app.uninstaller().detail()->hasApp(); }));
        harness.showModule("Space Analysis");
        EXPECT_EQ(app.spaceAnalysis().lastScanPath().toStdString(), home.path("data"));
        for (const char* const key : {"scanStats.files", "scanStats.bytes"}) {
            const QVariantMap counted = app.defaults().map(key);
            EXPECT_EQ(counted.contains(app.spaceAnalysis().lastScanPath()), isSecondStart) << key;
        }
        app.spaceAnalysis().scanLast();
        ASSERT_NE(harness.itemNamed("goes"), nullptr);
    }
}

TEST(Settings, startTheProgramWithTheirGoodValuesHoweverBrokenTheyAre) {
    const std::string good = "[General]\ninitialModule=ports\nspaceAnalysisView=list\n";
    const std::vector<std::pair<std::string, std::string>> broken{
        {"[General]\nspaceAnalysisView=@Variant(\\0\\0\\0\x7f", "0 grid Downloads Downloads"},
        {std::string("\x00\xff\xfe binary", 10), "0 grid Downloads Downloads"},
        {"[General]\ninitialModule=@Invalid()\nspaceAnalysisView=7\n"
         "duplicatesRootPath=@Size(1 2)\nbrightpassDuplicatesPath=a, b\n",
         "0 grid Downloads Downloads"},
        {good + "lastScanPath=@Size(1 2)\nwindow.placement=17\nscanStats.files=yes\n"
                "scanStats.bytes=@Variant(\\0\\0\n=\n[\nautoRunDuplicates=perhaps\n",
         "3 list Downloads Downloads"},
        {good + "duplicatesRootPath=/nowhere\nbrightpassDuplic", "3 list nowhere Downloads"}};
    for (const auto& [content, expected] : broken) {
        const TemporaryHome home;
        fillWholeHome(home);
        home.write(file, content);
        {
            Harness harness(home);
            EXPECT_EQ(told(harness.app()), expected);
            EXPECT_FALSE(harness.app().duplicates().isScanning());
            harness.scan(home.url("data"));
            EXPECT_EQ(harness.controller().folder()->count(), 2);
        }
        Harness again(home);
        EXPECT_EQ(told(again.app()), expected) << "what was written meanwhile";
        EXPECT_EQ(again.controller().lastScanPath().toStdString(), home.path("data"));
    }
}

TEST(Settings, showTheWholeTailByKeyboardAlone) {
    const TemporaryHome home;
    Harness harness(home);
    for (int line = 0; line < 99; ++line) {
        harness.app().log().write("line");
    }
    harness.press(Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(Harness::eventually([] { return settingsWindow() != nullptr; }));
    auto* const window = qobject_cast<QQuickWindow*>(settingsWindow());
    const auto tail = [window] { return window->findChild<QQuickItem*>("logTail"); };
    const auto place = [](const QQuickItem* item) { return item->property("contentY").toReal(); };
    ASSERT_TRUE(Harness::eventually([&] { return tail()->height() > window->height(); }));
    harness.grab();
    for (int tabs = 0; tabs < 20 && window->activeFocusItem() != tail(); ++tabs) {
        QTest::keyClick(window, Qt::Key_Tab);
    }
    EXPECT_GT(place(window->findChild<QQuickItem*>("settingsPage")), 0) << "it comes into sight";
    const QQuickItem* const lines = tail()->parentItem()->parentItem();
    EXPECT_GT(place(lines), 0) << "at its end";
    QTest::keyClick(window, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(place(lines), 0);
}

}
}
