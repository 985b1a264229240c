#include <Services/Diagnostics.h>

#include <ControllerSupport/ControllerHome.h>
#include <Controllers/SettingsViewModel.h>
#include <gmock/gmock.h>

namespace tolvane {
namespace {

using testing::ElementsAre;

TEST(SettingsViewModelTests, tellWhatCanBeLookedUp) {
    ControllerHome home;
    SettingsViewModel settings(home.environment(), {"1.2.3", ""});
    EXPECT_EQ(settings.versionText(), "1.2.3");
    EXPECT_EQ(settings.buildText(), "Unknown");
    int shown = 0;
    QObject::connect(&settings, &SettingsViewModel::logTailShown, [&] { ++shown; });
    settings.refresh();
    waitUntil([&] { return shown == 1; });
    EXPECT_EQ(settings.logTail(), "No log yet.");
    EXPECT_EQ(settings.noReportsText(), "No crash reports of the last 7 days");

    home.log.write("a line with \u202emarks\u202c");
    home.log.flush();
    const std::string folder = ".local/state/Logs/DiagnosticReports/";
    const FileURL report = home.write(folder + "Tolvane-<b>.crash", "x");
    home.write(folder + "Other-1.crash", "x");
    settings.appeared();
    waitUntil([&] { return shown == 2; });
    EXPECT_TRUE(settings.logTail().contains(u" a line with \ufffdmarks\ufffd\n"_qs));
    EXPECT_THAT(texts(*settings.reports(), "name"), ElementsAre("Tolvane-<b>.crash"));
    EXPECT_EQ(settings.noReportsText(), "");

    for (const int row : {-1, 0, 1}) {
        settings.revealReport(row);
    }
    settings.revealLog();
    EXPECT_THAT(home.workspace.revealed, ElementsAre(report, home.log.fileURL()));
}

}
}
