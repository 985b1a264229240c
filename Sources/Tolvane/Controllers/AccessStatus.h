#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <ScanKit/FullDiskAccess.h>
#include <Services/AppLog.h>
#include <Services/Job.h>

#include <Controllers/Published.h>
#include <Controllers/Workspace.h>

#include <QString>
#include <memory>

namespace tolvane {

/// Whether the application may read everything, and what can be done where it may not: one object
/// for all screens and the settings. For the main thread.
class AccessStatus : public QObject {
    Q_OBJECT
    PUBLISHED(AccessStatus, bool, isGranted)
    /// "Granted", "Not granted"
    PUBLISHED(AccessStatus, QString, statusText)
    PUBLISHED(AccessStatus, QString, detailText)
    /// The detail, and how to grant the access when it is missing. Screens show it only where their
    /// last run recorded failures: an ordinary user never gets this access and mostly needs none.
    PUBLISHED(AccessStatus, QString, guidanceText)

  public:
    /// Probes at once. What is borrowed outlives this object.
    AccessStatus(const HostLayout& layout, std::shared_ptr<const FileManager> files,
                 Workers& workers, AppLog& log, Workspace& workspace);

    const FullDiskAccessStatus& status() const { return status_; }

    /// Probes afresh before it returns.
    void refresh();
    /// Probes afresh on a worker, and then tells the log.
    Q_INVOKABLE void recheck();
    Q_INVOKABLE void openSettings();
    /// So that what was granted meanwhile takes effect.
    Q_INVOKABLE void relaunch();

  private:
    struct Nothing {};

    void show(FullDiskAccessStatus status);

    const HostLayout::Access probes_;
    const std::shared_ptr<const FileManager> files_;
    AppLog& log_;
    Workspace& workspace_;
    FullDiskAccessStatus status_;
    Job<Nothing, FullDiskAccessStatus> checking_;
};

}
