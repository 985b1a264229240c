#pragma once

#include <HostKit/Date.h>
#include <Services/CancellationFlag.h>
#include <Services/Throttle.h>
#include <Services/Workers.h>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace tolvane {

template <class Progress>
using Report = std::function<void(const Progress&)>;

/// One kind of long work of one owner, at most one run of which counts: a newer one supersedes it.
/// Used on the main thread, where also all handlers are called, from `Workers::drain` alone. The
/// handlers may know the owner; the work must not: it runs on another thread, outlives the owner,
/// and so captures values only.
template <class Progress, class Outcome>
class Job {
  public:
    using Work = std::function<Outcome(const Report<Progress>& report,
                                       const std::function<bool()>& isCancelled)>;

    /// Progress is let through once in `interval` seconds. `onFailed` hears of a work that threw.
    /// `workers` must outlive the job.
    Job(Workers& workers, Seconds interval, Report<Progress> onProgress,
        std::function<void(Outcome)> onDone, std::function<void(const std::string&)> onFailed = {})
        : workers_(workers)
        , interval_(interval)
        , onProgress_(std::move(onProgress))
        , onDone_(std::move(onDone))
        , onFailed_(std::move(onFailed)) {}
    /// Cancels; no handler is called any more.
    ~Job() { discard(); }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    /// Runs `work` on a worker; nothing arrives any more from the run before.
    void start(Work work) {
        discard();
        ticket_ = std::make_shared<Ticket>(this);
        workers_.run([&workers = workers_, ticket = ticket_, work = std::move(work),
                      interval = interval_] { perform(workers, ticket, work, interval); });
    }

    /// Asks the run to stop; what it has until then still arrives, once.
    void cancel() {
        if (ticket_) {
            ticket_->stop.cancel();
        }
    }

    /// Asks the run to stop; nothing arrives.
    void discard() {
        if (ticket_) {
            ticket_->owner = nullptr;
            ticket_->isUnwanted.cancel();
            ticket_->stop.cancel();
            ticket_.reset();
        }
    }

    /// Whether a run has started whose outcome has not arrived.
    bool isRunning() const { return ticket_ != nullptr; }

  private:
    /// The identity of one run.
    struct Ticket {
        explicit Ticket(Job* job)
            : owner(job) {}

        CancellationFlag stop;
        /// Lets the worker drop an outcome, which may be large, instead of the main thread.
        CancellationFlag isUnwanted;
        Throttle throttle;
        /// Null once the run no longer counts. For the main thread only.
        Job* owner;
    };
    using TicketPointer = std::shared_ptr<Ticket>;

    static void perform(Workers& workers, const TicketPointer& ticket, const Work& work,
                        Seconds interval) {
        const Report<Progress> report = [&](const Progress& progress) {
            if (ticket->throttle.allow(interval)) {
                workers.post([ticket, progress] { deliver(ticket, progress); });
            }
        };
        try {
            auto outcome =
                std::make_shared<Outcome>(work(report, [&] { return ticket->stop.isCancelled(); }));
            if (!ticket->isUnwanted.isCancelled()) {
                workers.post([ticket, outcome = std::move(outcome)] { finish(ticket, *outcome); });
            }
        } catch (const std::exception& error) {
            workers.post([ticket, reason = std::string(error.what())] { fail(ticket, reason); });
        } catch (...) {
            workers.post([ticket] { fail(ticket, "unknown error"); });
        }
    }

    // The handlers are copied before they are called: they may destroy the job.

    static void deliver(const TicketPointer& ticket, const Progress& progress) {
        if (ticket->owner != nullptr && ticket->owner->onProgress_) {
            const Report<Progress> handler = ticket->owner->onProgress_;
            handler(progress);
        }
    }

    static void finish(const TicketPointer& ticket, Outcome& outcome) {
        if (Job* owner = end(*ticket); owner != nullptr && owner->onDone_) {
            const std::function<void(Outcome)> handler = owner->onDone_;
            handler(std::move(outcome));
        }
    }

    static void fail(const TicketPointer& ticket, const std::string& reason) {
        if (Job* owner = end(*ticket); owner != nullptr && owner->onFailed_) {
            const std::function<void(const std::string&)> handler = owner->onFailed_;
            handler(reason);
        }
    }

    /// The job that the run belongs to, which is then free for another; null when it no longer
    /// counts.
    static Job* end(Ticket& ticket) {
        Job* owner = std::exchange(ticket.owner, nullptr);
        if (owner != nullptr) {
            owner->ticket_.reset();
        }
        return owner;
    }

    Workers& workers_;
    const Seconds interval_;
    const Report<Progress> onProgress_;
    const std::function<void(Outcome)> onDone_;
    const std::function<void(const std::string&)> onFailed_;
    TicketPointer ticket_;
};

}
