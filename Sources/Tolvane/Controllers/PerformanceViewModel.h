#pragma once

#include <PerformanceKit/MaintenanceService.h>
#include <PerformanceKit/SnapshotInventory.h>
#include <PerformanceKit/StartupAgent.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/MemoryHistory.h>
#include <Controllers/PerformanceRows.h>
#include <Controllers/PerformanceSampling.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>

#include <QList>
#include <QString>
#include <QTimer>
#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of memory, processes, the system's volume, what starts by itself, snapshots and
/// maintenance. For the main thread; whatever runs a tool is left to workers.
class PerformanceViewModel : public QObject {
    Q_OBJECT
    /// One line about the last action; empty when there is none.
    PUBLISHED(PerformanceViewModel, QString, banner)
    /// While a maintenance action or a purge runs; others are ignored meanwhile.
    PUBLISHED(PerformanceViewModel, bool, isBusy)
    /// The id of the selected process; empty: none.
    PUBLISHED(PerformanceViewModel, QString, selectedID)
    PUBLISHED(PerformanceViewModel, bool, hasMemory)
    PUBLISHED(PerformanceViewModel, bool, hasVolume)
    /// Whether the processes, what starts by itself and the snapshots have been asked for.
    PUBLISHED(PerformanceViewModel, bool, knowsProcesses)
    PUBLISHED(PerformanceViewModel, bool, knowsAgents)
    PUBLISHED(PerformanceViewModel, bool, knowsSnapshots)
    /// How much of the memory was used over the last five minutes, oldest first; negative where
    /// nobody looked.
    PUBLISHED(PerformanceViewModel, QList<double>, history)
    /// Of 1.
    PUBLISHED(PerformanceViewModel, double, volumeUsed)

    // Ready text.
    /// The question about the process that awaits its end; empty when none does.
    PUBLISHED(PerformanceViewModel, QString, pendingQuitText)
    /// That a tool takes unusually long; empty when none does.
    PUBLISHED(PerformanceViewModel, QString, waitingText)
    /// "9.1 GB of 16 GB used (57 %)"
    PUBLISHED(PerformanceViewModel, QString, memoryText)
    /// "Between 40 % and 57 % of the memory was used over the last five minutes"
    PUBLISHED(PerformanceViewModel, QString, historyText)
    PUBLISHED(PerformanceViewModel, QString, volumeName)
    /// "412 GB of 1 TB available (59 % used)"
    PUBLISHED(PerformanceViewModel, QString, volumeText)
    PUBLISHED(PerformanceViewModel, QString, volumeNote)
    /// "42 items, 17 of them started at log-in or boot"
    PUBLISHED(PerformanceViewModel, QString, agentsText)
    PUBLISHED(PerformanceViewModel, QString, snapshotsText)

    /// Set by the screen; the clock ticks only while it is.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)
    // Roles as `PerformanceRows` tells.
    Q_PROPERTY(tolvane::ListModel* memoryParts READ memoryParts CONSTANT)
    Q_PROPERTY(tolvane::ListModel* memoryFigures READ memoryFigures CONSTANT)
    Q_PROPERTY(tolvane::ListModel* processRows READ processRows CONSTANT)
    Q_PROPERTY(tolvane::ListModel* agentRows READ agentRows CONSTANT)
    Q_PROPERTY(tolvane::ListModel* snapshotRows READ snapshotRows CONSTANT)
    Q_PROPERTY(tolvane::ListModel* maintenanceRows READ maintenanceRows CONSTANT)

  public:
    static constexpr std::chrono::milliseconds refreshInterval{3000};
    using Action = std::function<MaintenanceOutcome(const MaintenanceService& service,
                                                    const std::function<bool()>& isCancelled)>;

    explicit PerformanceViewModel(const Environment& environment);
    ~PerformanceViewModel() override;

    bool isShown() const { return clock_.isActive(); }
    void setShown(bool isShown);
    ListModel* memoryParts() { return &memoryParts_; }
    ListModel* memoryFigures() { return &memoryFigures_; }
    ListModel* processRows() { return &processRows_; }
    ListModel* agentRows() { return &agentRows_; }
    ListModel* snapshotRows() { return &snapshotRows_; }
    ListModel* maintenanceRows() { return &maintenanceRows_; }

    // Fields

    const std::optional<MemoryStats>& memory() const { return figures_.memory; }
    const std::optional<VolumeStats>& volume() const { return figures_.volume; }
    std::vector<HeavyProcess> processes() const;
    const std::vector<StartupAgent>& agents() const { return agentRows_.records(); }
    std::vector<StartupAgent> runAtLoadAgents() const;
    const SnapshotInventory& snapshotInventory() const { return inventory_; }
    std::optional<HeavyProcess> pendingQuit() const;
    /// What was last said of each maintenance action, by its key.
    const std::map<std::string, std::string>& statuses() const { return statuses_; }

    // Sampling

    /// Takes the figures at once and asks for the processes anew.
    void refreshStats();
    /// That, what starts by itself, and the snapshots.
    Q_INVOKABLE void refreshAll();
    /// Ends the tools that lists are waited for from; what is shown stays.
    Q_INVOKABLE void stopWaiting();

    // Maintenance

    void runMaintenance(const std::string& key, Action action);
    void thinSnapshots();
    void freeRAM();
    void releaseAppMemory();
    /// What stands in this row of `maintenanceRows`.
    Q_INVOKABLE void runRow(const QString& key);
    /// Ends the tool of the action that runs; what came of it still arrives. Without one it is the
    /// lists that are waited for no longer.
    Q_INVOKABLE void cancelActivity();
    Q_INVOKABLE void openLoginItemsSettings();

    // Quitting

    void quit(const ListedProcess& listed);
    /// Asks whether the process is to end.
    Q_INVOKABLE void askToQuit(const QString& id);
    Q_INVOKABLE void dismissQuit();
    Q_INVOKABLE void quitPending();

    // Rows

    /// Ignored while `processesUpdated` is told: what a view then makes of its current row is no
    /// choice.
    Q_INVOKABLE void select(const QString& id);
    Q_INVOKABLE QString processAt(int row) const;
    Q_INVOKABLE int rowOf(const QString& id) const;
    Q_INVOKABLE void copyPID(const QString& id);
    /// Shows the file that starts something in the file manager.
    Q_INVOKABLE void revealAgent(int row);
    Q_INVOKABLE void dismissBanner();

  Q_SIGNALS:
    void isShownChanged();
    /// The rows of processes are others, or at other places.
    void processesUpdated();

  private:
    struct Nothing {};
    struct Purged {
        MaintenanceOutcome outcome;
        std::optional<MemoryStats> before;
        std::optional<MemoryStats> after;
    };

    void tick();
    void sampleFigures();
    void sampleVolume();
    void startProcesses();
    void startAgents();
    void startSnapshots();
    void applyProcesses(std::vector<ListedProcess> listed);
    void applyAgents(std::vector<StartupAgent> agents);
    void applySnapshots(SnapshotInventory inventory);
    void publishMemory();
    void publishVolume();
    void publishWaiting();
    void begin(const std::string& key);
    void end();
    void maintained(const MaintenanceOutcome& outcome);
    void purged(const Purged& purge);
    void showMaintenance();
    const ListedProcess* find(const QString& id) const;
    void log(const std::string& message) const;

    const Environment& environment_;
    const MaintenanceService service_;
    RecordModel<FigureRow> memoryParts_;
    RecordModel<FigureRow> memoryFigures_;
    RecordModel<ListedProcess> processRows_;
    RecordModel<StartupAgent> agentRows_;
    RecordModel<LocalSnapshot> snapshotRows_;
    RecordModel<MaintenanceRow> maintenanceRows_;
    PerformanceSampling::Figures figures_;
    MemoryHistory memoryHistory_;
    SnapshotInventory inventory_;
    std::map<std::string, std::string> statuses_;
    /// The keys of the actions that failed when they last ran.
    std::set<std::string> failed_;
    std::optional<ListedProcess> pendingQuit_;
    /// Of the action that runs; empty: none.
    std::string runningKey_;
    bool isUpdating_ = false;
    QTimer clock_;
    QTimer afterQuit_;
    QTimer processesPatience_;
    QTimer snapshotsPatience_;
    Job<Nothing, std::vector<ListedProcess>> processesJob_;
    Job<Nothing, std::vector<StartupAgent>> agentsJob_;
    Job<Nothing, SnapshotInventory> snapshotsJob_;
    Job<Nothing, MaintenanceOutcome> maintenanceJob_;
    Job<Nothing, Purged> purgeJob_;
};

}
