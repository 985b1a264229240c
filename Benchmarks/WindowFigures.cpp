#include "WindowFigures.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

namespace tolvane {

int runParts(int count, char** arguments, const std::vector<BenchmarkPart>& parts) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QGuiApplication application(count, arguments);
    MainWindow::prepareApplication();
    bool isKnown = false;
    for (const auto& [name, part] : parts) {
        if (count < 2 || name == arguments[1]) {
            part();
            isKnown = true;
        }
    }
    return isKnown ? 0 : 2;
}

void report(std::string_view what, const Span& span, Milliseconds limit) {
    fmt::print("{:<58} busy {:>7.1f} ms   wall {:>7.1f} ms   limit {:>5.0f} ms  {}\n", what,
               span.busy, span.wall, limit, span.busy <= limit ? "ok" : "TOO SLOW");
    std::fflush(stdout);
}

void awaitEvents(const std::function<bool()>& isDone) {
    while (!isDone()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
}

Span untilDrawn(QQuickWindow& window, const std::function<void()>& act) {
    bool isDrawn = false;
    const auto connection =
        QObject::connect(&window, &QQuickWindow::frameSwapped, [&isDrawn] { isDrawn = true; });
    const Stopwatch watch;
    act();
    window.update();
    awaitEvents([&isDrawn] { return isDrawn; });
    const Span span = watch.elapsed();
    QObject::disconnect(connection);
    return span;
}

}
