#include <PerformanceKit/StartupScanner.h>
#include <Support/MadePropertyLists.h>
#include <Support/MadeUpTool.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvane {
namespace {

using testing::ElementsAre;

class StartupItems : public ::testing::Test {
  protected:
    /// "user! label = program", the sign where it is started at once.
    std::vector<std::string> scan(const StartupPlaces& places) const {
        std::vector<std::string> lines;
        const auto files = systemFileManager(HostLayout::current());
        for (const StartupAgent& agent :
             StartupScanner::scan(home.url(), *files, places, isCancelled)) {
            EXPECT_EQ(agent.id(), agent.url.path());
            lines.push_back(agent.scope + (agent.runAtLoad ? "! " : " ") + agent.label + " = " +
                            agent.program.value_or("none"));
        }
        return lines;
    }

    const TemporaryHome home;
    std::function<bool()> isCancelled;
};

TEST_F(StartupItems, areReadFromPropertyLists) {
    const std::string list = "<key>ProgramArguments</key><array><string>/q</string>";
    for (const auto& [name, content] :
         Strings{{"com.example.agent.plist", "<key>RunAtLoad</key><true/>"},
                 {"b.plist", list + "</array><key>Label</key><string>item 10</string>"
                                    "<key>Program</key><string>/p</string>"},
                 {"c.plist", "<key>Label</key><integer>1</integer>" + list + "</array>"},
                 {"d.plist", "<key>Label</key><string>Item 9</string><key>ProgramArguments</key>"
                             "<array/><key>RunAtLoad</key><string>true</string>"},
                 {"e.plist", list + "<true/></array>"},
                 {".hidden.plist", ""},
                 {"upper.PLIST", ""}}) {
        home.write("L/" + name, xmlPropertyList("<dict>" + content + "</dict>"));
    }
    home.write("L/f.plist", "rubbish");
    home.write("L/g.plist", xmlPropertyList("<array><string>x</string></array>"));
    home.makeFolder("L/i.plist");
    home.write("D/binary.plist", binaryPropertyList({{"Label", "Zz"}, {"Program", "/z"}}));
    EXPECT_THAT(scan({.folders = {{"user", StartupFormat::propertyList, "L"},
                                  {"system", StartupFormat::propertyList, "missing"},
                                  {"daemon", StartupFormat::propertyList, home.path("D")}}}),
                ElementsAre("user! com.example.agent = none", "user c = /q", "user e = none",
                            "user Item 9 = none", "user item 10 = /p", "daemon Zz = /z"));
}

TEST_F(StartupItems, areReadFromAutostartFolders) {
    const std::string tool = madeUpTool(home, "", "bin/tool").path();
    for (const auto& [name, keys] : Strings{{"user/a", "Name=Later\nName[de]=A\nExec=/a %u"},
                                            {"user/b", "Hidden=true"},
                                            {"user/c", "X-GNOME-Autostart-enabled=false"},
                                            {"user/d", "OnlyShowIn=KDE;GNOME;\nTryExec=tool"},
                                            {"user/e", "OnlyShowIn=KDE;"},
                                            {"user/f", "NotShowIn=X;GNOME\nTryExec=" + tool},
                                            {"user/g", "TryExec=missing"},
                                            {"user/h", "TryExec=" + home.path("user/h.desktop")},
                                            {"user/i", "[Other]"},
                                            {"system/a", "Name=overridden"},
                                            {"system/i", "Name=overridden too"},
                                            {"system/k", "NotShowIn=\nOnlyShowIn=\nHidden=false"},
                                            {"system/l", "NotShowIn=\nHidden=false"}}) {
        home.write(name + ".desktop", (keys == "[Other]" ? "" : "[Desktop Entry]\n") + keys);
    }
    EXPECT_THAT(scan({.folders = {{"user", StartupFormat::autostart, "user"},
                                  {"system", StartupFormat::autostart, "system"}},
                      .desktops = {"ubuntu", "GNOME"},
                      .programFolders = {home.url("none"), home.url("bin")},
                      .locale = "de_DE.UTF-8"}),
                ElementsAre("user! A = /a", "user! d = none", "system! l = none", "user b = none",
                            "user c = none", "user e = none", "user f = none", "user g = none",
                            "user h = none", "system k = none", "system overridden = none",
                            "system overridden too = none"));
}

TEST_F(StartupItems, areReadFromUnits) {
    const auto write = [&](const std::string& name, const std::string& start) {
        home.write(name, "[Unit]\nExecStart=/not/here\n[Service]\n" + start + "[Install]\n");
    };
    write("u/own.service", " ExecStart = -@/bin/own own # x\nExecStart=/bin/second\n");
    write("lib/getty@.service", "ExecStart=-/sbin/getty \\\n# note\n; note\n %I\n");
    home.makeLink("u/getty.target.wants/getty@tty1.service", home.path("lib/getty@.service"));
    write("u/enabled.service", "ExecStart=/old\nExecStart=\nExecStart=!!\"/a b/c%%d\" x\n");
    home.makeLink("u/multi.target.requires/enabled.service", "../enabled.service");
    write("u/quoted.service", "ExecStart=\\\n  ':/opt/it\\'s' x\n#ExecStart=/no\n");
    write("u/none.service", "ExecStartPre=/x\nExecStart\n");
    home.makeLink("u/masked.service", "/dev/null");
    home.makeLink("u/multi.target.wants/masked.service", home.path("u/own.service"));
    home.makeLink("u/multi.target.wants/gone.service", "nowhere");
    write("u/multi.target.wants/own.socket", "ExecStart=/x\n");
    home.write("u/empty.service", "");
    home.write("u/nul.service", std::string("[Service]\nExecStart=/x\0", 23));
    EXPECT_THAT(scan({.folders = {{"daemon", StartupFormat::unit, "u"}}}),
                ElementsAre("daemon! enabled = /a b/c%d", "daemon! getty@tty1 = /sbin/getty",
                            "daemon none = none", "daemon own = /bin/own",
                            "daemon quoted = /opt/it's"));
    isCancelled = [] { return true; };
    EXPECT_THAT(scan({.folders = {{"daemon", StartupFormat::unit, "u"}}}), ElementsAre());
}

}
}
