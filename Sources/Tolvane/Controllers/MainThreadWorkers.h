#pragma once

#include <Services/Workers.h>

#include <QObject>

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
    Workers workers_;
};

}
