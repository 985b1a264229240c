#include "Shot.h"

namespace tolvane {
namespace {

ScanViewModel& controller(Scene& scene) {
    return scene.harness.controller();
}

bool hasResult(Scene& scene) {
    return controller(scene).stage() == Ui::Stage::Result;
}

void scanBefore(const TemporaryHome& home) {
    Harness harness(home);
    harness.scan(home.url());
}

Step scan(const std::string& folder) {
    return [folder](Scene& scene) {
        scene.harness.scan(scene.home.makeFolder(folder));
        scene.harness.press(Qt::Key_Home);
    };
}

void startScan(Scene& scene) {
    controller(scene).scan(scene.home.url(), "screenshots");
}

void startScanOfAll(Scene& scene) {
    controller(scene).scan(FileURL("/"), "screenshots");
}

void stop(Scene& scene) {
    controller(scene).cancelActivity();
}

void useList(Scene& scene) {
    controller(scene).setSpaceAnalysisView("list");
}

Step inspect(const QString& name) {
    return [name](Scene& scene) { scene.harness.click(scene.harness.itemNamed(name)); };
}

/// Waits until clicks are no longer taken for slips.
Step enter(const QString& name) {
    return all({[name](Scene& scene) { scene.harness.doubleClick(scene.harness.itemNamed(name)); },
                wait(600)});
}

/// Also what is out of sight.
void tickThree(Scene& scene) {
    inspect("Videos")(scene);
    const FolderModel& folder = *controller(scene).folder();
    for (int row = 0; row < folder.rowCount(); ++row) {
        const QString name = folder.index(row).data(FolderModel::Name).toString();
        if (name == "notes.txt" || name == "latest") {
            controller(scene).select(folder.nodeIDAt(row), true);
        }
    }
}

/// Far more files than a scan keeps.
void fillCrowd(const TemporaryHome& home) {
    for (int number = 0; number < 400; ++number) {
        home.write("Crowd/frame " + std::to_string(number) + ".png",
                   std::string(static_cast<std::size_t>(1000 * (number % 90 + 1)), 'p'));
    }
}

void openLargest(Scene& scene) {
    controller(scene).open(controller(scene).folder()->nodeIDAt(0));
    controller(scene).cancelFolderLoad();
}

}

Shots spaceAnalysisShots() {
    const Step scanHome = scan("");
    const Step isTroubled =
        until([](Scene& scene) { return controller(scene).removal()->troubledCount() == 1; });
    const Step removeNotes =
        all({scanHome, inspect("notes.txt"), press(Qt::Key_Delete), click("reviewRemove"),
             until([](Scene& scene) { return controller(scene).removal()->canUndo(); }),
             until(hasResult)});
    const Step isRestored = until([](Scene& scene) {
        return controller(scene).banner().startsWith("Restored") && hasResult(scene);
    });
    const Step sortByName = [](Scene& scene) {
        controller(scene).folder()->sortBy(Ui::SortKey::Name);
    };
    const Step openPurgeable = [](Scene& scene) { controller(scene).openPurgeable(); };
    const QString image = "debian-12.5.0-amd64-netinst.iso";
    return {
        {.name = "start", .prepare = {}, .isAlsoSmall = true},
        {.name = "start-again", .prepare = {}, .precede = scanBefore},
        {.name = "scanning", .prepare = {startScan, untilHeld}, .heldAt = "Videos"},
        {.name = "scanning-estimate",
         .prepare = {startScan, untilHeld},
         .precede = scanBefore,
         .heldAt = "Videos"},
        {.name = "scan-cancelled",
         .prepare = {startScan, untilHeld, stop, goOn, until(hasResult)},
         .heldAt = "Videos"},
        {.name = "grid", .prepare = {scanHome}, .isAlsoSmall = true},
        {.name = "grid-ticked", .prepare = {scanHome, tickThree}},
        {.name = "grid-drilled", .prepare = {scanHome, enter("Downloads"), inspect(image)}},
        {.name = "grid-within-ticked",
         .prepare = {scanHome, enter("Pictures"), press(Qt::Key_A, Qt::ControlModifier)}},
        {.name = "grid-hidden-items",
         .prepare = {startScan, until(hasResult), openLargest},
         .precede = fillCrowd},
        {.name = "list", .prepare = {useList, scanHome}, .isAlsoSmall = true},
        {.name = "list-ticked", .prepare = {useList, scanHome, tickThree}},
        {.name = "list-by-name", .prepare = {useList, scanHome, sortByName, inspect("Pictures")}},
        {.name = "filter-nothing",
         .prepare = {scanHome, press(Qt::Key_F, Qt::ControlModifier), type("zebra")}},
        {.name = "empty-folder", .prepare = {scan("Nothing in here")}},
        {.name = "root-locked", .prepare = {startScanOfAll, wait(500), stop, until(hasResult)}},
        {.name = "review",
         .prepare = {scanHome, tickThree, press(Qt::Key_Delete), isTroubled},
         .isAlsoSmall = true},
        {.name = "review-row",
         .prepare = {scanHome, tickThree, press(Qt::Key_Delete), isTroubled,
                     press(Qt::Key_Backtab, Qt::ShiftModifier), press(Qt::Key_Down)}},
        {.name = "removed", .prepare = {removeNotes}},
        {.name = "restored",
         .prepare = {removeNotes, press(Qt::Key_Z, Qt::ControlModifier), isRestored}},
        {.name = "failures", .prepare = {scanHome, click("showFailures")}, .refused = "mail"},
        {.name = "trouble", .prepare = {scanHome}, .refused = "mail"},
        {.name = "purgeable", .prepare = {scanHome, openPurgeable}},
        {.name = "purgeable-none", .prepare = {scan("Music"), openPurgeable}},
    };
}

}
