#pragma once

#include <HostKit/Date.h>

#include <Controllers/Published.h>

#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

namespace tolvane {

/// What a person reads while something runs. The clock on it ticks by itself as long as it runs.
class Activity : public QObject {
    Q_OBJECT
    PUBLISHED(Activity, bool, isRunning)
    PUBLISHED(Activity, QString, title)
    /// What is read right now.
    PUBLISHED(Activity, QString, pathText)
    /// "12,345 files, 1,234 folders, 5.6 GB"
    PUBLISHED(Activity, QString, countsText)
    /// "0:12"
    PUBLISHED(Activity, QString, elapsedText)
    /// "About 20 seconds left"; empty without an estimate.
    PUBLISHED(Activity, QString, remainingText)
    /// From 0 to 1; negative without an estimate.
    PUBLISHED(Activity, double, fraction)

  public:
    /// What an activity is asked for whenever it shows itself anew.
    struct State {
        QString title;
        QString pathText = {};
        QString countsText = {};
        Seconds elapsed = 0;
        std::optional<double> fraction = {};
        std::optional<Seconds> remaining = {};
    };

    explicit Activity(std::function<State()> state);

    void setRunning(bool isRunning);
    void refresh();

  private:
    const std::function<State()> state_;
    QTimer clock_;
};

}
