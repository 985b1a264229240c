// What the whole application takes: its start, the memory it then holds with every screen visited,
// switching modules and quitting while all of them work. An argument chooses one part.

#include "WindowFigures.h"

#include <Support/TemporaryHome.h>

#include <fmt/format.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace tolvane {
namespace {

/// A folder that keeps all modules at work for a while.
const FileURL largeFolder("/usr");

void tell(std::string_view what, const std::string& figure, bool isKept) {
    fmt::print("{:<44} {:<62} {}\n", what, figure, isKept ? "ok" : "TOO MUCH");
    std::fflush(stdout);
}

/// The same program, in which `part` is measured from its very start to its very end.
QByteArray outputOf(const char* part) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {part});
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

void showFirstFrame() {
    const TemporaryHome home;
    const Harness harness(home);
    fmt::print("{}", clockOf(CLOCK_PROCESS_CPUTIME_ID));
}

void measureStart() {
    std::vector<Milliseconds> times(5);
    std::generate(times.begin(), times.end(), [] { return outputOf("first-frame").toDouble(); });
    std::sort(times.begin(), times.end());
    report("start to first frame, CPU time of all threads", {times[2], times.back()}, 400);
}

void visitAll(Harness& harness) {
    for (int row = harness.app().modules()->rowCount() - 1; row >= 0; --row) {
        harness.press(static_cast<Qt::Key>(Qt::Key_1 + row), Qt::ControlModifier);
        QTest::qWait(20);
    }
}

/// Kibibytes, as the kernel names them.
double memoryNamed(const QByteArray& smaps, const QByteArray& name) {
    const qsizetype start = smaps.indexOf(name) + name.size();
    return smaps.mid(start, smaps.indexOf("kB", start) - start).trimmed().toDouble();
}

void holdMemory() {
    const TemporaryHome home;
    Harness harness(home);
    for (int round = 0; round < 3; ++round) {
        visitAll(harness);
        harness.grab();
    }
    QTest::qWait(5'000);
    QFile smaps("/proc/self/smaps_rollup");
    if (smaps.open(QIODevice::ReadOnly)) {
        fmt::print("{}", smaps.readAll().toStdString());
    }
}

/// What the process holds by itself and its whole share of the libraries that others use as well:
/// the resident size, which no other program's running makes smaller.
void measureMemory() {
    constexpr double mebibyte = 1024;
    constexpr double limit = 150;
    const QByteArray smaps = outputOf("memory-held");
    const auto size = [&](const char* name) { return memoryNamed(smaps, name) / mebibyte; };
    tell("idle memory, every screen visited",
         fmt::format("resident {:.1f} MiB (private {:.1f})   limit {:.0f} MiB", size("Rss:"),
                     size("Private_Clean:") + size("Private_Dirty:"), limit),
         size("Rss:") > 0 && size("Rss:") <= limit);
}

/// Everything that ends begins anew.
void keepWorking(TolvaneApp& app) {
    if (!app.spaceAnalysis().isScanning()) {
        app.spaceAnalysis().scan(largeFolder, "benchmark");
    }
    if (!app.duplicates().isScanning()) {
        app.duplicates().scanRoot(largeFolder);
    }
    if (!app.brightpass().isScanning()) {
        app.brightpass().run();
    }
    app.uninstaller().load();
    app.ports().refresh();
    app.performance().refreshAll();
}

void measureSwitching() {
    const TemporaryHome home;
    Harness harness(home);
    harness.app().defaults().setPath("brightpassDuplicatesPath", largeFolder);
    visitAll(harness);
    const StallWatch watch;
    for (int round = 0; round < 30; ++round) {
        keepWorking(harness.app());
        visitAll(harness);
    }
    report("switching modules 180 times while all work, longest stall", watch.longest(), 100);
}

void quitAtWork() {
    const TemporaryHome home;
    Harness harness(home);
    harness.app().defaults().setPath("brightpassDuplicatesPath", largeFolder);
    visitAll(harness);
    keepWorking(harness.app());
    QTest::qWait(700);
    keepWorking(harness.app());
    visitAll(harness);
    fmt::print("{} {}", clockOf(CLOCK_MONOTONIC), clockOf(CLOCK_PROCESS_CPUTIME_ID));
}

Milliseconds timeOfChildren() {
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) * 1e-3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

void measureQuitting() {
    constexpr Milliseconds limit = 2'000;
    Span slowest;
    for (int round = 0; round < 5; ++round) {
        const Milliseconds before = timeOfChildren();
        const QList<QByteArray> begin = outputOf("quit-at-work").split(' ');
        slowest.extendTo({timeOfChildren() - before - begin.at(1).toDouble(),
                          clockOf(CLOCK_MONOTONIC) - begin.at(0).toDouble()});
    }
    tell("quitting while all modules work, the slowest",
         fmt::format("until the process is gone {:.0f} ms (CPU {:.0f} ms)   limit {:.0f} ms",
                     slowest.wall, slowest.busy, limit),
         slowest.wall <= limit);
}

/// A part of these runs in a process of its own, which only tells what it saw.
void measureAll() {
    measureStart();
    measureMemory();
    measureSwitching();
    measureQuitting();
}

int run(int argumentCount, char** arguments) {
    if (argumentCount < 2) {
        return runParts(argumentCount, arguments, {{"", measureAll}});
    }
    return runParts(argumentCount, arguments,
                    {{"start", measureStart},
                     {"first-frame", showFirstFrame},
                     {"memory", measureMemory},
                     {"memory-held", holdMemory},
                     {"switch", measureSwitching},
                     {"quit", measureQuitting},
                     {"quit-at-work", quitAtWork}});
}

}
}

int main(int argumentCount, char** arguments) {
    return tolvane::run(argumentCount, arguments);
}
