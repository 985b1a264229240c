#pragma once

#include <Services/Workers.h>

#include <QObject>
#include <atomic>

namespace tolvane {

/// Workers whose way back is the event loop of the thread that made this object. Qt carries nothing
/// but an empty wake-up.
class MainThreadWorkers : public QObject {
    Q_OBJECT

  public:
    MainThreadWorkers();
    ~MainThreadWorkers() override;

    Workers& workers() { return workers_; }

  protected:
    bool event(QEvent* event) override;

  private:
    void wake();

    /// Whether a wake-up is on its way that will drain whatever is posted before it arrives.
    std::atomic<bool> isAwaited_ = false;
    /// Ends first of all: until then it may wake this object.
    Workers workers_;
};

}
