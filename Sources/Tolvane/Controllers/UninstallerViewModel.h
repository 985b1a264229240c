#pragma once

#include <Services/Job.h>
#include <Services/ReviewItem.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>

#include <Controllers/Activity.h>
#include <Controllers/AppDetail.h>
#include <Controllers/AppRows.h>
#include <Controllers/Environment.h>
#include <Controllers/FailureFolder.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/Removal.h>
#include <Controllers/Ui.h>
#include <Controllers/UninstallerScan.h>

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of the uninstaller: lists what is installed, shows what one application takes and
/// leaves, moves both to the Trash and back. For the main thread.
class UninstallerViewModel : public QObject {
    Q_OBJECT
    /// `Working` only while there is nothing to show yet; a later load leaves the list where it is.
    PUBLISHED(UninstallerViewModel, tolvane::Ui::Stage, stage)
    /// The search; part of a name or of an identifier in letters of any case.
    PUBLISHED(UninstallerViewModel, QString, query)
    PUBLISHED(UninstallerViewModel, bool, isLoading)
    /// While a removal or its undoing runs; nothing else can be started then.
    PUBLISHED(UninstallerViewModel, bool, isWorking)
    /// One line about the last removal or undo; empty when there is none.
    PUBLISHED(UninstallerViewModel, QString, banner)

    // Ready text.
    /// "12 applications", "3 of 12 applications"
    PUBLISHED(UninstallerViewModel, QString, countText)
    /// Why the list is empty; empty when it is not.
    PUBLISHED(UninstallerViewModel, QString, emptyText)
    /// In which folders applications are looked for.
    PUBLISHED(UninstallerViewModel, QString, lookedInText)
    /// Which programs are not listed, and where they are removed; empty when all are listed.
    PUBLISHED(UninstallerViewModel, QString, leftOutText)
    /// "2 folders could not be read"; empty when all could.
    PUBLISHED(UninstallerViewModel, QString, failuresText)
    PUBLISHED(UninstallerViewModel, bool, showFailures)

    /// `filteredApps()` with the roles of `AppRows`.
    Q_PROPERTY(tolvane::ListModel* rows READ rows CONSTANT)
    /// The selected application.
    Q_PROPERTY(tolvane::AppDetail* detail READ detail CONSTANT)
    Q_PROPERTY(tolvane::Activity* activity READ activity CONSTANT)
    /// Its sheet is the review of the selected application.
    Q_PROPERTY(tolvane::Removal* removal READ removal CONSTANT)
    Q_PROPERTY(tolvane::AccessStatus* access READ access CONSTANT)
    /// Roles `pathText`, `countText`.
    Q_PROPERTY(tolvane::ListModel* failureFolders READ failureFolders CONSTANT)

  public:
    explicit UninstallerViewModel(const Environment& environment);
    ~UninstallerViewModel() override;

    ListModel* rows() { return &rows_; }
    AppDetail* detail() { return &detail_; }
    Activity* activity() { return &activity_; }
    Removal* removal() { return &removal_; }
    AccessStatus* access() { return &environment_.access; }
    ListModel* failureFolders() { return &failureFolders_; }

    // Fields

    std::vector<InstalledApp> apps() const;
    const std::optional<InstalledApp>& selected() const { return detail_.app(); }
    Bytes appSize() const { return detail_.appSize(); }
    const std::vector<LeftoverItem>& leftovers() const { return detail_.leftovers(); }
    bool showReview() const { return removal_.showReview(); }
    std::vector<ReviewItem> reviewItems() const { return removal_.reviewItems(); }
    const std::vector<RemovalReceipt>& receipts() const { return removal_.receipts(); }

    // Derived

    std::vector<InstalledApp> filteredApps() const;
    std::vector<LeftoverItem> removableLeftovers() const { return detail_.removableLeftovers(); }
    Bytes leftoverBytes() const { return detail_.leftoverBytes(); }

    // The list

    /// The screen came up: loads when nothing has been loaded yet.
    Q_INVOKABLE void appeared();
    /// Ignored while one runs, or a removal.
    Q_INVOKABLE void load();
    /// Gives up the load that runs; the list stays as it is.
    Q_INVOKABLE void stopLoading();
    /// Loads, and looks at the selected application again.
    Q_INVOKABLE void refresh();
    Q_INVOKABLE void setQuery(const QString& text);
    Q_INVOKABLE QString idAt(int row) const;
    /// Of the selected application; -1 when there is none or the list does not show it.
    Q_INVOKABLE int selectedRow() const;

    Q_INVOKABLE void openFailures();
    Q_INVOKABLE void closeFailures();

    // The selection. Ignored while something is moved; another one closes the sheet.

    void select(const InstalledApp& app);
    /// Ignored for the one that is selected and for ids of none, and while `rowsUpdated` is told:
    /// what a view then makes of its current row is no choice.
    Q_INVOKABLE void select(const QString& id);
    Q_INVOKABLE void clearSelection();

    // Places

    /// Shows the application's bundle in the file manager.
    Q_INVOKABLE void revealApp(const QString& id);
    Q_INVOKABLE void copyAppPath(const QString& id);
    /// Rows are those of `detail.leftovers`; one that does not exist is ignored.
    Q_INVOKABLE void revealLeftover(int row);
    Q_INVOKABLE void copyLeftoverPath(int row);

    // Removal

    /// Opens the sheet on the selected application and its leftovers that are not protected;
    /// ignored until they are known, or it would go without them.
    Q_INVOKABLE void prepareReview();
    /// Moves the leftovers first, then the application: what the sheet shows, or, without a sheet,
    /// what it would show.
    Q_INVOKABLE void removeReviewed();
    Q_INVOKABLE void undo();
    Q_INVOKABLE void dismissBanner();

  Q_SIGNALS:
    /// The rows are others, or at other places.
    void rowsUpdated();

  private:
    /// `load` without its respect for what runs.
    void startLoad();
    void apply(UninstallerScan::Inventory inventory);
    void abandonLoad(const std::string& reason);
    void endLoad();
    void showIcons(UninstallerScan::Icons icons);
    void showRows();
    void detailFound();
    Activity::State activityState() const;
    /// Null when there is none.
    const AppRow* find(const std::string& id) const;
    std::vector<ReviewItem> itemsToReview() const;

    void removed(const std::vector<RemovalReceipt>& receipts);
    void removalFailed(const RemovalError& error);
    void restored(std::size_t restored, const std::vector<RemovalError>& failed);
    void reviewClosed();
    void log(const std::string& message) const;

    struct Nothing {};

    const Environment& environment_;
    std::vector<AppRow> apps_;
    InstalledApps installed_;
    bool hasLoaded_ = false;
    bool isUpdating_ = false;
    std::int64_t readBundles_ = 0;
    Date loadStartedAt_ = 0;
    /// A removal failed, maybe in its midst, so the detail may show what is gone.
    bool isDetailStale_ = false;
    /// What the running removal takes: this application's leftovers, or it too.
    InstalledApp removing_;
    bool removesApp_ = false;
    RecordModel<AppRow> rows_;
    RecordModel<FailureFolder> failureFolders_;
    AppDetail detail_;
    Activity activity_;
    Removal removal_;
    Job<std::int64_t, UninstallerScan::Inventory> loadJob_;
    Job<Nothing, UninstallerScan::Icons> iconJob_;
};

}
