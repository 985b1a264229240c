#pragma once

#include <HostKit/FileURL.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of the settings: the access to all files, what can be looked up when something
/// went wrong, and which version this is. For the main thread.
class SettingsViewModel : public QObject {
    Q_OBJECT
    /// The end of the log, or that there is none yet.
    PUBLISHED(SettingsViewModel, QString, logTail)
    /// Why no report is listed; empty when one is.
    PUBLISHED(SettingsViewModel, QString, noReportsText)
    Q_PROPERTY(QString versionText READ versionText CONSTANT)
    Q_PROPERTY(QString buildText READ buildText CONSTANT)
    Q_PROPERTY(QString logPath READ logPath CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    /// Crash reports of the last days: roles `name`, `pathText`.
    Q_PROPERTY(tolvane::ListModel* reports READ reports CONSTANT)

  public:
    static constexpr std::int64_t reportDays = 7;
    static constexpr Bytes tailBytes = 32'768;

    /// Which program this is; an empty text is shown as "Unknown".
    struct Program {
        std::string version;
        std::string build;
    };

    SettingsViewModel(const Environment& environment, const Program& program);
    ~SettingsViewModel() override;

    QString versionText() const { return versionText_; }
    QString buildText() const { return buildText_; }
    QString logPath() const;
    AccessStatus* access() { return &environment_.access; }
    ListModel* reports() { return &reports_; }

    /// The window came up: everything is read afresh.
    Q_INVOKABLE void appeared();
    /// Reads the reports and the end of the log afresh; `logTailShown` is told when it is there.
    Q_INVOKABLE void refresh();
    /// Shows the log in the file manager.
    Q_INVOKABLE void revealLog();
    /// Ignored for a row that does not exist.
    Q_INVOKABLE void revealReport(int row);

  Q_SIGNALS:
    /// The end of the log was read, whether it is another one or not.
    void logTailShown();

  private:
    struct Nothing {};
    struct Findings {
        std::vector<FileURL> reports;
        std::string tail;
    };

    void show(Findings findings);

    const Environment& environment_;
    const QString versionText_;
    const QString buildText_;
    RecordModel<FileURL> reports_;
    Job<Nothing, Findings> reading_;
};

}
