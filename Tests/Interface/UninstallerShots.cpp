#include "SampleHome.h"
#include "Shot.h"

#include <QTest>

namespace tolvane {
namespace {

UninstallerViewModel& uninstaller(Scene& scene) {
    return scene.harness.app().uninstaller();
}

/// Applications of all kinds, what they leave, and one whose identifier begins another one's.
void fillApplications(const TemporaryHome& home) {
    const auto write = [&home](const std::string& relative, std::size_t kilobytes) {
        home.write(relative, std::string(kilobytes * 1000, 'x'));
    };
    const auto install = [&](const std::string& id, const std::string& name,
                             const std::string& version, std::size_t kilobytes) {
        const std::string bundle = "Applications/" + id + ".AppDir/";
        write(bundle + "AppRun", kilobytes);
        home.write(bundle + id + ".desktop", "[Desktop Entry]\nName=" + name +
                                                 "\nX-AppImage-Version=" + version +
                                                 "\nExec=AppRun\n");
    };
    install("org.example.Paint", "Paint", "5.2.1", 8200);
    install("org.example.PaintViewer", "Paint Viewer", "1.0", 900);
    install("com.example.Chat", "Chat", "24.11", 4100);
    install("org.example.markup", "<b>Music</b> player with a name that is far too long", "", 300);
    for (int number = 8; number <= 21; ++number) {
        install("com.example.tool" + std::to_string(number), "Tool " + std::to_string(number),
                "0." + std::to_string(number), 20);
    }
    write(".config/org.example.Paint/brushes", 900);
    write(".config/org.example.Paintrc", 4);
    write(".config/org.example.PaintViewer.conf", 8);
    write(".local/share/org.example.Paint/templates", 2400);
    write(".cache/org.example.Paint/tiles", 5200);
    write(".config/autostart/org.example.Paint.desktop", 1);
}

void show(Scene& scene) {
    scene.harness.showModule("Uninstaller");
    Harness::eventually([&scene] { return uninstaller(scene).stage() == Ui::Stage::Result; });
    QTest::qWait(300);
}

void choose(Scene& scene) {
    show(scene);
    uninstaller(scene).select(QString("org.example.Paint"));
    Harness::eventually([&scene] { return !uninstaller(scene).detail()->isLoading(); });
    QTest::qWait(300);
}

void review(Scene& scene) {
    choose(scene);
    scene.harness.click("uninstall");
    Harness::eventually([&scene] { return !uninstaller(scene).removal()->isChecking(); });
    QTest::qWait(300);
}

void remove(Scene& scene) {
    review(scene);
    scene.harness.click("reviewRemove");
    Harness::eventually([&scene] {
        return uninstaller(scene).removal()->canUndo() && !uninstaller(scene).isLoading();
    });
    QTest::qWait(300);
}

}

Shots uninstallerShots() {
    return {
        {.name = "uninstaller-nothing", .prepare = show},
        {.name = "uninstaller-working",
         .prepare =
             [](Scene& scene) {
                 scene.harness.showModule("Uninstaller");
                 Harness::eventually([&scene] { return scene.gate.isReached(); });
                 QTest::qWait(1200);
             },
         .precede = fillApplications,
         .heldAt = "Applications"},
        {.name = "uninstaller-list", .prepare = show, .precede = fillApplications},
        {.name = "uninstaller-detail", .prepare = choose, .precede = fillApplications},
        {.name = "uninstaller-detail-small",
         .prepare = choose,
         .precede = fillApplications,
         .size = {860, 560}},
        {.name = "uninstaller-no-leftovers",
         .prepare =
             [](Scene& scene) {
                 show(scene);
                 uninstaller(scene).select(QString("org.example.markup"));
                 QTest::qWait(300);
             },
         .precede = fillApplications},
        {.name = "uninstaller-search-nothing",
         .prepare =
             [](Scene& scene) {
                 show(scene);
                 scene.harness.press(Qt::Key_F, Qt::ControlModifier);
                 scene.harness.type("zebra");
             },
         .precede = fillApplications},
        {.name = "uninstaller-menu",
         .prepare =
             [](Scene& scene) {
                 choose(scene);
                 scene.harness.press(Qt::Key_F, Qt::ControlModifier);
                 scene.harness.press(Qt::Key_Return);
                 scene.harness.press(Qt::Key_F10, Qt::ShiftModifier);
                 QTest::qWait(300);
             },
         .precede = fillApplications},
        {.name = "uninstaller-review", .prepare = review, .precede = fillApplications},
        {.name = "uninstaller-removed", .prepare = remove, .precede = fillApplications},
    };
}

}
