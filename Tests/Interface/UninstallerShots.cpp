#include "Shot.h"

namespace tolvane {
namespace {

UninstallerViewModel& uninstaller(Scene& scene) {
    return scene.harness.app().uninstaller();
}

/// Applications of all kinds, what they leave, and one whose identifier begins another one's.
void fillApplications(const TemporaryHome& home) {
    const auto write = [&home](const std::string& relative, std::size_t kilobytes) {
        home.write(relative, std::string(kilobytes * 1000, 'x'));
    };
    const auto install = [&](const std::string& id, const std::string& name,
                             const std::string& version, std::size_t kilobytes) {
        const std::string bundle = "Applications/" + id + ".AppDir/";
        write(bundle + "AppRun", kilobytes);
        home.write(bundle + id + ".desktop", "[Desktop Entry]\nName=" + name +
                                                 "\nX-AppImage-Version=" + version +
                                                 "\nExec=AppRun\n");
    };
    install("org.example.Paint", "Paint", "5.2.1", 8200);
    install("org.example.PaintViewer", "Paint Viewer", "1.0", 900);
    install("com.example.Chat", "Chat", "24.11", 4100);
    install("org.example.markup", "<b>Music</b> player with a name that is far too long", "", 300);
    for (int number = 8; number <= 21; ++number) {
        install("com.example.tool" + std::to_string(number), "Tool " + std::to_string(number),
                "0." + std::to_string(number), 20);
    }
    write(".config/org.example.Paint/brushes", 900);
    write(".config/org.example.Paintrc", 4);
    write(".config/org.example.PaintViewer.conf", 8);
    write(".local/share/org.example.Paint/templates", 2400);
    write(".cache/org.example.Paint/tiles", 5200);
    write(".config/autostart/org.example.Paint.desktop", 1);
}

/// One of the folders that hold applications, besides those of `fillApplications`.
void fillLockedFolder(const TemporaryHome& home) {
    fillApplications(home);
    home.makeFolder("AppImages");
}

bool isListed(Scene& scene) {
    return uninstaller(scene).stage() == Ui::Stage::Result;
}

bool isChecked(Scene& scene) {
    return !uninstaller(scene).removal()->isChecking();
}

bool isRemoved(Scene& scene) {
    return uninstaller(scene).removal()->canUndo() && !uninstaller(scene).isLoading();
}

Step choose(const QString& id) {
    return all({[id](Scene& scene) { uninstaller(scene).select(id); },
                until([](Scene& scene) { return !uninstaller(scene).detail()->isLoading(); })});
}

}

Shots uninstallerShots() {
    const Step list = all({show("Uninstaller"), until(isListed), wait(300)});
    const Step detail = all({list, choose("org.example.Paint"), wait(300)});
    const Step review = all({detail, click("uninstall"), until(isChecked)});
    const Step filter = press(Qt::Key_F, Qt::ControlModifier);
    return after(
        fillApplications,
        {
            {.name = "uninstaller-nothing",
             .prepare = {list},
             .precede = [](const TemporaryHome&) {}},
            {.name = "uninstaller-working",
             .prepare = {show("Uninstaller"), untilHeld},
             .heldAt = "Applications"},
            {.name = "uninstaller-list", .prepare = {list}},
            {.name = "uninstaller-detail", .prepare = {detail}, .isAlsoSmall = true},
            {.name = "uninstaller-no-leftovers", .prepare = {list, choose("org.example.markup")}},
            {.name = "uninstaller-search-nothing", .prepare = {list, filter, type("zebra")}},
            {.name = "uninstaller-trouble",
             .prepare = {list},
             .isAlsoSmall = true,
             .precede = fillLockedFolder,
             .refused = "AppImages"},
            {.name = "uninstaller-failures",
             .prepare = {list, click("showFailures")},
             .precede = fillLockedFolder,
             .refused = "AppImages"},
            {.name = "uninstaller-menu",
             .prepare = {detail, filter, press(Qt::Key_Return),
                         press(Qt::Key_F10, Qt::ShiftModifier)}},
            {.name = "uninstaller-review", .prepare = {review}},
            {.name = "uninstaller-removed",
             .prepare = {review, click("reviewRemove"), until(isRemoved)}},
        });
}

}
