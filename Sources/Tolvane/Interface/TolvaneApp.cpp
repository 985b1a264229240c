#include <Interface/TolvaneApp.h>

#include <algorithm>

namespace tolvane {
namespace {

std::string truth(bool value) {
    return value ? "true" : "false";
}

}

TolvaneApp::TolvaneApp(const Host& host)
    : log_(host.layout.locations, host.files)
    , diagnostics_(host.layout.locations, log_, host.files)
    , defaults_(host.layout.locations.userDefaultsFile)
    , access_(host.layout, host.files, workers_.workers(), log_, host.workspace)
    , environment_{host.layout, host.files,     host.trash, workers_.workers(), log_,
                   defaults_,   host.workspace, access_,    host.clock}
    , chooser_(environment_)
    , spaceAnalysis_(environment_)
    , uninstaller_(environment_)
    , duplicates_(environment_)
    , ports_(environment_)
    , performance_(environment_)
    , brightpass_(environment_)
    , settings_(environment_, host.program)
    , disk_(environment_)
    , modules_({{"title", [](const Module& module) { return module.title; }},
                {"iconName", [](const Module& module) { return module.iconName; }},
                {"screen", [](const Module& module) { return module.screen; }},
                {"controller",
                 [](const Module& module) { return QVariant::fromValue(module.controller); }}},
               [](const Module& module) { return module.name; }) {
    recordLaunch(host.program.version);
    modules_.reset({{"arborview", "Space Analysis", "circle.hexagongrid",
                     QUrl("qrc:/Tolvane/ContentView.qml"), &spaceAnalysis_},
                    {"uninstaller", "Uninstaller", "trash",
                     QUrl("qrc:/Tolvane/UninstallerScreen.qml"), &uninstaller_},
                    {"duplicates", "Duplicates", "doc.on.doc",
                     QUrl("qrc:/Tolvane/DuplicatesScreen.qml"), &duplicates_},
                    {"ports", "Ports", "network", QUrl("qrc:/Tolvane/PortsScreen.qml"), &ports_},
                    {"performance", "Performance", "speedometer",
                     QUrl("qrc:/Tolvane/PerformanceScreen.qml"), &performance_},
                    {"brightpass", "Brightpass", "sparkles",
                     QUrl("qrc:/Tolvane/BrightpassScreen.qml"), &brightpass_}});
    followLinks();
    currentModule_.setValue(firstModule());
}

TolvaneApp::~TolvaneApp() = default;

void TolvaneApp::showModule(int row) {
    if (row >= 0 && row < modules_.rowCount()) {
        currentModule_ = row;
    }
}

void TolvaneApp::scanNamed(const FileURL& folder) {
    showModule(0);
    spaceAnalysis_.scan(folder, "command line");
}

void TolvaneApp::showModule(const QObject& controller) {
    const std::vector<Module>& modules = modules_.records();
    const auto found =
        std::find_if(modules.begin(), modules.end(), [&controller](const Module& module) {
            return module.controller == &controller;
        });
    showModule(static_cast<int>(found - modules.begin()));
}

void TolvaneApp::followLinks() {
    connect(&brightpass_, &BrightpassViewModel::junkRequested, this, [this](const FileURL& folder) {
        showModule(spaceAnalysis_);
        spaceAnalysis_.scan(folder, "brightpass");
    });
    connect(&brightpass_, &BrightpassViewModel::appRequested, this,
            [this](const InstalledApp& app) {
                showModule(uninstaller_);
                uninstaller_.setQuery(QString());
                uninstaller_.select(app);
            });
    connect(&brightpass_, &BrightpassViewModel::duplicatesRequested, this,
            [this](const FileURL& folder, Bytes minimumSize) {
                showModule(duplicates_);
                duplicates_.setMinimumSize(minimumSize);
                duplicates_.scanRoot(folder);
            });
}

void TolvaneApp::recordLaunch(const std::string& version) {
    log_.write("app launch version=" + (version.empty() ? "?" : version));
    diagnostics_.recordLaunch();
    const FullDiskAccessStatus& status = access_.status();
    log_.write("fda launch granted=" + truth(status.granted) +
               " confirmed=" + truth(status.confirmed) + " detail=" + status.detail);
}

int TolvaneApp::firstModule() const {
    const std::vector<Module>& modules = modules_.records();
    const QString wanted = defaults_.text("initialModule").value_or(QString());
    const auto found =
        std::find_if(modules.begin(), modules.end(),
                     [&wanted](const Module& module) { return module.name == wanted; });
    return found == modules.end() ? 0 : static_cast<int>(found - modules.begin());
}

}
