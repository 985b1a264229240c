// What a person waits for in the window, drawn by the software renderer without a screen. Every
// figure stands beside its limit. "busy" is the time the main thread computed at a stretch, "wall"
// what passed meanwhile, which other programs lengthen. An argument chooses one part.

#include "WindowFigures.h"

#include <Support/MadeUpTool.h>
#include <Support/SyntheticFiles.h>
#include <Support/TemporaryHome.h>

#include <ControllerSupport/ControllerHome.h>
#include <Controllers/UninstallerViewModel.h>
#include <fmt/format.h>

#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace tolvane {
namespace {

SyntheticItem folderOf(std::string name, int files, Bytes size) {
    SyntheticItem folder = SyntheticItem::folder(std::move(name));
    folder.children.reserve(static_cast<std::size_t>(files));
    for (int i = 0; i < files; ++i) {
        folder.children.push_back(SyntheticItem::file("file " + std::to_string(i), size + i));
    }
    return folder;
}

Harness::Setting settingWith(SyntheticItem root) {
    Harness::Setting setting;
    setting.files = [files = std::make_shared<SyntheticFiles>("/data", std::move(root))](
                        const auto&) -> std::shared_ptr<const FileManager> { return files; };
    return setting;
}

QQuickItem* scrollingView(QQuickItem& item) {
    if (item.inherits("QQuickFlickable") && item.isVisible() &&
        item.property("contentHeight").toDouble() > 10'000) {
        return &item;
    }
    for (QQuickItem* child : item.childItems()) {
        if (QQuickItem* found = scrollingView(*child)) {
            return found;
        }
    }
    return nullptr;
}

void scroll(Harness& harness, std::string_view what) {
    constexpr int frames = 100;
    constexpr double step = 96;
    constexpr Milliseconds limit = 33;
    QQuickItem* view = scrollingView(*harness.window().contentItem());
    if (view == nullptr) {
        fmt::print("{}: no view of that length was found\n", what);
        return;
    }
    Span worst;
    for (int frame = 0; frame < frames; ++frame) {
        const double y = view->property("contentY").toDouble() + step;
        const Span span = untilDrawn(harness.window(), [&] { view->setProperty("contentY", y); });
        worst.extendTo(span);
    }
    report(fmt::format("{}, the slowest of {} frames", what, frames), worst, limit);
}

void openLargeFolder() {
    constexpr int rows = 8192;
    const TemporaryHome home;
    SyntheticItem root = SyntheticItem::folder("data", {folderOf("large", rows, 4096)});
    Harness harness(home, settingWith(std::move(root)));
    harness.scan(FileURL("/data"));
    for (const char* const view : {"list", "grid"}) {
        harness.controller().setSpaceAnalysisView(view);
        QTest::qWait(600);
        const FileNode large = harness.controller().path().front().children().front();
        report(fmt::format("opening a folder of {} rows, {}", rows, view),
               untilDrawn(harness.window(), [&] { harness.controller().drill(large); }), 100);
        QTest::qWait(600);
        scroll(harness, fmt::format("scrolling it, {}", view));
        const QString item = harness.controller().folder()->nodeIDAt(0);
        Span slowest;
        for (int click = 0; click < 20; ++click) {
            const Span span =
                untilDrawn(harness.window(), [&] { harness.controller().select(item, true); });
            slowest.extendTo(span);
        }
        report(fmt::format("a tick in it until it is drawn, {}", view), slowest, 16);
        harness.controller().goBack();
    }
}

/// About as many nodes as a scan keeps at most: 250,000 folders, 200,000 files.
SyntheticItem largestTree() {
    constexpr int folders = 249;
    constexpr int inner = 1000;
    constexpr int files = 2;
    constexpr Bytes smallFile = 4096;
    constexpr Bytes keyFile = 2'000'000;
    SyntheticItem root = SyntheticItem::folder("data");
    for (int i = 0; i < folders; ++i) {
        SyntheticItem folder = SyntheticItem::folder("folder " + std::to_string(i));
        folder.children.reserve(inner);
        for (int j = 0; j < inner; ++j) {
            folder.children.push_back(folderOf("inner " + std::to_string(j), files,
                                               i < folders / 2 ? smallFile : keyFile));
        }
        root.children.push_back(std::move(folder));
    }
    return root;
}

void applyLargestResult() {
    const TemporaryHome home;
    Harness harness(home, settingWith(largestTree()));
    ScanViewModel& controller = harness.controller();
    for (const char* const what : {"the first result", "a result in the place of another"}) {
        const StallWatch watch;
        controller.scan(FileURL("/data"), "benchmark");
        awaitEvents([&] { return controller.stage() == Ui::Stage::Result; });
        QTest::qWait(300);
        const FileNode& root = controller.path().front();
        const NodeTotals all = totals(root);
        report(fmt::format("{} of {} kept nodes, longest stall", what,
                           all.listedFileCount + all.listedDirectoryCount),
               watch.longest(), 100);
    }
    controller.inspect(controller.folder()->nodeIDAt(0));
    const QString item = controller.folder()->nodeIDAt(0);
    report("a tick in it until it is drawn",
           untilDrawn(harness.window(), [&] { controller.select(item, true); }), 16);
}

void scanWholeDisk() {
    const TemporaryHome home;
    Harness harness(home);
    const StallWatch watch;
    harness.controller().scan(FileURL("/"), "benchmark");
    awaitEvents([&] { return harness.controller().stage() == Ui::Stage::Result; });
    QTest::qWait(300);
    report(fmt::format("scan of \"/\" ({}), longest stall",
                       harness.controller().folderText().toStdString()),
           watch.longest(), 100);
}

/// Each of the groups has three files, the first ones four.
void makeCopies(const TemporaryHome& home, int groups, int files) {
    constexpr int inFolder = 500;
    for (int file = 0; file < files; ++file) {
        const std::string place = "data/folder " + std::to_string(file / inFolder) + "/file ";
        home.write(place + std::to_string(file),
                   fmt::format("content of group {:>8}", file % groups));
    }
}

void openDuplicates() {
    constexpr int groups = 30'000;
    constexpr int files = 100'000;
    const TemporaryHome home;
    makeCopies(home, groups, files);
    Harness harness(home);
    harness.showModule("Duplicates");
    DuplicatesViewModel& controller = harness.app().duplicates();
    controller.setMinimumSize(Bytes{1});
    QTest::qWait(300);
    {
        const StallWatch watch;
        controller.scanPath(QString::fromStdString(home.path("data")));
        awaitEvents([&] { return controller.stage() == Ui::Stage::Result; });
        QTest::qWait(300);
        report(fmt::format("{} duplicates in {} groups, longest stall",
                           controller.result()->duplicateFiles(), controller.groups().size()),
               watch.longest(), 100);
    }
    scroll(harness, "scrolling them");
    report("a tick in them until it is drawn",
           untilDrawn(harness.window(), [&] { controller.toggleRow(1); }), 16);
    report("a tick for every copy until it is drawn",
           untilDrawn(harness.window(), [&] { controller.selectAllCopies(); }), 100);
    report("filtering them until it is drawn",
           untilDrawn(harness.window(), [&] { controller.rows()->setFilter("file 77"); }), 100);
}

/// What lsof tells of `count` processes; every tenth is another one in each round.
std::string listenersOf(int round, int count) {
    std::string told;
    for (int number = 0; number < count; ++number) {
        const int pid = 100'000 + number + (number % 10 == 0 ? round * count : 0);
        told += fmt::format("p{}\ncserver {}\nPTCP\nn127.0.0.1:{}\n", pid, pid * 7 % count,
                            1024 + number);
    }
    return told;
}

/// The first listeners, for which the rows in sight are made, then the usual refresh of all and the
/// slowest one: none may cost more than the limit.
void refreshPorts(Ui::PortKey key, bool isDrawn) {
    constexpr int listeners = 1000;
    const TemporaryHome home;
    const FileURL lsof = madeUpTool(home, "cat '" + home.path("told") + "'", "lsof");
    home.write("told", listenersOf(0, listeners));
    Harness harness(home, {.layout = [&](HostLayout& layout) { layout.tools.lsof = lsof; }});
    PortsViewModel& ports = harness.app().ports();
    ports.setAutoRefresh(false);
    ports.sortBy(key);
    const auto untilShown = [&](int round) {
        while (ports.isScanning() || !ports.hasResult()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
        const int firstPID = 100'000 + round * listeners;
        if (ports.rows()->rowCount() != listeners ||
            ports.rowOf(QStringLiteral("%1-1024-TCP").arg(firstPID)) < 0) {
            fmt::print(stderr, "round {} did not arrive in the table\n", round);
            std::exit(1);
        }
        QTest::qWait(50);
    };
    const std::string what =
        fmt::format("{} listeners by {}{}", listeners,
                    key == Ui::PortKey::Port ? "port" : "process", isDrawn ? ", drawn" : "");
    {
        const StallWatch watch;
        // Asks for them as no other screen does.
        harness.showModule("Ports");
        untilShown(0);
        report("the first " + what, watch.longest(), 100);
    }
    harness.showModule(isDrawn ? "Ports" : "Space Analysis");
    QTest::qWait(300);
    std::vector<Span> rounds;
    for (int round = 1; round <= 21; ++round) {
        home.write("told", listenersOf(round, listeners));
        const StallWatch watch;
        ports.refresh();
        untilShown(round);
        rounds.push_back(watch.longest());
    }
    std::sort(rounds.begin(), rounds.end(),
              [](const Span& a, const Span& b) { return a.busy < b.busy; });
    report("refreshing " + what, rounds[rounds.size() / 2], 5);
    report("refreshing " + what + ", the slowest", rounds.back(), 5);
}

/// Every keystroke of a search, there and back, over as many applications as a person may have.
void searchApplications() {
    constexpr int count = 2'000;
    const ControllerHome home;
    for (int number = 0; number < count; ++number) {
        home.write(fmt::format("Applications/App {0}.app/org.example.app{0}.desktop", number),
                   fmt::format("[Desktop Entry]\nName=Application {}\n", number));
    }
    UninstallerViewModel apps(home.environment());
    apps.load();
    awaitEvents([&] { return !apps.isLoading(); });
    QTest::qWait(1000);
    Span slowest;
    for (const char* const query :
         {"a", "ap", "app 1", "app 19", "APPLICATION 19", "app", "9", ""}) {
        const Stopwatch watch;
        apps.setQuery(query);
        const Span span = watch.elapsed();
        slowest.extendTo(span);
    }
    report(fmt::format("a keystroke of a search in {} applications", apps.apps().size()), slowest,
           16);
}

void refreshPorts() {
    for (const Ui::PortKey key : {Ui::PortKey::Port, Ui::PortKey::Process}) {
        refreshPorts(key, false);
        refreshPorts(key, true);
    }
}

/// What a table of heavy processes is filled with; sizes differ in each round.
void tellProcesses(const TemporaryHome& home, int round) {
    std::string told;
    for (int number = 0; number < 300; ++number) {
        told += fmt::format("{} {} 1.5 process {}\n", 100'000 + number,
                            1000 + (number * 37 + round * 11) % 300, number);
    }
    home.write("told", told);
}

void waitFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.start(time);
    loop.exec();
}

void showPerformance() {
    constexpr std::chrono::seconds idle{12};
    const TemporaryHome home;
    tellProcesses(home, 0);
    const FileURL ps = madeUpTool(home, "cat '" + home.path("told") + "'", "ps");
    Harness harness(home, {.layout = [&](HostLayout& layout) {
                        layout.tools.heavyProcesses = {ps, {}};
                    }});
    PerformanceViewModel& performance = harness.app().performance();
    harness.showModule("Performance");
    waitFor(std::chrono::seconds(1));
    const Milliseconds before = clockOf(CLOCK_PROCESS_CPUTIME_ID);
    waitFor(idle);
    const Milliseconds used = clockOf(CLOCK_PROCESS_CPUTIME_ID) - before;
    report(
        fmt::format("the performance screen open for {} s, its refreshes included", idle.count()),
        {used, 1000.0 * static_cast<double>(idle.count())},
        10.0 * static_cast<double>(idle.count()));
    Span slowest;
    for (int round = 1; round <= 20; ++round) {
        tellProcesses(home, round);
        const StallWatch watch;
        performance.refreshAll();
        QTest::qWait(100);
        slowest.extendTo(watch.longest());
    }
    report("refreshing it, drawn", slowest, 33);
}

int run(int argumentCount, char** arguments) {
    return runParts(argumentCount, arguments,
                    {{"folder", openLargeFolder},
                     {"result", applyLargestResult},
                     {"duplicates", openDuplicates},
                     {"ports", [] { refreshPorts(); }},
                     {"applications", searchApplications},
                     {"performance", showPerformance},
                     {"disk", scanWholeDisk}});
}

}
}

int main(int argumentCount, char** arguments) {
    return tolvane::run(argumentCount, arguments);
}
