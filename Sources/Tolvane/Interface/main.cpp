#include <HostKit/CrashReporter.h>
#include <HostKit/Machine.h>
#include <HostKit/Text.h>
#include <Services/Diagnostics.h>
#include <Services/SignalWatch.h>

#include <Interface/CommandLine.h>
#include <Interface/DesktopWorkspace.h>
#include <Interface/MainWindow.h>

#include <QGuiApplication>
#include <QtGlobal>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <thread>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

namespace tolvane {
namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int wrongCommandLine = 2;
/// EX_UNAVAILABLE of sysexits.h; `./run` goes on in the terminal then.
constexpr int noDisplay = 69;
constexpr std::chrono::milliseconds longestEnding{1500};

int complain(const std::string& problem, int status) {
    std::cerr << "tolvane: " << displayText(problem) << '\n';
    return status;
}

/// Qt knows no other answer to a display that does not answer than to abort.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/,
                       const QString& message) {
    std::cerr << "tolvane: " << message.toStdString() << '\n';
    if (type == QtFatalMsg) {
        std::_Exit(noDisplay);
    }
}

/// Absolute and standardised, links not resolved; absent when the working directory is gone.
std::optional<FileURL> place(const std::string& argument, const HostLayout& layout) {
    std::error_code error;
    const std::string directory = std::filesystem::current_path(error).string();
    if (error && !argument.starts_with('/')) {
        return std::nullopt;
    }
    return layout.underHome(FileURL::absolute(argument, directory).standardized());
}

/// Who asks a second time does not want to wait for the window.
std::function<void()> quitting() {
    return [isAsked = false]() mutable {
        if (isAsked) {
            std::_Exit(failure);
        }
        isAsked = true;
        QMetaObject::invokeMethod(QCoreApplication::instance(), "quit", Qt::QueuedConnection);
    };
}

/// A worker may wait for a file system that never answers; nobody is to wait for the worker. What
/// is cut off then has lost nothing: that holds for the Trash and for the settings at any moment.
void limitEnding() {
    std::thread([] {
        std::this_thread::sleep_for(longestEnding);
        std::_Exit(success);
    }).detach();
}

int showWindow(char** arguments, const std::optional<std::string>& named) {
    const HostLayout layout = HostLayout::current();
    static_cast<void>(
        CrashReporter::install(crashReportDirectory(layout.locations), TOLVANE_VERSION));
    const std::shared_ptr<const FileManager> files = systemFileManager(layout);
    std::optional<FileURL> folder;
    if (named) {
        folder = place(*named, layout);
        if (!folder || files->targetType(*folder) != FileType::directory) {
            return complain("\"" + *named + "\" is not a folder", failure);
        }
    }

    // Before the threads of Qt, to which it must not matter.
    const SignalWatch watch(quitting());
    // What the command line asked for is not Qt's to read.
    int count = 1;
    const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
    const QGuiApplication application(count, arguments);
    qInstallMessageHandler(usual);
    MainWindow::prepareApplication();
    if (!Machine::hasGraphicsProcessor(layout.sources)) {
        MainWindow::drawWithoutGraphicsProcessor();
    }
    DesktopWorkspace workspace(layout.locations);
    TolvaneApp app(
        {layout, files, systemTrash(layout), workspace, {TOLVANE_VERSION, TOLVANE_BUILD}});
    workspace.chooseWith(app.chooser());
    Appearance appearance(QGuiApplication::palette());
    MainWindow main(app, appearance);
    if (main.window() == nullptr) {
        return complain("The window could not be made", failure);
    }
    appearance.followDesktop();
    main.show();
    if (folder) {
        app.scanNamed(*folder);
    }
    const int status = QGuiApplication::exec();
    limitEnding();
    return status;
}

int run(int count, char** arguments) {
    const CommandLine line = CommandLine::parse(count, arguments);
    if (!line.error.empty()) {
        return complain(line.error + "\n" + CommandLine::usage, wrongCommandLine);
    }
    switch (line.wish) {
    case CommandLine::Wish::help:
        std::cout << CommandLine::usage;
        break;
    case CommandLine::Wish::version:
        std::cout << "tolvane " TOLVANE_VERSION "\n";
        break;
    case CommandLine::Wish::window:
        return showWindow(arguments, line.folder);
    }
    return std::cout.flush() ? success : failure;
}

}
}

int main(int argumentCount, char** arguments) {
    try {
        return tolvane::run(argumentCount, arguments);
    } catch (const std::exception& error) {
        std::cerr << "tolvane: " << error.what() << '\n';
        return tolvane::failure;
    }
}
