#include "Harness.h"

#include <Support/GatedFiles.h>

#include <gtest/gtest.h>

#include <QTest>

namespace tolvane {
namespace {

/// Two groups: three raw pictures in three folders, and two notes.
void fillWithCopies(const TemporaryHome& home) {
    const std::string picture(90'000, 'p');
    home.write("data/Camera/IMG_1.raw", picture);
    home.write("data/Backup/<b>IMG_1 \xff.raw", picture);
    home.write("data/Desk/IMG_1 copy.raw", picture);
    home.write("data/Desk/notes.txt", std::string(4'000, 'n'));
    home.write("data/notes.txt", std::string(4'000, 'n'));
    home.write("data/single.bin", std::string(90'000, 's'));
}

/// Answers nobody about one file while the gate is closed.
class HeldFile final : public FaultyFiles {
  public:
    HeldFile(std::shared_ptr<const FileManager> files, Gate& gate, FileURL file)
        : FaultyFiles(std::move(files), [](FileOperation, const FileURL&) { return std::nullopt; })
        , gate_(gate)
        , file_(std::move(file)) {}

    Result<ResourceValues, SystemError> values(const FileURL& url) const override {
        if (url == file_) {
            gate_.pass();
        }
        return FaultyFiles::values(url);
    }

  private:
    Gate& gate_;
    const FileURL file_;
};

class DuplicatesTests : public testing::Test {
  protected:
    static DuplicatesViewModel& controller(Harness& harness) { return harness.app().duplicates(); }
    /// Shows the screen and the duplicates in `data`.
    static void scan(Harness& harness, const TemporaryHome& home) {
        harness.showModule("Duplicates");
        controller(harness).setMinimumSize(Bytes{1});
        controller(harness).scanRoot(home.url("data"));
        ASSERT_TRUE(waitForResult(harness));
    }
    static bool waitForResult(Harness& harness) {
        return Harness::eventually([&] {
            return controller(harness).stage() == Ui::Stage::Result &&
                   !controller(harness).isWorking();
        });
    }
    static bool banner(Harness& harness, const QString& text) {
        return Harness::eventually([&] { return controller(harness).banner() == text; });
    }
    /// Of the file with this name, whatever its group.
    static QString rowOf(Harness& harness, const QString& name) {
        const DuplicatesModel& rows = *controller(harness).rows();
        for (int row = 0; row < rows.rowCount(); ++row) {
            if (rows.index(row).data(DuplicatesModel::Name) == name) {
                return "row" + QString::number(row);
            }
        }
        ADD_FAILURE() << "no file is called " << name.toStdString();
        return {};
    }
    static void removeReviewed(Harness& harness, int count) {
        harness.click("reviewRemove");
        EXPECT_TRUE(banner(harness, QString("Moved %1 duplicate(s) to Trash").arg(count)));
        EXPECT_TRUE(waitForResult(harness));
    }

    const TemporaryHome home;
};

TEST_F(DuplicatesTests, findsFilesOfTheTypedSizeAndTicksThemByMouse) {
    fillWithCopies(home);
    Harness harness(home);
    harness.click("module2");
    harness.click("minimumSize");
    harness.press(Qt::Key_A, Qt::ControlModifier);
    harness.type("1 KB");
    harness.click("chooseFolder");
    EXPECT_EQ(harness.workspace().choosingStart, home.url("Downloads"));
    harness.workspace().choose(home.url("data"));
    ASSERT_TRUE(waitForResult(harness));
    EXPECT_TRUE(harness.shows("2 groups, 5 files, 184 KB can be freed"));
    EXPECT_TRUE(harness.shows(u"<b>IMG_1 \ufffd.raw"_qs)) << "drawn as it is written";
    EXPECT_TRUE(harness.shows("Stays"));
    harness.click(harness.find("tick", rowOf(harness, "IMG_1.raw")));
    harness.click(harness.find("tick", rowOf(harness, u"<b>IMG_1 \ufffd.raw"_qs)));
    EXPECT_TRUE(harness.shows("2 files, 180 KB"));
    harness.click("review");
    removeReviewed(harness, 2);
    EXPECT_TRUE(harness.shows("1 group, 2 files, 4 KB can be freed"));
    harness.click("bannerAction");
    EXPECT_TRUE(banner(harness, "Restored 2 file(s)"));
}

TEST_F(DuplicatesTests, canBeWorkedByKeyboardAlone) {
    home.write("Downloads/a.bin", std::string(2'000'000, 'd'));
    home.write("Downloads/b.bin", std::string(2'000'000, 'd'));
    Harness harness(home);
    harness.showModule("Duplicates");
    ASSERT_TRUE(harness.tabTo("emptyStateAction"));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(waitForResult(harness));

    const DuplicatesModel& rows = *controller(harness).rows();
    harness.press(Qt::Key_Home);
    harness.press(Qt::Key_Left);
    EXPECT_EQ(rows.count(), 1) << "closed";
    harness.press(Qt::Key_Right);
    EXPECT_EQ(rows.count(), 3);
    harness.press(Qt::Key_End);
    harness.press(Qt::Key_Return);
    EXPECT_EQ(harness.workspace().opened, std::vector{home.url("Downloads/b.bin")});
    harness.press(Qt::Key_Menu);
    ASSERT_NE(harness.find("menuReveal"), nullptr);
    harness.press(Qt::Key_Down);
    harness.press(Qt::Key_Down);
    harness.press(Qt::Key_Return);
    EXPECT_EQ(harness.workspace().revealed, std::vector{home.url("Downloads/b.bin")});

    harness.press(Qt::Key_Space);
    EXPECT_EQ(controller(harness).selectedCount(), 1);
    harness.press(Qt::Key_Delete);
    ASSERT_NE(harness.find("reviewRow0"), nullptr);
    harness.press(Qt::Key_Return);
    EXPECT_TRUE(home.has("Downloads/b.bin")) << "the default button removes nothing";
    harness.press(Qt::Key_Delete);
    ASSERT_TRUE(harness.tabTo("reviewRemove"));
    harness.press(Qt::Key_Return);
    ASSERT_TRUE(banner(harness, "Moved 1 duplicate(s) to Trash"));
    EXPECT_FALSE(home.has("Downloads/b.bin"));
    ASSERT_TRUE(waitForResult(harness));
    harness.press(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(banner(harness, "Restored 1 file(s)"));
    EXPECT_TRUE(home.has("Downloads/b.bin"));
    ASSERT_TRUE(waitForResult(harness));
    harness.press(Qt::Key_End);
    harness.press(Qt::Key_Space);
    EXPECT_EQ(controller(harness).selectedCount(), 1) << "the keyboard is the list's again";
}

TEST_F(DuplicatesTests, theFilterAndTheHelpersChooseAmongTheGroups) {
    fillWithCopies(home);
    Harness harness(home);
    scan(harness, home);
    harness.press(Qt::Key_F, Qt::ControlModifier);
    harness.type("notes");
    EXPECT_TRUE(harness.shows("1 of 2 groups, 2 of 5 files"));
    harness.press(Qt::Key_Return);
    harness.press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(harness.shows("2 ticked files are not shown"));
    harness.click("filterClear");
    harness.click("keepMore");
    harness.grab();
    harness.click("clearAll");
    harness.grab();
    EXPECT_EQ(controller(harness).selectedCount(), 0);
    QTest::mouseClick(
        &harness.window(), Qt::RightButton, {},
        harness.find(rowOf(harness, "IMG_1 copy.raw"))->mapToScene(QPointF(200, 10)).toPoint());
    harness.grab();
    harness.click("menuKeepFolder");
    EXPECT_EQ(controller(harness).selectedCount(), 3);
    EXPECT_FALSE(controller(harness).selectedPaths().contains(home.path("data/Desk/notes.txt")));
    harness.press(Qt::Key_F, Qt::ControlModifier);
    harness.type("zebra");
    EXPECT_NE(harness.find("filteredAway"), nullptr);
}

TEST_F(DuplicatesTests, theReviewWarnsOfWhatChangedAndOfGroupsThatWouldVanish) {
    fillWithCopies(home);
    Gate gate;
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return std::make_shared<HeldFile>(std::move(files), gate,
                                                          home.url("data/Camera/IMG_1.raw"));
                    }});
    scan(harness, home);
    for (const char* const name : {"IMG_1.raw", "IMG_1 copy.raw"}) {
        harness.click(harness.find("tick", rowOf(harness, name)));
    }
    harness.click(harness.find("tick", rowOf(harness, u"<b>IMG_1 \ufffd.raw"_qs)));
    EXPECT_TRUE(harness.shows("Every copy is ticked in 1 group"));
    home.write("data/Camera/IMG_1.raw", std::string(90'000, 'P'));
    harness.click("review");
    EXPECT_FALSE(harness.find("reviewRemove")->isEnabled()) << "before it can be known";
    gate.open();
    EXPECT_TRUE(
        harness.eventually([&] { return controller(harness).removal()->warnedCount() > 0; }));
    EXPECT_TRUE(harness.find("reviewRemove")->isEnabled());
    EXPECT_NE(harness.find("bannerText", "reviewWarning"), nullptr);
    harness.press(Qt::Key_Escape);
    EXPECT_EQ(home.read("data/Camera/IMG_1.raw"), std::string(90'000, 'P'));
}

TEST_F(DuplicatesTests, whatCouldNotBeReadIsExplainedUntilTheAccessIsThere) {
    home.write("data/locked/file");
    const FileURL probe = home.url("data/probe");
    Harness harness(home, {.files =
                               [](std::shared_ptr<const FileManager> files) {
                                   return refusing(std::move(files), "locked");
                               },
                           .layout =
                               [&](HostLayout& layout) {
                                   layout.access.probes = {{"probe", probe}};
                               }});
    scan(harness, home);
    harness.click("showFailures");
    QQuickItem* const notice = harness.find("accessText");
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(harness.shows(harness.app().access()->guidanceText()));
    home.write("data/probe");
    harness.click("recheckAccess");
    EXPECT_TRUE(harness.eventually([&] { return !notice->isVisible(); }));
    harness.app().log().flush();
    EXPECT_NE(home.read(".local/state/Logs/Tolvane/scan.log")
                  .find("fda status granted=true detail=probe is readable"),
              std::string::npos);
}

TEST_F(DuplicatesTests, aCancelledScanOfADroppedFolderShowsThatItIsNotAll) {
    fillWithCopies(home);
    Gate gate;
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return gated(gate, std::move(files), home.url("data/Desk"));
                    }});
    harness.showModule("Duplicates");
    harness.drop({home.url("data/single.bin"), home.url("data")});
    ASSERT_TRUE(harness.eventually([&] { return gate.isReached(); }));
    EXPECT_EQ(controller(harness).root(), home.url("data"));
    EXPECT_NE(harness.find("scanProgress"), nullptr);
    harness.press(Qt::Key_Escape);
    gate.open();
    ASSERT_TRUE(waitForResult(harness));
    EXPECT_NE(harness.find("partialBanner"), nullptr);
    EXPECT_TRUE(harness.shows("Nothing found so far"));
    harness.press(Qt::Key_F5);
    ASSERT_TRUE(waitForResult(harness));
}

TEST_F(DuplicatesTests, aResultThatComesUnseenLeavesTheKeysWhereTheyAre) {
    fillWithCopies(home);
    Gate gate;
    Harness harness(home, {.files = [&](std::shared_ptr<const FileManager> files) {
                        return gated(gate, std::move(files), home.url("data"));
                    }});
    harness.controller().scan(home.url("data"), "test");
    harness.showModule("Duplicates");
    controller(harness).setMinimumSize(Bytes{1});
    controller(harness).scanRoot(home.url("data"));
    harness.showModule("Uninstaller");
    harness.click("filter");
    harness.type("ab");
    gate.open();
    ASSERT_TRUE(waitForResult(harness));
    ASSERT_TRUE(
        harness.eventually([&] { return harness.controller().stage() == Ui::Stage::Result; }));
    harness.type("c");
    EXPECT_EQ(harness.find("filter")->property("text").toString(), "abc");
    harness.showModule("Duplicates");
    harness.press(Qt::Key_End);
    harness.press(Qt::Key_Space);
    EXPECT_EQ(controller(harness).selectedCount(), 1) << "now they are its own";
}

}
}
