#include <Services/Job.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace tolvane {
namespace {

using testing::ElementsAre;

/// Stands in for an event loop: remembers wake-ups and drains when it is told to.
class MainThread {
  public:
    std::function<void()> waker() {
        return [this] {
            const std::lock_guard lock(mutex_);
            isAwake_ = true;
            changed_.notify_all();
        };
    }

    void drainUntil(Workers& workers, const std::function<bool()>& isDone) {
        while (!isDone()) {
            {
                std::unique_lock lock(mutex_);
                changed_.wait(lock, [this] { return isAwake_; });
                isAwake_ = false;
            }
            workers.drain();
        }
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isAwake_ = false;
};

/// Opens once; whoever waits for it goes on.
class Gate {
  public:
    void open() {
        const std::lock_guard lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }
    void wait() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isOpen_; });
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isOpen_ = false;
};

using Numbers = Job<int, int>;

/// What a job does when it is to run until somebody stops it: gives 1 then.
int untilCancelled(const Report<int>&, const std::function<bool()>& isCancelled) {
    while (!isCancelled()) {
        std::this_thread::yield();
    }
    return 1;
}

class JobTest : public ::testing::Test {
  protected:
    MainThread mainThread;
    Workers workers{4, mainThread.waker()};
    std::vector<int> progress;
    std::vector<int> outcomes;
    Numbers job{workers, 0, [this](int value) { progress.push_back(value); },
                [this](int value) { outcomes.push_back(value); }};

    void drainUntilIdle() {
        mainThread.drainUntil(workers, [this] { return !job.isRunning(); });
    }
};

TEST_F(JobTest, bringsProgressAndOutcomeToTheThreadThatDrains) {
    job.start([](const Report<int>& report, const std::function<bool()>&) {
        report(1);
        report(2);
        return 3;
    });
    EXPECT_TRUE(job.isRunning());
    EXPECT_TRUE(outcomes.empty()) << "nothing arrives but from drain()";
    drainUntilIdle();
    EXPECT_THAT(progress, ElementsAre(1, 2));
    EXPECT_THAT(outcomes, ElementsAre(3));
}

TEST_F(JobTest, deliversThePartialOutcomeOfACancelledRunOnce) {
    job.start(untilCancelled);
    job.cancel();
    job.cancel();
    drainUntilIdle();
    workers.drain();
    EXPECT_THAT(outcomes, ElementsAre(1));
}

TEST_F(JobTest, dropsWhatASupersededRunBrings) {
    const auto hasReported = std::make_shared<Gate>();
    job.start([hasReported](const Report<int>& report, const std::function<bool()>& isCancelled) {
        report(100);
        hasReported->open();
        return untilCancelled(report, isCancelled);
    });
    hasReported->wait();
    job.start([](const Report<int>&, const std::function<bool()>&) { return 2; });
    drainUntilIdle();
    EXPECT_THAT(outcomes, ElementsAre(2));
    EXPECT_TRUE(progress.empty()) << "though it was posted before the run was superseded";
}

TEST_F(JobTest, deliversNothingAfterDiscardOrDestruction) {
    const auto ended = std::make_shared<Gate>();
    job.start([ended](const Report<int>& report, const std::function<bool()>& isCancelled) {
        const int outcome = untilCancelled(report, isCancelled);
        ended->open();
        return outcome;
    });
    job.discard();
    EXPECT_FALSE(job.isRunning());
    ended->wait();

    Workers single(1, [] {});
    bool wasCalled = false;
    const auto posted = std::make_shared<Gate>();
    {
        Numbers other(single, 0, {}, [&](int) { wasCalled = true; });
        other.start([](const Report<int>&, const std::function<bool()>&) { return 1; });
        single.run([posted] { posted->open(); });
        posted->wait();
    }
    single.drain();
    EXPECT_FALSE(wasCalled) << "though the outcome was waiting";
    workers.drain();
    EXPECT_TRUE(outcomes.empty());
}

TEST_F(JobTest, limitsTheRateOfProgressButNotTheOutcome) {
    Numbers slow(
        workers, 1e9, [this](int value) { progress.push_back(value); },
        [this](int value) { outcomes.push_back(value); });
    slow.start([](const Report<int>& report, const std::function<bool()>&) {
        for (int i = 0; i < 1000; ++i) {
            report(i);
        }
        return 5;
    });
    mainThread.drainUntil(workers, [&] { return !slow.isRunning(); });
    EXPECT_THAT(progress, ElementsAre(0));
    EXPECT_THAT(outcomes, ElementsAre(5));
}

TEST_F(JobTest, endsARunThatThrowsWithoutAnOutcome) {
    std::string reason;
    Numbers failing(
        workers, 0, {}, [this](int value) { outcomes.push_back(value); },
        [&](const std::string& text) { reason = text; });
    failing.start([](const Report<int>&, const std::function<bool()>&) -> int {
        throw std::runtime_error("no memory");
    });
    mainThread.drainUntil(workers, [&] { return !failing.isRunning(); });
    EXPECT_EQ(reason, "no memory");
    EXPECT_TRUE(outcomes.empty());

    workers.run([] { throw 1; });
    job.start([](const Report<int>&, const std::function<bool()>&) { return 6; });
    drainUntilIdle();
    EXPECT_THAT(outcomes, ElementsAre(6)) << "the thread lives on";
}

TEST_F(JobTest, mayBeDestroyedOrRestartedByItsOwnHandler) {
    std::optional<Numbers> owned;
    owned.emplace(workers, 0, Report<int>(), [&](int value) {
        outcomes.push_back(value);
        if (value == 1) {
            owned->start([](const Report<int>&, const std::function<bool()>&) { return 2; });
        } else {
            owned.reset();
        }
    });
    owned->start([](const Report<int>&, const std::function<bool()>&) { return 1; });
    mainThread.drainUntil(workers, [&] { return !owned.has_value(); });
    EXPECT_THAT(outcomes, ElementsAre(1, 2));
}

// An owner like a controller: its handlers touch it, so a late call would be a use after free.
struct Owner {
    Owner(Workers& workers, int& arrivals)
        : job(
              workers, 0, [this](int value) { latest = value; },
              [this, &arrivals](const std::vector<int>& values) {
                  latest = values.back();
                  ++arrivals;
              }) {}

    void start() {
        job.start([size = 64](const Report<int>& report, const std::function<bool()>& isCancelled) {
            std::vector<int> values{0};
            for (int i = 1; i < size && !isCancelled(); ++i) {
                values.push_back(i);
                report(i);
            }
            return values;
        });
    }

    int latest = -1;
    Job<int, std::vector<int>> job;
};

TEST_F(JobTest, survivesAThousandRoundsOfStartCancelAndDestroy) {
    int arrivals = 0;
    int expected = 0;
    for (int round = 0; round < 1000; ++round) {
        auto owner = std::make_unique<Owner>(workers, arrivals);
        owner->start();
        if (round % 2 == 0) {
            owner->start();
        }
        if (round % 3 == 0) {
            owner->job.cancel();
        }
        if (round % 5 == 0) {
            ++expected;
            mainThread.drainUntil(workers, [&] { return !owner->job.isRunning(); });
            EXPECT_GE(owner->latest, 0);
        } else if (round % 7 == 0) {
            workers.drain();
            expected += owner->job.isRunning() ? 0 : 1;
        }
    }
    workers.drain();
    EXPECT_EQ(arrivals, expected);
}

}
}
