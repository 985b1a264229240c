// Draws every state of every screen, light and dark, into the folder named on the command line.

#include "SampleHome.h"
#include "Shot.h"

#include <Support/FaultyFiles.h>

#include <Controllers/ShownText.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QGuiApplication>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <cerrno>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

namespace tolvane {
namespace {

Shots allShots() {
    Shots all;
    for (Shots (*const shots)() : {spaceAnalysisShots, uninstallerShots, duplicatesShots,
                                   portsShots, performanceShots, brightpassShots, windowShots}) {
        for (const Shot& shot : shots()) {
            all.push_back(shot);
            if (shot.isAlsoSmall) {
                all.push_back(shot);
                all.back().name += "-small";
                all.back().size = {860, 560};
            }
        }
    }
    return all;
}

Harness::Setting settingOf(const Shot& shot, Harness::Scheme scheme,
                           const std::shared_ptr<Gate>& gate, const std::shared_ptr<Date>& ahead) {
    Harness::Setting setting;
    setting.clock = [ahead] { return steadyTime() + *ahead; };
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
        const FileURL proc = layout.locations.home.appending("proc");
        if (QDir(qurl(proc).toLocalFile()).exists()) {
            layout.sources.proc = proc;
        }
        if (shot.furnish != nullptr) {
            shot.furnish(layout);
        }
    };
    return setting;
}

bool take(const Shot& shot, Harness::Scheme scheme, const QString& folder) {
    const TemporaryHome home;
    fillSampleHome(home);
    const auto gate = std::make_shared<Gate>();
    const auto ahead = std::make_shared<Date>(0);
    if (shot.precede) {
        shot.precede(home);
    }
    Harness harness(home, settingOf(shot, scheme, gate, ahead));
    Scene scene{home, harness, *gate, *ahead};
    all(shot.prepare)(scene);
    // Menus come in and tooltips wait before they are seen.
    wait(300)(scene);
    const bool isDark = scheme == Harness::Scheme::dark;
    const QString suffix = (isDark ? "-dark-" : "-light-") +
                           QString::number(100 * harness.window().effectiveDevicePixelRatio()) +
                           ".png";
    const bool isSaved =
        harness.grab().save(folder + "/" + QString::fromStdString(shot.name) + suffix);
    gate->open();
    return isSaved;
}

int takeAll(const QString& folder, const QString& wanted) {
    if (!QDir().mkpath(folder)) {
        return 1;
    }
    bool isComplete = true;
    for (const Shot& shot : allShots()) {
        if (!QString::fromStdString(shot.name).contains(wanted)) {
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
