#include "Shot.h"

#include <Support/OddNames.h>

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>

namespace tolvane {
namespace {

Step askForFolder(const std::string& start) {
    return all({[start](Scene& scene) {
                    scene.harness.app().chooser()->ask("Choose a folder to measure",
                                                       scene.home.url(start), {});
                },
                until([](Scene& scene) {
                    return scene.harness.app().chooser()->chosenPath() != "" &&
                           scene.harness.find("folderRows") != nullptr;
                }),
                wait(100)});
}

void makeOddFolders(const TemporaryHome& home) {
    for (const std::string& name : oddNames()) {
        home.makeFolder("odd/" + name);
    }
}

/// High enough for all of the settings.
void heighten(Scene&) {
    for (QWindow* const window : QGuiApplication::topLevelWindows()) {
        window->resize(window->width(), std::max(window->height(), 862));
    }
}

void crash(const TemporaryHome& home) {
    home.write(".local/state/Logs/DiagnosticReports/Tolvane-2026-11-20-101500.crash");
}

}

Shots windowShots() {
    return {
        {.name = "choose-folder", .prepare = {askForFolder(""), type("p")}},
        {.name = "choose-folder-odd",
         .prepare = {askForFolder("odd"), click("folderHidden")},
         .precede = makeOddFolders,
         .size = {860, 560}},
        {.name = "choose-folder-empty",
         .prepare = {askForFolder("Music/Field recordings"), click("folderPath"), type("x"),
                     press(Qt::Key_Return)}},
        {.name = "settings",
         .prepare = {press(Qt::Key_Comma, Qt::ControlModifier), heighten, wait(300)},
         .precede = crash},
        {.name = "shortcuts", .prepare = {press(Qt::Key_F1)}, .isAlsoSmall = true},
    };
}

}
