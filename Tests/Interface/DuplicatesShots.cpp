#include "SampleHome.h"
#include "Shot.h"

#include <filesystem>

namespace tolvane {
namespace {

DuplicatesViewModel& duplicates(Scene& scene) {
    return scene.harness.app().duplicates();
}

bool hasResult(Scene& scene) {
    return duplicates(scene).stage() == Ui::Stage::Result && !duplicates(scene).isWorking();
}

Step start(const QString& folder) {
    return all({show("Duplicates"), wait(100),
                [folder](Scene& scene) { duplicates(scene).scanPath(folder); }});
}

void stop(Scene& scene) {
    duplicates(scene).cancel();
}

void tick(Scene& scene) {
    duplicates(scene).selectAllCopies();
}

/// Of one group nothing would be left, and one file changed meanwhile.
void spoil(Scene& scene) {
    duplicates(scene).toggleRow(1);
    scene.home.write("Documents/Backup 2024/Pictures/Lofoten/IMG_4109.raw",
                     std::string(3'770'000, 'y'));
}

}

Shots duplicatesShots() {
    const Step hold = all({start("~/Documents"), untilHeld});
    const Step find =
        all({start("~/Documents"), until(hasResult), press(Qt::Key_Home), press(Qt::Key_Down)});
    const Step filter = press(Qt::Key_F, Qt::ControlModifier);
    const Step isWarned =
        until([](Scene& scene) { return duplicates(scene).removal()->warnedCount() > 0; });
    const Step isRemoved =
        until([](Scene& scene) { return duplicates(scene).removal()->canUndo(); });
    const Step close = [](Scene& scene) { duplicates(scene).rows()->collapseAll(); };
    const std::string refused = "versions handed in";
    const auto nothing = [](const TemporaryHome&) {};
    return after(
        fillSampleCopies,
        {
            {.name = "duplicates-start",
             .prepare = {show("Duplicates")},
             .isAlsoSmall = true,
             .precede = nothing},
            {.name = "duplicates-start-no-folder",
             .prepare = {show("Duplicates")},
             .precede =
                 [](const TemporaryHome& home) {
                     std::filesystem::remove_all(home.path("Downloads"));
                 }},
            {.name = "duplicates-working", .prepare = {hold}, .heldAt = "thesis.pdf"},
            {.name = "duplicates-partial",
             .prepare = {hold, stop, goOn, until(hasResult)},
             .heldAt = "thesis.pdf"},
            {.name = "duplicates-result", .prepare = {find}},
            {.name = "duplicates-ticked", .prepare = {find, tick}, .isAlsoSmall = true},
            {.name = "duplicates-closed", .prepare = {find, tick, close, click("keepMore")}},
            {.name = "duplicates-menu", .prepare = {find, press(Qt::Key_Menu)}},
            {.name = "duplicates-filter", .prepare = {find, tick, filter, type("debian")}},
            {.name = "duplicates-filter-nothing", .prepare = {find, filter, type("zebra")}},
            {.name = "duplicates-wrong-size",
             .prepare = {find, click("minimumSize"), type("x"), press(Qt::Key_Return), wait(600)}},
            {.name = "duplicates-none", .prepare = {find}, .precede = nothing},
            {.name = "duplicates-trouble", .prepare = {find}, .refused = refused},
            {.name = "duplicates-failures",
             .prepare = {find, click("showFailures")},
             .refused = refused},
            {.name = "duplicates-locked",
             .prepare = {start("/"), wait(500), stop, until(hasResult)},
             .precede = nothing},
            {.name = "duplicates-review",
             .prepare = {find, tick, spoil, press(Qt::Key_Delete), isWarned},
             .isAlsoSmall = true},
            {.name = "duplicates-removed",
             .prepare = {find, tick, press(Qt::Key_Delete), click("reviewRemove"), isRemoved,
                         until(hasResult)}},
        });
}

}
