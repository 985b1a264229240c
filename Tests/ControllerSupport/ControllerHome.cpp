#include <Services/Throttle.h>

#include <ControllerSupport/ControllerHome.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

namespace tolvane {

ControllerHome::ControllerHome()
    : layout(HostLayout::freedesktop(url(), {}))
    , files(systemFileManager(layout))
    , trash(systemTrash(layout))
    , log(layout.locations, files)
    , defaults(layout.locations.userDefaultsFile)
    , environment_{layout, files, trash, workers_.workers(), log, defaults, workspace, steadyTime} {
}

Environment ControllerHome::environmentWith(std::shared_ptr<const Trash> other) const {
    Environment environment = environment_;
    environment.trash = std::move(other);
    return environment;
}

void waitUntil(const std::function<bool()>& isDone) {
    constexpr int watchdog = 60'000;
    EXPECT_TRUE(QTest::qWaitFor(isDone, watchdog)) << "waited for a minute";
}

void processEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

}
