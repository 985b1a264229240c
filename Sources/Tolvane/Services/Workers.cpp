#include <HostKit/CrashReporter.h>
#include <Services/Workers.h>

#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>

#include <cstddef>
#include <utility>

namespace tolvane {

struct Workers::Pool : boost::asio::thread_pool {
    using thread_pool::thread_pool;
};

Workers::Workers(int threads, std::function<void()> wakeMainThread)
    : wakeMainThread_(std::move(wakeMainThread))
    , pool_(std::make_unique<Pool>(static_cast<std::size_t>(threads))) {}

Workers::~Workers() {
    pool_->stop();
    pool_->join();
}

void Workers::run(Call call) {
    boost::asio::post(*pool_, [call = std::move(call)] {
        thread_local const CrashReporter::ThreadStack stack;
        try {
            call();
        } catch (...) {
            // Whoever needs to hear of it catches it in the call.
        }
    });
}

void Workers::post(Call call) {
    {
        const std::lock_guard lock(mutex_);
        posted_.push_back(std::move(call));
    }
    wakeMainThread_();
}

void Workers::drain() {
    // What the calls post in their turn waits for its own wake-up.
    for (std::size_t left = postedCount(); left > 0; --left) {
        const Call call = nextPosted();
        if (!call) {
            return;
        }
        call();
    }
}

std::size_t Workers::postedCount() {
    const std::lock_guard lock(mutex_);
    return posted_.size();
}

Call Workers::nextPosted() {
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) {
        return {};
    }
    Call call = std::move(posted_.front());
    posted_.pop_front();
    return call;
}

}
