#include <Services/SignalWatch.h>

#include <pthread.h>

#include <utility>

namespace tolvane {

SignalWatch::SignalWatch(std::function<void()> onSignal)
    : onSignal_(std::move(onSignal)) {
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
        onSignal_();
    }
}

}
