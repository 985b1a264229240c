#pragma once

#include <Services/AppLog.h>
#include <Services/Diagnostics.h>

#include <Controllers/AccessStatus.h>
#include <Controllers/BrightpassViewModel.h>
#include <Controllers/DuplicatesViewModel.h>
#include <Controllers/Environment.h>
#include <Controllers/FolderChooser.h>
#include <Controllers/ListModel.h>
#include <Controllers/MainThreadWorkers.h>
#include <Controllers/PerformanceViewModel.h>
#include <Controllers/PortsViewModel.h>
#include <Controllers/RecordModel.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/SettingsViewModel.h>
#include <Controllers/UninstallerViewModel.h>
#include <Controllers/UserDefaults.h>
#include <Interface/SystemDisk.h>
#include <QtQml/qqml.h>

#include <memory>
#include <string>

namespace tolvane {

/// The application: what is shared by its modules, the modules themselves, and which of them is on
/// screen. Knows no window.
class TolvaneApp : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's entry")
    /// The row of the module on screen.
    PUBLISHED(TolvaneApp, int, currentModule)
    Q_PROPERTY(tolvane::ListModel* modules READ modules CONSTANT)
    Q_PROPERTY(tolvane::SystemDisk* disk READ disk CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    Q_PROPERTY(tolvane::FolderChooser* chooser READ chooser CONSTANT)
    Q_PROPERTY(tolvane::SettingsViewModel* settings READ settings CONSTANT)

  public:
    /// The machine that the application works on.
    struct Host {
        HostLayout layout;
        std::shared_ptr<const FileManager> files;
        std::shared_ptr<const Trash> trash;
        Workspace& workspace;
        /// Empty where it is not known.
        SettingsViewModel::Program program;
        /// Seconds of a clock that never runs backwards.
        Clock clock = steadyTime;
    };

    /// Notes the launch in the log.
    explicit TolvaneApp(const Host& host);
    ~TolvaneApp() override;

    ListModel* modules() { return &modules_; }
    SystemDisk* disk() { return &disk_; }
    AccessStatus* access() { return &access_; }
    FolderChooser* chooser() { return &chooser_; }
    SettingsViewModel* settings() { return &settings_; }
    ScanViewModel& spaceAnalysis() { return spaceAnalysis_; }
    UninstallerViewModel& uninstaller() { return uninstaller_; }
    DuplicatesViewModel& duplicates() { return duplicates_; }
    PortsViewModel& ports() { return ports_; }
    PerformanceViewModel& performance() { return performance_; }
    BrightpassViewModel& brightpass() { return brightpass_; }
    UserDefaults& defaults() { return defaults_; }
    AppLog& log() { return log_; }
    const std::shared_ptr<const FileManager>& files() const { return environment_.files; }

    Q_INVOKABLE void showModule(int row);
    /// Shows what fills a folder that was named when the program was started.
    void scanNamed(const FileURL& folder);

  private:
    /// A screen, what drives it, and what leads to it.
    struct Module {
        /// In the settings.
        QString name;
        QString title;
        QString iconName;
        QUrl screen;
        QObject* controller = nullptr;
    };

    void recordLaunch(const std::string& version);
    int firstModule() const;
    void showModule(const QObject& controller);
    void followLinks();

    AppLog log_;
    Diagnostics diagnostics_;
    UserDefaults defaults_;
    MainThreadWorkers workers_;
    AccessStatus access_;
    const Environment environment_;
    FolderChooser chooser_;
    ScanViewModel spaceAnalysis_;
    UninstallerViewModel uninstaller_;
    DuplicatesViewModel duplicates_;
    PortsViewModel ports_;
    PerformanceViewModel performance_;
    BrightpassViewModel brightpass_;
    SettingsViewModel settings_;
    SystemDisk disk_;
    RecordModel<Module> modules_;
};

}
