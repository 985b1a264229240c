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
    , access_(layout, files, workers_.workers(), log, workspace)
    , environment_{layout,   files,     trash,   workers_.workers(), log,
                   defaults, workspace, access_, steadyTime} {}

Environment ControllerHome::environmentWith(std::shared_ptr<const Trash> other) const {
    Environment environment = environment_;
    environment.trash = std::move(other);
    return environment;
}

std::string ControllerHome::logText() {
    log.flush();
    return read(".local/state/Logs/Tolvane/scan.log");
}

std::ptrdiff_t ControllerHome::logged(const std::string& text) {
    const std::string all = logText();
    std::ptrdiff_t count = 0;
    for (std::size_t at = all.find(text); at != std::string::npos; at = all.find(text, at + 1)) {
        ++count;
    }
    return count;
}

void waitUntil(const std::function<bool()>& isDone) {
    constexpr int watchdog = 60'000;
    EXPECT_TRUE(QTest::qWaitFor(isDone, watchdog)) << "waited for a minute";
}

void processEvents() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

std::vector<QString> texts(const QAbstractItemModel& model, const QByteArray& role) {
    std::vector<QString> texts;
    const int key = model.roleNames().key(role);
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.push_back(model.index(row, 0).data(key).toString());
    }
    return texts;
}

}
