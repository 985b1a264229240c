#include "Harness.h"

#include <Support/ListeningProcess.h>
#include <Support/MadeUpTool.h>

#include <gmock/gmock.h>

#include <string>

namespace tolvane {
namespace {

using testing::ElementsAre;

PortsViewModel& showPorts(Harness& harness) {
    harness.showModule("Ports");
    PortsViewModel& ports = harness.app().ports();
    EXPECT_TRUE(Harness::eventually([&] { return ports.hasListeners() && !ports.isScanning(); }));
    return ports;
}

/// The rows that the table shows for this process only.
void filterFor(Harness& harness, const ListeningProcess& process) {
    harness.press(Qt::Key_F, Qt::ControlModifier);
    harness.type(QString::number(process.pid()));
    ASSERT_TRUE(Harness::eventually([&] { return harness.app().ports().rows()->count() == 1; }));
    harness.press(Qt::Key_Return);
    harness.press(Qt::Key_Home);
}

TEST(Ports, endsProcessesAfterAskingAndByAMenu) {
    const TemporaryHome home;
    ListeningProcess process({"0.0.0.0"}, {}, 2);
    Harness harness(home);
    showPorts(harness);
    filterFor(harness, process);
    EXPECT_TRUE(harness.shows(QString::number(process.ports().front())));
    harness.press(Qt::Key_Delete);
    EXPECT_TRUE(harness.shows("Kill process?"));
    harness.press(Qt::Key_Return);
    EXPECT_FALSE(harness.app().ports().pendingKill()) << "the default button kills nothing";
    EXPECT_EQ(process.running(), process.pids());

    const auto chooseLine = [&](int line) {
        harness.press(Qt::Key_F10, Qt::ShiftModifier);
        while (line-- > 0) {
            harness.press(Qt::Key_Down);
        }
        harness.press(Qt::Key_Return);
    };
    chooseLine(4);
    EXPECT_EQ(harness.workspace().copied.size(), 1U) << "the fourth line copies the port";
    chooseLine(3);
    EXPECT_THAT(process.awaitEnd(), ElementsAre(9, 9)) << "the third ends a tree";
    ASSERT_TRUE(Harness::eventually([&] { return harness.app().ports().rows()->count() == 0; }));
    EXPECT_TRUE(harness.shows(harness.app().ports().emptyText()));
}

TEST(Ports, rowsThatStayKeepSelectionAndMenuWhileOthersComeAndGo) {
    const TemporaryHome home;
    home.write("told", "p70\nca\nPTCP\nn*:70\np80\ncb\nPTCP\nn*:80\n");
    const FileURL lsof = madeUpTool(home, "cat '" + home.path("told") + "'", "lsof");
    Harness harness(home, {.layout = [&](HostLayout& layout) { layout.tools.lsof = lsof; }});
    PortsViewModel& ports = showPorts(harness);
    harness.click("row1");
    EXPECT_EQ(ports.selectedID(), "80-80-TCP");
    harness.press(Qt::Key_F10, Qt::ShiftModifier);
    const auto tell = [&](const std::string& fields) {
        home.write("told", fields);
        ports.refresh();
        ASSERT_TRUE(Harness::eventually([&] { return !ports.isScanning(); }));
        harness.grab();
    };
    tell("p60\nc<b>new</b>\nPTCP\nn*:60\np80\ncb\nPTCP\nn*:80\n");
    EXPECT_TRUE(harness.shows("<b>new</b>"));
    EXPECT_EQ(ports.selectedID(), "80-80-TCP");
    harness.press(Qt::Key_Down);
    harness.press(Qt::Key_Return);
    EXPECT_EQ(ports.pendingKillText(), "b (PID 80) is listening on port 80.")
        << "the open menu is still about its row";
    harness.press(Qt::Key_Escape);
    EXPECT_EQ(ports.pendingKillText(), "");
    tell("p60\ncnew\nPTCP\nn*:60\n");
    EXPECT_EQ(ports.selectedID(), "") << "no other row takes the place of the selected one";
    harness.press(Qt::Key_Delete);
    EXPECT_EQ(ports.pendingKillText(), "");
}

}
}
