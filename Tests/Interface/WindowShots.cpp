#include "Shot.h"

#include <Support/OddNames.h>

#include <QGuiApplication>
#include <QTest>
#include <QWindow>
#include <algorithm>

namespace tolvane {
namespace {

void askForFolder(Scene& scene, const FileURL& start) {
    scene.harness.app().chooser()->ask("Choose a folder to measure", start, {});
    Harness::eventually([&scene] {
        return scene.harness.app().chooser()->chosenPath() != "" &&
               scene.harness.find("folderRows") != nullptr;
    });
    QTest::qWait(100);
}

}

Shots windowShots() {
    return {
        {.name = "choose-folder",
         .prepare =
             [](Scene& scene) {
                 askForFolder(scene, scene.home.url());
                 scene.harness.type("p");
             }},
        {.name = "choose-folder-odd",
         .prepare =
             [](Scene& scene) {
                 for (const std::string& name : oddNames()) {
                     scene.home.makeFolder("odd/" + name);
                 }
                 askForFolder(scene, scene.home.url("odd"));
                 scene.harness.click("folderHidden");
             },
         .size = {860, 560}},
        {.name = "choose-folder-empty",
         .prepare =
             [](Scene& scene) {
                 askForFolder(scene, scene.home.url("Music/Field recordings"));
                 scene.harness.click("folderPath");
                 scene.harness.type("x");
                 scene.harness.press(Qt::Key_Return);
             }},
        {.name = "settings",
         .prepare =
             [](Scene& scene) {
                 scene.harness.press(Qt::Key_Comma, Qt::ControlModifier);
                 for (QWindow* const window : QGuiApplication::topLevelWindows()) {
                     // High enough for all of the settings.
                     window->resize(window->width(), std::max(window->height(), 862));
                 }
                 QTest::qWait(600);
             },
         .precede =
             [](const TemporaryHome& home) {
                 home.write(".local/state/Logs/DiagnosticReports/Tolvane-2026-11-20-101500.crash");
             }},
        {.name = "shortcuts",
         .prepare =
             [](Scene& scene) {
                 scene.harness.press(Qt::Key_F1);
                 QTest::qWait(300);
             }},
    };
}

}
