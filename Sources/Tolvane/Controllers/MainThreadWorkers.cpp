#include <Controllers/MainThreadWorkers.h>

#include <QCoreApplication>
#include <QEvent>

namespace tolvane {

MainThreadWorkers::MainThreadWorkers()
    : workers_(Workers::usualThreads, [this] { wake(); }) {}

MainThreadWorkers::~MainThreadWorkers() = default;

bool MainThreadWorkers::event(QEvent* event) {
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    // In this order nothing is overlooked that is posted while the queue is being drained.
    isAwaited_ = false;
    workers_.drain();
    return true;
}

void MainThreadWorkers::wake() {
    if (!isAwaited_.exchange(true)) {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
}

}
