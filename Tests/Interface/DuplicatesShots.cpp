#include "SampleHome.h"
#include "Shot.h"

#include <QTest>

namespace tolvane {
namespace {

DuplicatesViewModel& duplicates(Scene& scene) {
    return scene.harness.app().duplicates();
}

void showDuplicates(Scene& scene) {
    scene.harness.showModule("Duplicates");
    QTest::qWait(100);
}

void startDuplicates(Scene& scene) {
    showDuplicates(scene);
    duplicates(scene).scanPath("~/Documents");
    Harness::eventually([&scene] { return scene.gate.isReached(); });
    QTest::qWait(1200);
}

void awaitDuplicates(Scene& scene) {
    Harness::eventually([&scene] {
        return duplicates(scene).stage() == Ui::Stage::Result && !duplicates(scene).isWorking();
    });
}

void findDuplicates(Scene& scene) {
    showDuplicates(scene);
    duplicates(scene).scanPath("~/Documents");
    awaitDuplicates(scene);
    scene.harness.press(Qt::Key_Home);
    scene.harness.press(Qt::Key_Down);
}

void tickDuplicates(Scene& scene) {
    findDuplicates(scene);
    duplicates(scene).selectAllCopies();
}

/// Of one group nothing would be left, and one file changed meanwhile.
void reviewDuplicates(Scene& scene) {
    tickDuplicates(scene);
    duplicates(scene).toggleRow(1);
    scene.home.write("Documents/Backup 2024/Pictures/Lofoten/IMG_4109.raw",
                     std::string(3'770'000, 'y'));
    scene.harness.press(Qt::Key_Delete);
    Harness::eventually([&scene] { return duplicates(scene).removal()->warnedCount() > 0; });
    QTest::qWait(300);
}

void removeDuplicates(Scene& scene) {
    tickDuplicates(scene);
    scene.harness.press(Qt::Key_Delete);
    scene.harness.click("reviewRemove");
    Harness::eventually([&scene] { return duplicates(scene).removal()->canUndo(); });
    awaitDuplicates(scene);
}

}

Shots duplicatesShots() {
    return {
        {.name = "duplicates-start", .prepare = showDuplicates},
        {.name = "duplicates-start-small", .prepare = showDuplicates, .size = {860, 560}},
        {.name = "duplicates-working",
         .prepare = startDuplicates,
         .precede = fillSampleCopies,
         .heldAt = "thesis.pdf"},
        {.name = "duplicates-partial",
         .prepare =
             [](Scene& scene) {
                 startDuplicates(scene);
                 duplicates(scene).cancel();
                 scene.gate.open();
                 awaitDuplicates(scene);
             },
         .precede = fillSampleCopies,
         .heldAt = "thesis.pdf"},
        {.name = "duplicates-result", .prepare = findDuplicates, .precede = fillSampleCopies},
        {.name = "duplicates-result-small",
         .prepare = tickDuplicates,
         .precede = fillSampleCopies,
         .size = {860, 560}},
        {.name = "duplicates-ticked", .prepare = tickDuplicates, .precede = fillSampleCopies},
        {.name = "duplicates-closed",
         .prepare =
             [](Scene& scene) {
                 tickDuplicates(scene);
                 duplicates(scene).rows()->collapseAll();
                 scene.harness.click("keepMore");
                 QTest::qWait(300);
             },
         .precede = fillSampleCopies},
        {.name = "duplicates-menu",
         .prepare =
             [](Scene& scene) {
                 findDuplicates(scene);
                 scene.harness.press(Qt::Key_Menu);
                 QTest::qWait(300);
             },
         .precede = fillSampleCopies},
        {.name = "duplicates-filter",
         .prepare =
             [](Scene& scene) {
                 tickDuplicates(scene);
                 scene.harness.press(Qt::Key_F, Qt::ControlModifier);
                 scene.harness.type("debian");
             },
         .precede = fillSampleCopies},
        {.name = "duplicates-filter-nothing",
         .prepare =
             [](Scene& scene) {
                 findDuplicates(scene);
                 scene.harness.press(Qt::Key_F, Qt::ControlModifier);
                 scene.harness.type("zebra");
             },
         .precede = fillSampleCopies},
        {.name = "duplicates-wrong-size",
         .prepare =
             [](Scene& scene) {
                 findDuplicates(scene);
                 scene.harness.click("minimumSize");
                 scene.harness.type("x");
                 scene.harness.press(Qt::Key_Return);
                 QTest::qWait(900);
             },
         .precede = fillSampleCopies},
        {.name = "duplicates-none", .prepare = findDuplicates},
        {.name = "duplicates-trouble",
         .prepare = findDuplicates,
         .precede = fillSampleCopies,
         .refused = "versions handed in"},
        {.name = "duplicates-failures",
         .prepare =
             [](Scene& scene) {
                 findDuplicates(scene);
                 scene.harness.click("showFailures");
                 QTest::qWait(300);
             },
         .precede = fillSampleCopies,
         .refused = "versions handed in"},
        {.name = "duplicates-locked",
         .prepare =
             [](Scene& scene) {
                 showDuplicates(scene);
                 duplicates(scene).scanPath("/");
                 QTest::qWait(500);
                 duplicates(scene).cancel();
                 awaitDuplicates(scene);
             }},
        {.name = "duplicates-review", .prepare = reviewDuplicates, .precede = fillSampleCopies},
        {.name = "duplicates-review-small",
         .prepare = reviewDuplicates,
         .precede = fillSampleCopies,
         .size = {860, 560}},
        {.name = "duplicates-removed", .prepare = removeDuplicates, .precede = fillSampleCopies},
    };
}

}
