#include <ControllerSupport/ControllerHome.h>
#include <gtest/gtest.h>

#include <QEvent>
#include <QThread>
#include <latch>
#include <memory>

namespace tolvane {
namespace {

/// Counts the wake-ups that reach an object.
class WakeUps : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::User ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST(MainThreadWorkers, bringEveryCallBackToTheirThreadWithOneWakeUp) {
    constexpr int threads = 8;
    constexpr int calls = 1000;
    MainThreadWorkers main;
    WakeUps wakeUps;
    main.installEventFilter(&wakeUps);
    int arrived = 0;
    bool isElsewhere = false;
    std::latch posted(threads);
    for (int thread = 0; thread < threads; ++thread) {
        main.workers().run([&] {
            for (int call = 0; call < calls; ++call) {
                main.workers().post([&] {
                    ++arrived;
                    isElsewhere |= QThread::currentThread() != main.thread();
                });
            }
            posted.count_down();
        });
    }
    posted.wait();
    EXPECT_EQ(arrived, 0) << "nothing may be called outside the event loop";
    processEvents();
    EXPECT_EQ(arrived, threads * calls);
    EXPECT_FALSE(isElsewhere);
    EXPECT_EQ(wakeUps.count, 1);
    main.workers().post([&] { arrived = -1; });
    waitUntil([&] { return arrived == -1; });
}

TEST(MainThreadWorkers, endWithCallsOnTheirWay) {
    bool isLate = false;
    for (int round = 0; round < 100; ++round) {
        auto main = std::make_unique<MainThreadWorkers>();
        Workers& workers = main->workers();
        for (int call = 0; call < 20; ++call) {
            workers.run([&] { workers.post([&] { isLate = true; }); });
        }
        main.reset();
        processEvents();
    }
    EXPECT_FALSE(isLate);
}

}
}
