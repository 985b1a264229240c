#include "SignalWatch.h"

#include "Console.h"

#include <pthread.h>
#include <unistd.h>

namespace tolvane {

SignalWatch::SignalWatch(CancellationFlag& cancellation)
    : cancellation_(cancellation) {
    ::sigemptyset(&signals_);
    ::sigaddset(&signals_, SIGINT);
    ::sigaddset(&signals_, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    thread_ = std::thread([this] { watch(); });
}

SignalWatch::~SignalWatch() {
    isEnding_.cancel();
    ::pthread_kill(thread_.native_handle(), SIGINT);
    thread_.join();
}

void SignalWatch::watch() {
    while (true) {
        int number = 0;
        ::sigwait(&signals_, &number);
        if (isEnding_.isCancelled()) {
            return;
        }
        if (cancellation_.isCancelled()) {
            ::_exit(static_cast<int>(Exit::cancelled));
        }
        cancellation_.cancel();
    }
}

}
