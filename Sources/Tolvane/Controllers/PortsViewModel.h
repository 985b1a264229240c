#pragma once

#include <PortKit/PortKillError.h>
#include <PortKit/PortKillSignal.h>
#include <PortKit/PortKillerService.h>
#include <PortKit/PortListener.h>
#include <PortKit/PortScanError.h>
#include <Services/Job.h>

#include <Controllers/Environment.h>
#include <Controllers/PortsScan.h>
#include <Controllers/Published.h>
#include <Controllers/RecordModel.h>
#include <Controllers/Ui.h>

#include <QString>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// The controller of the listening ports: asks for them again and again while its screen is shown,
/// filters them, and signals the processes behind them. For the main thread; lsof, ps and signals
/// are left to workers.
class PortsViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(PortsViewModel, QString, query)
    /// The id of the selected listener; empty: none.
    PUBLISHED(PortsViewModel, QString, selectedID)
    PUBLISHED(PortsViewModel, bool, isScanning)
    /// Whether the ticks of the clock start scans.
    PUBLISHED(PortsViewModel, bool, autoRefresh)
    /// One line about the last signal, copy or failure; empty when there is none.
    PUBLISHED(PortsViewModel, QString, banner)
    /// While a person is asked whether all processes are to be killed.
    PUBLISHED(PortsViewModel, bool, confirmKillAll)
    /// While signals are sent; other kills are ignored meanwhile.
    PUBLISHED(PortsViewModel, bool, isSignalling)
    /// Whether a scan has succeeded.
    PUBLISHED(PortsViewModel, bool, hasResult)
    PUBLISHED(PortsViewModel, bool, hasListeners)

    // Ready text.
    /// The question about the listener that awaits its kill; empty when none does.
    PUBLISHED(PortsViewModel, QString, pendingKillText)
    PUBLISHED(PortsViewModel, QString, killAllText)
    /// "12 listeners", "3 of 12 listeners"
    PUBLISHED(PortsViewModel, QString, countText)
    /// Why the table is empty; empty when it is not.
    PUBLISHED(PortsViewModel, QString, emptyText)
    /// How many sockets of other users stay unseen, and why; empty when none does.
    PUBLISHED(PortsViewModel, QString, unseenText)
    /// That a tool takes unusually long; empty when none does.
    PUBLISHED(PortsViewModel, QString, waitingText)
    PUBLISHED(PortsViewModel, tolvane::Ui::PortKey, sortKey)
    PUBLISHED(PortsViewModel, bool, isDescending)

    /// Set by the screen; the clock ticks only while it is.
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY isShownChanged)
    /// `filtered()`, sorted, with the roles of `PortRows`.
    Q_PROPERTY(tolvane::ListModel* rows READ rows CONSTANT)

  public:
    static constexpr std::chrono::milliseconds refreshInterval{4500};

    explicit PortsViewModel(const Environment& environment);
    ~PortsViewModel() override;

    ListModel* rows() { return &rows_; }
    bool isShown() const { return clock_.isActive(); }
    void setShown(bool isShown);

    // Fields

    const std::vector<PortListener>& listeners() const { return listeners_; }
    std::vector<PortListener> filtered() const;
    std::optional<PortListener> selected() const;
    const std::optional<PortListener>& pendingKill() const { return pendingKill_; }

    // Scanning

    /// Ignored while a scan runs.
    Q_INVOKABLE void refresh();
    /// Ends the tools that are waited for; the listeners stay as they are.
    Q_INVOKABLE void stopWaiting();
    Q_INVOKABLE void setAutoRefresh(bool isOn);
    Q_INVOKABLE void setQuery(const QString& text);
    /// By another column, or the other way round by the same.
    Q_INVOKABLE void sortBy(tolvane::Ui::PortKey key);

    // Killing

    void kill(const PortListener& listener, bool force, bool includeChildren);
    /// Signals every process of `listeners()` once, filtered or not.
    Q_INVOKABLE void killAll(bool force);

    /// Asks whether the process is to be killed.
    Q_INVOKABLE void askToKill(const QString& id);
    Q_INVOKABLE void dismissKill();
    Q_INVOKABLE void killPending(bool force);
    Q_INVOKABLE void forceKill(const QString& id);
    Q_INVOKABLE void killTree(const QString& id);
    Q_INVOKABLE void askToKillAll();
    Q_INVOKABLE void dismissKillAll();
    /// The answer to the question about all of them; it stays while other signals are sent.
    Q_INVOKABLE void killAllAsked(bool force);

    // Rows, by id

    /// Ignored while `rowsUpdated` is told: what a view then makes of its current row is no choice.
    Q_INVOKABLE void select(const QString& id);
    void copyPort(const PortListener& listener);
    Q_INVOKABLE void copyPort(const QString& id);
    /// Shows the executable in the file manager.
    Q_INVOKABLE void reveal(const QString& id);
    Q_INVOKABLE bool hasExecutable(const QString& id) const;
    Q_INVOKABLE QString idAt(int row) const;
    Q_INVOKABLE int rowOf(const QString& id) const;
    Q_INVOKABLE void dismissBanner();

  Q_SIGNALS:
    void isShownChanged();
    /// The rows are others, or at other places.
    void rowsUpdated();

  private:
    struct Nothing {};
    using Killed = Result<void, PortKillError>;
    struct KilledAll {
        std::size_t sent = 0;
        std::size_t failed = 0;
    };
    struct Kill {
        PortListener listener;
        PortKillSignal signal = PortKillSignal::terminate;
        bool includeChildren = false;
        std::optional<StartTime> startTime;
    };

    void apply(PortsScan::Outcome outcome);
    void scanFailed(const std::string& description);
    void endScan();
    void kill(Kill wanted);
    void killed(const Killed& outcome);
    void beginSignalling();
    void endSignalling();
    void publishWaiting();
    void signallingBroke(const std::string& reason);
    void killedAll(KilledAll outcome, bool force);
    void refreshAfter(std::chrono::milliseconds pause);
    void tick();
    void showRows();
    std::optional<PortListener> find(const QString& id) const;
    void log(const std::string& message) const;

    const Environment& environment_;
    const PortKillerService killer_;
    RecordModel<PortListener> rows_;
    std::vector<PortListener> listeners_;
    StartTimes startTimes_;
    std::optional<PortListener> pendingKill_;
    /// Of the process that was asked about, whoever has its number by the time of the answer.
    std::optional<StartTime> pendingStartTime_;
    /// What the running kill was asked for.
    Kill kill_;
    bool killsAllByForce_ = false;
    bool isUpdating_ = false;
    QTimer clock_;
    QTimer patience_;
    QTimer signalPatience_;
    QTimer afterSignals_;
    Job<Nothing, PortsScan::Outcome> scanJob_;
    Job<Nothing, Killed> killJob_;
    Job<Nothing, KilledAll> killAllJob_;
};

}
