#include "Shot.h"

#include <Support/MadeUpTool.h>

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

PortsViewModel& ports(Scene& scene) {
    return scene.harness.app().ports();
}

bool hasListeners(Scene& scene) {
    return ports(scene).hasListeners();
}

bool isWaiting(Scene& scene) {
    return !ports(scene).waitingText().isEmpty();
}

bool complains(Scene& scene) {
    return !ports(scene).banner().isEmpty();
}

void askToKillAll(Scene& scene) {
    ports(scene).askToKillAll();
}

void copyPort(Scene& scene) {
    ports(scene).copyPort("4242-3000-TCP");
}

void findNothing(Scene& scene) {
    ports(scene).setQuery("zebra");
}

void listForEver(const TemporaryHome& home) {
    madeUpTool(home, "exec sleep 60", "lsof");
}

}

Shots portsShots() {
    const Step list = all({show("Ports"), until(hasListeners), click("row2")});
    return after(fillPorts,
                 {
                     {.name = "ports", .prepare = {list}, .isAlsoSmall = true},
                     {.name = "ports-kill", .prepare = {list, press(Qt::Key_Delete)}},
                     {.name = "ports-kill-all", .prepare = {list, askToKillAll}},
                     {.name = "ports-menu",
                      .prepare = {list, copyPort, press(Qt::Key_F10, Qt::ShiftModifier)}},
                     {.name = "ports-filter-nothing", .prepare = {list, findNothing}},
                     {.name = "ports-waiting",
                      .prepare = {show("Ports"), until(isWaiting)},
                      .precede = listForEver},
                     {.name = "ports-no-tool",
                      .prepare = {show("Ports"), until(complains)},
                      .precede = [](const TemporaryHome&) {}},
                 });
}

}
