#include "Shot.h"

#include <Support/MadeUpTool.h>

#include <QTest>

namespace tolvane {
namespace {

/// Listeners of a machine that somebody develops on.
void fillPorts(const TemporaryHome& home) {
    madeUpTool(home,
               "cat <<END\n"
               "p631\nccupsd\nPTCP\nn127.0.0.1:631\nn[::1]:631\n"
               "p1580\ncnginx\nPTCP\nn*:80\nn*:443\nn[::]:80\n"
               "p4242\ncnode\nPTCP\nn127.0.0.1:3000\n"
               "p5432\ncpostgres\nPTCP\nn127.0.0.1:5432\nn[::1]:5432\n"
               "p777\nc<b>build</b> server for all branches\nPTCP\nn*:8080\n"
               "p911\ncsshd\nPTCP\nn*:22\nn[::]:22\n"
               "END",
               "lsof");
    home.makeLink("proc/1580/exe", "/usr/sbin/nginx");
    home.makeLink("proc/4242/exe", "/home/anna/.local/share/versions/node/v22.1.0/bin/node");
    home.makeLink("proc/5432/exe", "/usr/lib/postgresql/15/bin/postgres");
    home.write("proc/net/tcp", "head\n 0: 0100007F:0CEA 00000000:0000 0A 00000000:00000000 "
                               "00:00000000 00000000 103 0 19 1 0 100 0 0 10 0\n");
}

PortsViewModel& showPorts(Scene& scene) {
    PortsViewModel& ports = scene.harness.app().ports();
    scene.harness.showModule("Ports");
    Harness::eventually([&ports] { return ports.hasListeners(); });
    scene.harness.click("row2");
    return ports;
}

}

Shots portsShots() {
    return {
        {.name = "ports", .prepare = [](Scene& scene) { showPorts(scene); }, .precede = fillPorts},
        {.name = "ports-small",
         .prepare = [](Scene& scene) { showPorts(scene); },
         .precede = fillPorts,
         .size = {860, 560}},
        {.name = "ports-kill",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene);
                 scene.harness.press(Qt::Key_Delete);
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-kill-all",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene).askToKillAll();
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-menu",
         .prepare =
             [](Scene& scene) {
                 showPorts(scene).copyPort("4242-3000-TCP");
                 scene.harness.press(Qt::Key_F10, Qt::ShiftModifier);
                 QTest::qWait(300);
             },
         .precede = fillPorts},
        {.name = "ports-filter-nothing",
         .prepare = [](Scene& scene) { showPorts(scene).setQuery("zebra"); },
         .precede = fillPorts},
        {.name = "ports-waiting",
         .prepare =
             [](Scene& scene) {
                 scene.harness.showModule("Ports");
                 Harness::eventually(
                     [&scene] { return !scene.harness.app().ports().waitingText().isEmpty(); });
             },
         .precede = [](const TemporaryHome& home) { madeUpTool(home, "exec sleep 60", "lsof"); }},
        {.name = "ports-no-tool",
         .prepare =
             [](Scene& scene) {
                 scene.harness.showModule("Ports");
                 Harness::eventually(
                     [&scene] { return !scene.harness.app().ports().banner().isEmpty(); });
             }},
    };
}

}
