#pragma once

#include <Services/Job.h>

#include <BrightpassKit/BrightpassReport.h>
#include <Controllers/Activity.h>
#include <Controllers/BrightpassRows.h>
#include <Controllers/Environment.h>
#include <Controllers/FailureFolder.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/Ui.h>

#include <QString>
#include <QStringList>
#include <memory>
#include <string>

namespace tolvane {

/// The controller of the one-pass check: measures junk, leftovers and duplicates in one run, and
/// leads to the modules that remove them. For the main thread.
class BrightpassViewModel : public QObject {
    Q_OBJECT
    /// `Working` until a run that was cancelled has come back, too.
    PUBLISHED(BrightpassViewModel, tolvane::Ui::Stage, shownStage)
    PUBLISHED(BrightpassViewModel, bool, isScanning)
    /// What the run is at, "Measuring junk"; empty between runs.
    PUBLISHED(BrightpassViewModel, QString, stage)
    /// How many of `stages` are behind the run; negative before the first.
    PUBLISHED(BrightpassViewModel, int, stageNumber)
    /// One line about the last run or the next; empty when there is nothing to tell.
    PUBLISHED(BrightpassViewModel, QString, banner)
    /// Whether the report is that of a run which was cancelled.
    PUBLISHED(BrightpassViewModel, bool, isPartial)
    PUBLISHED(BrightpassViewModel, bool, showFailures)

    // Ready text.
    /// Where the next run looks for duplicates.
    PUBLISHED(BrightpassViewModel, QString, duplicatesPath)
    /// "Up to 1.2 GB can be reclaimed"
    PUBLISHED(BrightpassViewModel, QString, headline)
    /// "1.2 GB"
    PUBLISHED(BrightpassViewModel, QString, totalText)
    PUBLISHED(BrightpassViewModel, QString, junkText)
    PUBLISHED(BrightpassViewModel, QString, leftoverText)
    PUBLISHED(BrightpassViewModel, QString, duplicateText)
    /// "12 applications"
    PUBLISHED(BrightpassViewModel, QString, appsSummary)
    /// "12 groups in Downloads"
    PUBLISHED(BrightpassViewModel, QString, duplicatesSummary)
    /// "Checked in 2.1 s", "Stopped after 2.1 s"
    PUBLISHED(BrightpassViewModel, QString, elapsedText)
    /// "2 folders could not be read"; empty when all could.
    PUBLISHED(BrightpassViewModel, QString, failuresText)

    /// Roles as `BrightpassRows::roles` tells.
    Q_PROPERTY(tolvane::ListModel* parts READ parts CONSTANT)
    Q_PROPERTY(tolvane::ListModel* junk READ junk CONSTANT)
    Q_PROPERTY(tolvane::ListModel* apps READ apps CONSTANT)
    Q_PROPERTY(tolvane::ListModel* duplicates READ duplicates CONSTANT)
    /// What a run goes through.
    Q_PROPERTY(QStringList stages READ stages CONSTANT)
    Q_PROPERTY(tolvane::Activity* activity READ activity CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    /// Roles `pathText`, `countText`.
    Q_PROPERTY(tolvane::ListModel* failureFolders READ failureFolders CONSTANT)

  public:
    ListModel* parts() { return &parts_; }
    ListModel* junk() { return &junk_; }
    ListModel* apps() { return &apps_; }
    ListModel* duplicates() { return &duplicates_; }
    const QStringList& stages() const { return stages_; }
    Activity* activity() { return &activity_; }
    AccessStatus* access() { return &environment_.access; }
    ListModel* failureFolders() { return &failureFolders_; }

    explicit BrightpassViewModel(const Environment& environment);
    ~BrightpassViewModel() override;

    /// Null without one.
    const BrightpassReport* report() const { return report_.get(); }

    /// The screen came up: checks by itself when the settings say so and there is nothing to show.
    Q_INVOKABLE void appeared();
    Q_INVOKABLE void run();
    /// What the run found until now still becomes the report.
    Q_INVOKABLE void cancel();
    /// Stops the run; one that was cancelled and does not come back is given up.
    Q_INVOKABLE void cancelActivity();
    /// Lets a person choose where the next runs look for duplicates.
    Q_INVOKABLE void chooseDuplicatesRoot();
    Q_INVOKABLE void dismissBanner();

    Q_INVOKABLE void openFailures();
    Q_INVOKABLE void closeFailures();

    // Links to the other modules. A row that does not exist is ignored, and one that holds nothing.

    Q_INVOKABLE void showJunk(int row);
    Q_INVOKABLE void showApp(int row);
    Q_INVOKABLE void showDuplicates();

  Q_SIGNALS:
    /// A person wants to see what fills the folder.
    void junkRequested(const tolvane::FileURL& folder);
    /// A person wants to see the application and its leftovers.
    void appRequested(const tolvane::InstalledApp& app);
    /// A person wants to see the duplicates in the folder, from the size on that was checked.
    void duplicatesRequested(const tolvane::FileURL& folder, tolvane::Bytes minimumSize);

  private:
    struct Outcome {
        std::shared_ptr<const BrightpassReport> report;
        bool isCancelled = false;
    };

    FileURL duplicatesRoot() const;
    void apply(Outcome outcome);
    void abandon(const std::string& reason);
    void replaceReport(std::shared_ptr<const BrightpassReport> report);
    void publishReport();
    void publishStage();
    void showStage(const QString& stage);
    void tellNextDuplicatesPath();
    void log(const std::string& message) const;

    const Environment& environment_;
    RecordModel<BrightpassRow> parts_;
    RecordModel<BrightpassRow> junk_;
    RecordModel<BrightpassRow> apps_;
    RecordModel<BrightpassRow> duplicates_;
    RecordModel<FailureFolder> failureFolders_;
    const QStringList stages_;
    Activity activity_;
    Date startedAt_ = 0;
    std::shared_ptr<const BrightpassReport> report_;
    Job<std::string, Outcome> runJob_;
};

}
