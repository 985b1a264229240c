#include "Shot.h"

#include <Support/MadeUpTool.h>

#include <Controllers/MemoryHistory.h>

#include <cmath>

namespace tolvane {
namespace {

/// Nothing of the machine that the pictures are taken on, but the size of its disk.
void furnish(HostLayout& layout) {
    const FileURL& home = layout.locations.home;
    layout.sources = {home.appending("proc"), home.appending("sys"), home.appending("dev")};
    layout.tools.heavyProcesses = {home.appending("ps"), {}};
    for (SnapshotVolume* const volume : {&layout.snapshots.system, &layout.snapshots.data}) {
        volume->list.executable = home.appending("snapper");
    }
    layout.maintenance.flushResolver = {home.appending("resolvectl"), {}};
    layout.maintenance.rebuildRegistry = {home.appending("update-desktop-database"), {}};
    layout.startup.folders = {
        {"user", StartupFormat::autostart, home.appending(".config/autostart").path()},
        {"daemon", StartupFormat::unit, home.appending("etc").path()}};
}

void fillMemory(const TemporaryHome& home, int available) {
    home.write(
        "proc/meminfo",
        "MemTotal: 16284560 kB\nMemFree: 1802344 kB\nMemAvailable: " + std::to_string(available) +
            " kB\nActive: 8120440 kB\n"
            "Unevictable: 412 kB\nSUnreclaim: 612000 kB\nKernelStack: 21000 kB\n"
            "PageTables: 84000 kB\nPercpu: 9000 kB\nKReclaimable: 702000 kB\n"
            "Zswap: 388000 kB\nSwapTotal: 4194300 kB\nSwapFree: 2903040 kB\n");
}

/// Memory, processes and start-up items of a machine that somebody works on.
void fillMachine(const TemporaryHome& home) {
    fillMemory(home, 6'921'004);
    home.write("proc/pressure/memory", "some avg10=0.12 avg60=0.10 avg300=0.02 total=1\n"
                                       "full avg10=0.00 avg60=0.00 avg300=0.00 total=1\n");
    madeUpTool(home,
               "cat <<END\n"
               " 4242 2210300 12.4 firefox\n 4301 1180200  8.1 Isolated Web Co\n"
               " 5120  921400  3.9 code\n 1411  640100  1.2 gnome-shell\n"
               " 6001  402800  0.4 postgres\n 6120  301200 97.5 cc1plus\n"
               " 6200  210400  0.0 thunderbird\n 7001  190300  0.1 <b>build<b> server\n"
               "END",
               "ps");
    madeUpTool(home, "true", "update-desktop-database");
    home.makeLink("proc/4242/exe", "/usr/lib/firefox-esr/firefox-esr");
    home.write(".config/autostart/Backup.desktop",
               "[Desktop Entry]\nType=Application\nName=Backup of everything\nExec=/bin/true\n");
    home.write(".config/autostart/Notes.desktop",
               "[Desktop Entry]\nType=Application\nName=Notes\nExec=/bin/notes\nHidden=true\n");
    home.write("etc/ssh.service", "[Service]\nExecStart=/usr/sbin/sshd -D\n");
    home.makeLink("etc/multi-user.target.wants/ssh.service", home.path("etc/ssh.service"));
}

void keepSnapshots(const TemporaryHome& home) {
    fillMachine(home);
    madeUpTool(home,
               "[ \"$3\" = root ] || exit 1\n"
               "echo number,date,cleanup\necho 0,,\n"
               "for day in 14 15 16 17 18 19 20; do\n"
               "echo $day,2026-11-$day 05:46:58,timeline\ndone\necho 21,2026-11-21 09:00:00,",
               "snapper");
}

void startManyThings(const TemporaryHome& home) {
    fillMachine(home);
    for (int number = 1; number <= 300; ++number) {
        const std::string name = "Helper " + std::to_string(number);
        home.write(".config/autostart/" + name + ".desktop",
                   "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=/bin/true\n" +
                       (number % 3 == 0 ? "Hidden=true\n" : ""));
    }
}

PerformanceViewModel& performance(Scene& scene) {
    return scene.harness.app().performance();
}

/// Minutes in which programs come and go.
void liveThroughMinutes(Scene& scene) {
    for (int step = 0; step < MemoryHistory::steps - 12; ++step) {
        const int wave = static_cast<int>(500'000 * std::sin(step * 0.11));
        const int build = step > 40 && step < 62 ? 2'600'000 : 0;
        fillMemory(scene.home, 6'921'004 + wave - build);
        scene.ahead += 3;
        performance(scene).refreshStats();
    }
    fillMemory(scene.home, 6'921'004);
}

bool isKnown(Scene& scene) {
    return performance(scene).knowsProcesses() && performance(scene).knowsAgents() &&
           performance(scene).knowsSnapshots();
}

bool isWaiting(Scene& scene) {
    return !performance(scene).waitingText().isEmpty();
}

bool isIdle(Scene& scene) {
    return !performance(scene).isBusy();
}

Step run(const QString& row) {
    return [row](Scene& scene) { performance(scene).runRow(row); };
}

void thin(Scene& scene) {
    performance(scene).thinSnapshots();
}

void scrollToEnd(Scene& scene) {
    scene.harness.grab();
    QQuickItem* const page = scene.harness.find("performancePage");
    page->setProperty("contentY", page->property("contentHeight").toDouble() - page->height());
}

void breakResolver(const TemporaryHome& home) {
    fillMachine(home);
    madeUpTool(home, "echo 'Failed to connect to bus: No such file or directory' >&2; exit 1",
               "resolvectl");
}

/// A machine one of whose tools takes its time.
std::function<void(const TemporaryHome&)> machineWithSlow(const std::string& tool) {
    return [tool](const TemporaryHome& home) {
        fillMachine(home);
        madeUpTool(home, "exec sleep 60", tool);
    };
}

}

Shots performanceShots() {
    const Step showNothing = all({tolvane::show("Performance"), until(isKnown)});
    const Step show = all({tolvane::show("Performance"), liveThroughMinutes, until(isKnown)});
    Shots shots = after(
        fillMachine,
        {
            {.name = "performance", .prepare = {show, click("row1")}, .isAlsoSmall = true},
            {.name = "performance-snapshots",
             .prepare = {show},
             .precede = keepSnapshots,
             .size = {1180, 1500}},
            {.name = "performance-many-items",
             .prepare = {show, scrollToEnd},
             .precede = startManyThings},
            {.name = "performance-busy",
             .prepare = {show, run("ls"), until(isIdle), run("dns"), scrollToEnd},
             .precede = machineWithSlow("resolvectl")},
            {.name = "performance-failed",
             .prepare = {show, run("ls"), until(isIdle), run("dns"), until(isIdle), scrollToEnd},
             .precede = breakResolver},
            {.name = "performance-quit", .prepare = {show, click("quit0")}},
            {.name = "performance-nothing",
             .prepare = {showNothing, thin},
             .precede = [](const TemporaryHome&) {}},
            {.name = "performance-waiting",
             .prepare = {tolvane::show("Performance"), until(isWaiting)},
             .precede = machineWithSlow("ps")},
        });
    for (Shot& shot : shots) {
        shot.furnish = furnish;
    }
    return shots;
}

}
