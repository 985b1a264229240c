#include "Shot.h"

namespace tolvane {
namespace {

BrightpassViewModel& brightpass(Scene& scene) {
    return scene.harness.app().brightpass();
}

bool hasResult(Scene& scene) {
    return brightpass(scene).shownStage() == Ui::Stage::Result;
}

void run(Scene& scene) {
    brightpass(scene).run();
}

void stop(Scene& scene) {
    brightpass(scene).cancelActivity();
}

void openFailures(Scene& scene) {
    brightpass(scene).openFailures();
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

}

Shots brightpassShots() {
    const Step start = all({show("Brightpass"), wait(100), run});
    const auto nothing = [](const TemporaryHome&) {};
    return after(
        fillForCheck,
        {
            {.name = "brightpass-start",
             .prepare = {show("Brightpass")},
             .isAlsoSmall = true,
             .precede = nothing},
            {.name = "brightpass-working", .prepare = {start, untilHeld}, .heldAt = "Downloads"},
            {.name = "brightpass-partial",
             .prepare = {start, untilHeld, stop, goOn, until(hasResult)},
             .heldAt = "Downloads"},
            {.name = "brightpass-result",
             .prepare = {start, until(hasResult)},
             .isAlsoSmall = true},
            {.name = "brightpass-little", .prepare = {start, until(hasResult)}, .precede = nothing},
            {.name = "brightpass-failures",
             .prepare = {start, until(hasResult), openFailures},
             .refused = "Downloads"},
        });
}

}
