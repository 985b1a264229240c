#include <Services/Job.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace tolvane {
namespace {

using testing::ElementsAre;
using Numbers = Job<int, int>;
using IsCancelled = std::function<bool()>;

/// Opens once; whoever waits for it goes on.
struct Gate {
    void open() const { promise->set_value(); }
    void wait() const { promise->get_future().wait(); }

    std::shared_ptr<std::promise<void>> promise = std::make_shared<std::promise<void>>();
};

/// Gives 1 when somebody stops it, and never ends before.
int untilCancelled(const Report<int>&, const IsCancelled& isCancelled) {
    while (!isCancelled()) {
        std::this_thread::yield();
    }
    return 1;
}

Numbers::Work giving(int outcome) {
    return [outcome](const Report<int>&, const IsCancelled&) { return outcome; };
}

/// The test stands in for an event loop: it drains when it was woken.
class JobTest : public ::testing::Test {
  protected:
    template <class Condition>
    void drainUntil(const Condition& isDone) {
        while (!isDone()) {
            isAwake.wait(false);
            isAwake.clear();
            workers.drain();
        }
    }
    void drainUntilIdle() {
        drainUntil([this] { return !job.isRunning(); });
    }

    std::atomic_flag isAwake;
    Workers workers{4, [this] {
                        isAwake.test_and_set();
                        isAwake.notify_one();
                    }};
    std::vector<int> progress;
    std::vector<int> outcomes;
    const Report<int> onProgress = [this](int value) { progress.push_back(value); };
    const std::function<void(int)> onDone = [this](int value) { outcomes.push_back(value); };
    Numbers job{workers, 0, onProgress, onDone};
};

TEST_F(JobTest, bringsProgressAndOutcomeToTheThreadThatDrainsOnce) {
    job.start([](const Report<int>& report, const IsCancelled& isCancelled) {
        report(1);
        report(2);
        return untilCancelled(report, isCancelled);
    });
    EXPECT_TRUE(job.isRunning());
    job.cancel();
    EXPECT_TRUE(outcomes.empty()) << "nothing arrives but from drain()";
    drainUntilIdle();
    workers.drain();
    EXPECT_THAT(progress, ElementsAre(1, 2));
    EXPECT_THAT(outcomes, ElementsAre(1));
}

TEST_F(JobTest, dropsWhatASupersededRunBrings) {
    const Gate hasReported;
    job.start([hasReported](const Report<int>& report, const IsCancelled& isCancelled) {
        report(100);
        hasReported.open();
        return untilCancelled(report, isCancelled);
    });
    hasReported.wait();
    job.start(giving(2));
    drainUntilIdle();
    EXPECT_THAT(outcomes, ElementsAre(2));
    EXPECT_TRUE(progress.empty()) << "though it was posted before the run was superseded";
}

TEST_F(JobTest, deliversNothingAfterDiscardOrDestruction) {
    const Gate ended;
    job.start([ended](const Report<int>& report, const IsCancelled& isCancelled) {
        const int outcome = untilCancelled(report, isCancelled);
        ended.open();
        return outcome;
    });
    job.discard();
    EXPECT_FALSE(job.isRunning());
    ended.wait();

    Workers single(1, [] {});
    const Gate posted;
    {
        Numbers other(single, 0, {}, onDone);
        other.start(giving(1));
        single.run([posted] { posted.open(); });
        posted.wait();
    }
    single.drain();
    workers.drain();
    EXPECT_TRUE(outcomes.empty()) << "though the outcome was waiting";
}

TEST_F(JobTest, limitsTheRateOfProgressButNotTheOutcome) {
    Numbers slow(workers, 1e9, onProgress, onDone);
    slow.start([](const Report<int>& report, const IsCancelled&) {
        for (int i = 0; i < 1000; ++i) {
            report(i);
        }
        return 5;
    });
    drainUntil([&] { return !slow.isRunning(); });
    EXPECT_THAT(progress, ElementsAre(0));
    EXPECT_THAT(outcomes, ElementsAre(5));
}

TEST_F(JobTest, endsARunThatThrowsWithoutAnOutcome) {
    std::string reason;
    Numbers failing(workers, 0, {}, onDone, [&](const std::string& text) { reason = text; });
    failing.start([](const Report<int>&, const IsCancelled&) -> int {
        throw std::runtime_error("no memory");
    });
    drainUntil([&] { return !failing.isRunning(); });
    EXPECT_EQ(reason, "no memory");

    workers.run([] { throw 1; });
    job.start(giving(6));
    drainUntilIdle();
    EXPECT_THAT(outcomes, ElementsAre(6)) << "the thread lives on";
}

TEST_F(JobTest, mayBeDestroyedOrRestartedByItsOwnHandler) {
    std::optional<Numbers> own;
    own.emplace(workers, 0, Report<int>(), [&](int value) {
        outcomes.push_back(value);
        if (value == 1) {
            own->start(giving(2));
        } else {
            own.reset();
        }
    });
    own->start(giving(1));
    drainUntil([&] { return !own.has_value(); });
    EXPECT_THAT(outcomes, ElementsAre(1, 2));
}

}
}
