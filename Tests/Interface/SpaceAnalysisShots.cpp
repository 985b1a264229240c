#include "Shot.h"

#include <QTest>
#include <filesystem>

namespace tolvane {
namespace {

void scanBefore(const TemporaryHome& home) {
    Harness harness(home);
    harness.scan(home.url());
}

void scanHome(Scene& scene) {
    scene.harness.scan(scene.home.url());
    scene.harness.press(Qt::Key_Home);
}

void showList(Scene& scene) {
    scene.harness.controller().setSpaceAnalysisView("list");
    scanHome(scene);
}

void inspect(Scene& scene, const QString& name) {
    scene.harness.click(scene.harness.itemNamed(name));
}

/// Also where it is out of sight.
void tick(Scene& scene, const QString& name) {
    ScanViewModel& controller = scene.harness.controller();
    const FolderModel& folder = *controller.folder();
    for (int row = 0; row < folder.rowCount(); ++row) {
        if (folder.index(row).data(FolderModel::Name) == name) {
            controller.select(folder.nodeIDAt(row), true);
        }
    }
}

void tickThree(Scene& scene) {
    inspect(scene, "Videos");
    tick(scene, "notes.txt");
    tick(scene, "latest");
}

void startScan(Scene& scene) {
    scene.harness.controller().scan(scene.home.url(), "screenshots");
    Harness::eventually([&scene] { return scene.gate.isReached(); });
    QTest::qWait(1200);
}

void openDownloads(Scene& scene) {
    scanHome(scene);
    scene.harness.doubleClick(scene.harness.itemNamed("Downloads"));
    Harness::eventually(
        [&scene] { return scene.harness.itemNamed("debian-12.5.0-amd64-netinst.iso") != nullptr; });
}

void review(Scene& scene) {
    scanHome(scene);
    tickThree(scene);
    scene.harness.press(Qt::Key_Delete);
    Harness::eventually(
        [&scene] { return scene.harness.controller().removal()->troubledCount() == 1; });
}

void removeNotes(Scene& scene) {
    scanHome(scene);
    inspect(scene, "notes.txt");
    scene.harness.press(Qt::Key_Delete);
    scene.harness.click("reviewRemove");
    Harness::eventually([&scene] {
        return scene.harness.controller().removal()->canUndo() &&
               scene.harness.controller().stage() == Ui::Stage::Result;
    });
}

/// Far more files than a scan keeps.
void fillCrowd(const TemporaryHome& home) {
    for (int number = 0; number < 400; ++number) {
        home.write("Crowd/frame " + std::to_string(number) + ".png",
                   std::string(static_cast<std::size_t>(1000 * (number % 90 + 1)), 'p'));
    }
}

}

Shots spaceAnalysisShots() {
    return {
        {.name = "start", .prepare = [](Scene&) {}},
        {.name = "start-small", .prepare = [](Scene&) {}, .size = {860, 560}},
        {.name = "start-again", .prepare = [](Scene&) {}, .precede = scanBefore},
        {.name = "scanning", .prepare = startScan, .heldAt = "Videos"},
        {.name = "scanning-estimate",
         .prepare = startScan,
         .precede = scanBefore,
         .heldAt = "Videos"},
        {.name = "scan-cancelled",
         .prepare =
             [](Scene& scene) {
                 startScan(scene);
                 scene.harness.controller().cancelActivity();
                 scene.gate.open();
                 Harness::eventually(
                     [&scene] { return scene.harness.controller().stage() == Ui::Stage::Result; });
             },
         .heldAt = "Videos"},
        {.name = "grid", .prepare = scanHome},
        {.name = "grid-small", .prepare = scanHome, .size = {860, 560}},
        {.name = "grid-ticked",
         .prepare =
             [](Scene& scene) {
                 scanHome(scene);
                 tickThree(scene);
             }},
        {.name = "grid-drilled",
         .prepare =
             [](Scene& scene) {
                 openDownloads(scene);
                 QTest::qWait(600);
                 inspect(scene, "debian-12.5.0-amd64-netinst.iso");
             }},
        {.name = "grid-within-ticked",
         .prepare =
             [](Scene& scene) {
                 scanHome(scene);
                 scene.harness.doubleClick(scene.harness.itemNamed("Pictures"));
                 QTest::qWait(600);
                 scene.harness.press(Qt::Key_A, Qt::ControlModifier);
             }},
        {.name = "grid-hidden-items",
         .prepare =
             [](Scene& scene) {
                 fillCrowd(scene.home);
                 scene.harness.controller().scan(scene.home.url(), "screenshots");
                 Harness::eventually(
                     [&scene] { return scene.harness.controller().stage() == Ui::Stage::Result; });
                 scene.harness.controller().open(scene.harness.controller().folder()->nodeIDAt(0));
                 scene.harness.controller().cancelFolderLoad();
             }},
        {.name = "list", .prepare = showList},
        {.name = "list-small", .prepare = showList, .size = {860, 560}},
        {.name = "list-ticked",
         .prepare =
             [](Scene& scene) {
                 showList(scene);
                 tickThree(scene);
             }},
        {.name = "list-by-name",
         .prepare =
             [](Scene& scene) {
                 showList(scene);
                 scene.harness.controller().folder()->sortBy(Ui::SortKey::Name);
                 inspect(scene, "Pictures");
             }},
        {.name = "filter-nothing",
         .prepare =
             [](Scene& scene) {
                 scanHome(scene);
                 scene.harness.press(Qt::Key_F, Qt::ControlModifier);
                 scene.harness.type("zebra");
             }},
        {.name = "empty-folder",
         .prepare =
             [](Scene& scene) { scene.harness.scan(scene.home.makeFolder("Nothing in here")); }},
        {.name = "root-locked",
         .prepare =
             [](Scene& scene) {
                 scene.harness.controller().scan(FileURL("/"), "screenshots");
                 QTest::qWait(500);
                 scene.harness.controller().cancelActivity();
                 Harness::eventually(
                     [&scene] { return scene.harness.controller().stage() == Ui::Stage::Result; });
             }},
        {.name = "review", .prepare = review},
        {.name = "review-small", .prepare = review, .size = {860, 560}},
        {.name = "removed", .prepare = removeNotes},
        {.name = "restored",
         .prepare =
             [](Scene& scene) {
                 removeNotes(scene);
                 scene.harness.press(Qt::Key_Z, Qt::ControlModifier);
                 Harness::eventually([&scene] {
                     return scene.harness.controller().banner().startsWith("Restored") &&
                            scene.harness.controller().stage() == Ui::Stage::Result;
                 });
             }},
        {.name = "failures",
         .prepare =
             [](Scene& scene) {
                 scanHome(scene);
                 scene.harness.click("showFailures");
                 QTest::qWait(300);
             },
         .refused = "mail"},
        {.name = "trouble", .prepare = scanHome, .refused = "mail"},
        {.name = "purgeable",
         .prepare =
             [](Scene& scene) {
                 scanHome(scene);
                 scene.harness.controller().openPurgeable();
                 QTest::qWait(300);
             }},
        {.name = "purgeable-none",
         .prepare =
             [](Scene& scene) {
                 scene.harness.scan(scene.home.url("Music"));
                 scene.harness.controller().openPurgeable();
                 QTest::qWait(300);
             }},
    };
}

}
