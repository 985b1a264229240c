#include "SampleHome.h"
#include "Shot.h"

#include <QTest>

namespace tolvane {
namespace {

BrightpassViewModel& brightpass(Scene& scene) {
    return scene.harness.app().brightpass();
}

void show(Scene& scene) {
    scene.harness.showModule("Brightpass");
    QTest::qWait(100);
}

/// Applications that leave something, and downloads that came twice.
void fillForCheck(const TemporaryHome& home) {
    const auto write = [&home](const std::string& relative, std::size_t kilobytes) {
        home.write(relative, std::string(kilobytes * 1000, 'x'));
    };
    for (const char* const app : {"org.example.Paint", "org.example.Notebook with a long name",
                                  "<b>Music</b> player", "com.example.Chat"}) {
        home.makeFolder(std::string("Applications/") + app + ".AppDir");
    }
    write(".config/org.example.Paint/brushes", 900);
    write(".local/share/org.example.Paint/templates", 2400);
    write(".cache/com.example.Chat/pictures", 5200);
    write(".local/share/com.example.Chat/history", 350);
    write(".local/share/Trash/files/old", 1200);
    write("Downloads/debian-12.5.0-amd64-netinst (1).iso", 3600);
    write("Downloads/not \xff UTF-8 \xc3 (1).zip", 840);
}

void check(Scene& scene) {
    show(scene);
    brightpass(scene).run();
    Harness::eventually([&scene] { return brightpass(scene).shownStage() == Ui::Stage::Result; });
    QTest::qWait(100);
}

void hold(Scene& scene) {
    show(scene);
    brightpass(scene).run();
    Harness::eventually([&scene] { return scene.gate.isReached(); });
    QTest::qWait(1200);
}

void stop(Scene& scene) {
    hold(scene);
    brightpass(scene).cancelActivity();
    scene.gate.open();
    Harness::eventually([&scene] { return brightpass(scene).shownStage() == Ui::Stage::Result; });
}

}

Shots brightpassShots() {
    return {
        {.name = "brightpass-start", .prepare = show},
        {.name = "brightpass-start-small", .prepare = show, .size = {860, 560}},
        {.name = "brightpass-working",
         .prepare = hold,
         .precede = fillForCheck,
         .heldAt = "Downloads"},
        {.name = "brightpass-partial",
         .prepare = stop,
         .precede = fillForCheck,
         .heldAt = "Downloads"},
        {.name = "brightpass-result", .prepare = check, .precede = fillForCheck},
        {.name = "brightpass-result-small",
         .prepare = check,
         .precede = fillForCheck,
         .size = {860, 560}},
        {.name = "brightpass-little", .prepare = check},
        {.name = "brightpass-failures",
         .prepare =
             [](Scene& scene) {
                 check(scene);
                 brightpass(scene).openFailures();
                 QTest::qWait(300);
             },
         .precede = fillForCheck,
         .refused = "Downloads"},
    };
}

}
