// Draws every state of every screen, light and dark, into the folder named on the command line.

#include "Harness.h"
#include "SampleHome.h"

#include <Support/FaultyFiles.h>
#include <Support/Gate.h>
#include <Support/MadeUpTool.h>
#include <Support/OddNames.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QGuiApplication>
#include <QTest>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <cerrno>
#include <cstdio>
#include <vector>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

namespace tolvane {
namespace {

/// The application in one state.
struct Scene {
    const TemporaryHome& home;
    Harness& harness;
    Gate& gate;
};

struct Shot {
    const char* name;
    void (*prepare)(Scene& scene);
    /// What earlier runs left behind.
    void (*precede)(const TemporaryHome& home) = nullptr;
    QSize size{1180, 760};
    /// A scan stands still before it opens this folder; empty: it runs through.
    std::string heldAt = {};
    /// This folder cannot be read.
    std::string refused = {};
};

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

void askForFolder(Scene& scene, const FileURL& start) {
    scene.harness.app().chooser()->ask("Choose a folder to measure", start, {});
    Harness::eventually([&scene] {
        return scene.harness.app().chooser()->chosenPath() != "" &&
               scene.harness.find("folderRows") != nullptr;
    });
    QTest::qWait(100);
}

/// Far more files than a scan keeps.
void fillCrowd(const TemporaryHome& home) {
    for (int number = 0; number < 400; ++number) {
        home.write("Crowd/frame " + std::to_string(number) + ".png",
                   std::string(static_cast<std::size_t>(1000 * (number % 90 + 1)), 'p'));
    }
}

DuplicatesViewModel& duplicates(Scene& scene) {
    return scene.harness.app().duplicates();
}

void showDuplicates(Scene& scene) {
    scene.harness.press(Qt::Key_2, Qt::ControlModifier);
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

/// Listeners of a machine that somebody develops on.
void fillPorts(const TemporaryHome& home) {
    madeUpTool(home,
               "cat <<END\n"
               "p631\nccupsd\nPTCP\nn127.0.0.1:631\nn[::1]:631\n"
               "p1580\ncnginx\nPTCP\nn*:80\nn*:443\nn[::]:80\n"
               "p4242\ncnode\nPTCP\nn127.0.0.1:3000\n"
               "p5432\ncpostgres\nPTCP\nn127.0.0.1:5432\nn[::1]:5432\n"
               "p777\nc<b>build</b> server for all branches\nPTCP\nn*:8080\n"
               "p911\ncsshd\nPTCP\nn*:22\nn[::]:22\n"
               "END",
               "lsof");
    home.makeLink("proc/1580/exe", "/usr/sbin/nginx");
    home.makeLink("proc/4242/exe", "/home/anna/.local/share/versions/node/v22.1.0/bin/node");
    home.makeLink("proc/5432/exe", "/usr/lib/postgresql/15/bin/postgres");
    home.write("proc/net/tcp", "head\n 0: 0100007F:0CEA 00000000:0000 0A 00000000:00000000 "
                               "00:00000000 00000000 103 0 19 1 0 100 0 0 10 0\n");
}

PortsViewModel& showPorts(Scene& scene) {
    PortsViewModel& ports = scene.harness.app().ports();
    scene.harness.press(Qt::Key_3, Qt::ControlModifier);
    Harness::eventually([&ports] { return ports.hasListeners(); });
    scene.harness.click("row2");
    return ports;
}

const std::vector<Shot>& shots() {
    static const std::vector<Shot> table{
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
        {.name = "ports", .prepare = [](Scene& scene) { showPorts(scene); }, .precede = fillPorts},
        {.name = "ports-small",
         .prepare = [](Scene& scene) { showPorts(scene); },
         .precede = fillPorts,
         .size = {860, 560}},
        {.name = "ports-kill",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene);
                 scene.harness.press(Qt::Key_Delete);
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-kill-all",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene).askToKillAll();
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-menu",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene).copyPort("4242-3000-TCP");
                 scene.harness.press(Qt::Key_F10, Qt::ShiftModifier);
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-filter-nothing",
         .prepare = [](Scene& scene) { showPorts(scene).setQuery("zebra"); },
         .precede = fillPorts},
        {.name = "ports-waiting",
         .prepare =
             [](Scene& scene) {
                 scene.harness.press(Qt::Key_3, Qt::ControlModifier);
                 Harness::eventually(
                     [&scene] { return !scene.harness.app().ports().waitingText().isEmpty(); });
             },
         .precede = [](const TemporaryHome& home) { madeUpTool(home, "exec sleep 60", "lsof"); }},
        {.name = "ports-no-tool",
         .prepare =
             [](Scene& scene) {
                 scene.harness.press(Qt::Key_3, Qt::ControlModifier);
                 Harness::eventually(
                     [&scene] { return !scene.harness.app().ports().banner().isEmpty(); });
             }},
        {.name = "shortcuts",
         .prepare =
             [](Scene& scene) {
                 scene.harness.press(Qt::Key_F1);
                 QTest::qWait(300);
             }},
    };
    return table;
}

Harness::Setting settingOf(const Shot& shot, Harness::Scheme scheme,
                           const std::shared_ptr<Gate>& gate) {
    Harness::Setting setting;
    setting.scheme = scheme;
    setting.size = shot.size;
    setting.files = [&shot, gate](std::shared_ptr<const FileManager> files) {
        return std::make_shared<FaultyFiles>(
            std::move(files),
            [&shot, gate](FileOperation, const FileURL& url) -> std::optional<SystemError> {
                if (!shot.heldAt.empty() && url.lastPathComponent() == shot.heldAt) {
                    gate->pass();
                }
                return url.lastPathComponent() == shot.refused && !shot.refused.empty()
                           ? std::optional(SystemError{EACCES})
                           : std::nullopt;
            });
    };
    setting.layout = [&shot](HostLayout& layout) {
        if (!shot.refused.empty()) {
            layout.access.probes = {{"shadow", FileURL("/etc/there-is-no-such-file")}};
        }
        layout.tools.lsof = layout.locations.home.appending("lsof");
        layout.sources.proc = layout.locations.home.appending("proc");
    };
    return setting;
}

bool take(const Shot& shot, Harness::Scheme scheme, const QString& folder) {
    const TemporaryHome home;
    fillSampleHome(home);
    const auto gate = std::make_shared<Gate>();
    if (shot.precede != nullptr) {
        shot.precede(home);
    }
    Harness harness(home, settingOf(shot, scheme, gate));
    Scene scene{home, harness, *gate};
    shot.prepare(scene);
    const bool isDark = scheme == Harness::Scheme::dark;
    const QString suffix = (isDark ? "-dark-" : "-light-") +
                           QString::number(100 * harness.window().effectiveDevicePixelRatio()) +
                           ".png";
    const bool isSaved = harness.grab().save(folder + "/" + shot.name + suffix);
    gate->open();
    return isSaved;
}

int takeAll(const QString& folder, const QString& wanted) {
    if (!QDir().mkpath(folder)) {
        return 1;
    }
    bool isComplete = true;
    for (const Shot& shot : shots()) {
        if (!QString(shot.name).contains(wanted)) {
            continue;
        }
        for (const Harness::Scheme scheme : {Harness::Scheme::light, Harness::Scheme::dark}) {
            isComplete = take(shot, scheme, folder) && isComplete;
        }
    }
    return isComplete && !::testing::Test::HasFailure() ? 0 : 1;
}

}
}

int main(int argumentCount, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication application(argumentCount, arguments);
    tolvane::MainWindow::prepareApplication();
    ::testing::InitGoogleTest(&argumentCount, arguments);
    if (argumentCount < 2) {
        std::fputs("Usage: Screenshots FOLDER [PART-OF-A-NAME]\n", stderr);
        return 2;
    }
    return tolvane::takeAll(arguments[1], argumentCount > 2 ? arguments[2] : "");
}
