#include "Harness.h"

#include <gtest/gtest.h>

namespace tolvane {
namespace {

class BrightpassTests : public testing::Test {
  protected:
    BrightpassTests() {
        home.write(".cache/pictures", std::string(90'000, 'p'));
        home.makeFolder("Applications/org.example.paint.AppDir");
        home.write(".config/org.example.paint/settings", "s");
        home.write("Downloads/one", std::string(2'000, 'c'));
        home.write("Downloads/two", std::string(2'000, 'c'));
    }

    static void check(Harness& harness) {
        harness.showModule("Brightpass");
        harness.click("emptyStateAction");
        ASSERT_TRUE(Harness::eventually(
            [&] { return harness.app().brightpass().shownStage() == Ui::Stage::Result; }));
    }
    /// The first line of a part.
    static QQuickItem* firstRow(Harness& harness, const QString& part) {
        harness.showModule("Brightpass");
        QQuickItem* const whole = harness.find(part);
        return whole == nullptr ? nullptr : harness.find("row0", part);
    }

    TemporaryHome home;
};

TEST_F(BrightpassTests, tellsOneFigureAndLeadsToTheOtherModules) {
    Harness harness(home);
    check(harness);
    EXPECT_TRUE(harness.shows(harness.app().brightpass().totalText()));

    harness.click(firstRow(harness, "junkPart"));
    ASSERT_TRUE(
        Harness::eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    EXPECT_EQ(harness.controller().scannedURL(), home.url(".cache"));

    harness.click(firstRow(harness, "duplicatesPart"));
    DuplicatesViewModel& duplicates = harness.app().duplicates();
    ASSERT_TRUE(Harness::eventually([&] { return duplicates.stage() == Ui::Stage::Result; }));
    EXPECT_EQ(duplicates.root(), home.url("Downloads"));
    EXPECT_EQ(duplicates.groups().size(), 1U);
}

}
}
