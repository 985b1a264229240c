#include <Support/GatedFiles.h>
#include <Support/TreeState.h>

#include <ControllerSupport/ControllerTest.h>
#include <ControllerSupport/FailingTrash.h>
#include <Controllers/DuplicatesViewModel.h>
#include <Controllers/ShownText.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QSignalSpy>
#include <filesystem>
#include <fstream>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Gives a file the modification date `seconds`.
void setDate(const FileURL& file, time_t seconds) {
    const timespec times[] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.path().c_str(), times, 0), 0);
}

class DuplicatesViewModelTests : public ControllerTest<DuplicatesViewModel> {
  protected:
    DuplicatesViewModel& start(const std::shared_ptr<const FileManager>& files = nullptr) {
        ControllerTest::start(files).setMinimumSize(Bytes{1});
        return *controller;
    }
    void settle() {
        waitUntil([this] {
            return controller->stage() != Ui::Stage::Working && !controller->isWorking() &&
                   !controller->removal()->isChecking();
        });
    }
    void scan(const std::string& folder = "data") {
        controller->scanRoot(home.url(folder));
        settle();
    }
    /// Makes files of one content below "data".
    void write(const std::vector<std::string>& names, const std::string& content) const {
        for (const std::string& name : names) {
            home.write("data/" + name, content);
        }
    }
    void link(const std::string& name, const std::string& other) const {
        std::filesystem::create_hard_link(home.path("data/" + name), home.path("data/" + other));
    }
    std::vector<std::string> ticked() const {
        std::vector<std::string> names;
        for (const DuplicateFile& file : controller->selectedFiles()) {
            names.push_back(file.id().substr(home.path("data/").size()));
        }
        return names;
    }
    int rowOf(const std::string& name) const {
        const std::vector<QString> paths = texts(*controller->rows(), "pathText");
        const QString wanted = shownPath(home.url("data/" + name));
        return static_cast<int>(std::find(paths.begin(), paths.end(), wanted) - paths.begin());
    }
    QString text(int row, DuplicatesModel::Role role) const {
        return controller->rows()->index(row).data(role).toString();
    }
    /// What the sheet warns of each row.
    std::vector<QString> review() {
        controller->prepareReview();
        settle();
        return texts(*controller->removal()->rows(), "warning");
    }
};

TEST_F(DuplicatesViewModelTests, startsWithTheSettings) {
    start();
    EXPECT_EQ(controller->root(), home.url("Downloads"));
    EXPECT_EQ(DuplicatesViewModel(environment).minimumSizeText(), "1 MiB");
    controller->appeared();
    EXPECT_FALSE(controller->isScanning());

    home.defaults.set("duplicatesRootPath", "/nowhere at all");
    home.defaults.set("autoRunDuplicates", true);
    start();
    controller->appeared();
    controller->appeared();
    settle();
    controller->appeared();
    EXPECT_EQ(home.logged("duplicates scan start root=/nowhere at all min=1\n"), 1);
    EXPECT_EQ(controller->stage(), Ui::Stage::Result);
    EXPECT_THAT(controller->emptyText().toStdString(), HasSubstr("could not be read"));
}

TEST_F(DuplicatesViewModelTests, showsGroupsAndTicksAllButTheFirstOfEach) {
    write({"a1", "a2", "sub/a3"}, std::string(2'000'000, 'a'));
    write({"b1", "b2", "b3", ".hidden"}, "bbb");
    write({"other"}, "ccc");
    home.write("data/App.app/b4", "bbb");
    start();
    controller->scanRoot(home.url("data"));
    EXPECT_TRUE(controller->isScanning());
    EXPECT_EQ(controller->stage(), Ui::Stage::Working);
    EXPECT_EQ(controller->activity()->title(), "Looking for duplicates in data");
    settle();

    const std::string root = home.path("data");
    EXPECT_EQ(home.logged("duplicates scan start root=" + root + " min=1\n"), 1);
    EXPECT_EQ(home.logged("duplicates done groups=2 wasted=4000006 files=7 errors=0\n"), 1);
    EXPECT_EQ(controller->summaryText(), "2 groups, 6 files, 4 MB can be freed");
    EXPECT_EQ(controller->checkedText(), "7 files looked at, 7 compared");
    EXPECT_EQ(controller->leftOutText(),
              "Left out: hidden files, the contents of packages, files below 1 byte");
    EXPECT_GE(controller->checkedFiles(), 1);
    EXPECT_THAT(texts(*controller->rows(), "name"),
                ElementsAre("3 copies", "a1", "a2", "a3", "3 copies", "b1", "b2", "b3"));
    EXPECT_EQ(text(0, DuplicatesModel::WasteText), "4 MB can be freed");
    EXPECT_EQ(text(3, DuplicatesModel::FolderText), "sub");

    controller->selectAllCopies();
    controller->selectAllCopies();
    EXPECT_THAT(ticked(), ElementsAre("a2", "sub/a3", "b2", "b3"));
    EXPECT_EQ(controller->selectionText(), "4 files, 4 MB");
    EXPECT_EQ(text(0, DuplicatesModel::TickedText), "2 of 3 ticked");
    EXPECT_THAT(texts(*controller->rows(), "isKept"),
                ElementsAre("false", "true", "false", "false", "false", "true", "false", "false"));
    controller->toggleRow(1);
    EXPECT_EQ(controller->selectionWarning(), "Every copy is ticked in 1 group");

    // Ticks of an older result are none of a newer one.
    std::filesystem::remove(home.path("data/b3"));
    const DuplicateFile gone = controller->groups()[1].files[2];
    controller->scan();
    controller->toggle(gone);
    settle();
    controller->toggle(gone);
    EXPECT_THAT(controller->selectedPaths(), IsEmpty());
    controller->prepareReview();
    EXPECT_TRUE(controller->showReview());
    controller->removeReviewed();
    EXPECT_FALSE(controller->isWorking()) << "nothing is ticked";
}

TEST_F(DuplicatesViewModelTests, publishesOnlyTheLatestScanAndWhatACancelledOneFound) {
    write({"a", "b"}, "same");
    home.write("held/x", "1");
    start(gated(gate, home.files, home.url("held")));
    controller->scanRoot(home.url("held"));
    scan();
    gate.open();
    processEvents();
    EXPECT_EQ(controller->groups().size(), 1U);
    EXPECT_EQ(home.logged("duplicates done"), 1);
    EXPECT_FALSE(controller->isPartial());

    gate.close();
    controller->scanRoot(home.url("held"));
    controller->cancel();
    EXPECT_FALSE(controller->isScanning());
    EXPECT_EQ(controller->activity()->title(), "Stopping");
    gate.open();
    settle();
    EXPECT_TRUE(controller->isPartial());
    EXPECT_THAT(controller->groups(), IsEmpty());
    EXPECT_THAT(controller->elapsedText().toStdString(), testing::StartsWith("Stopped after "));
    EXPECT_EQ(home.logged("duplicates done"), 2);

    gate.close();
    controller->scan();
    controller->cancelActivity();
    controller->cancelActivity();
    EXPECT_EQ(controller->stage(), Ui::Stage::Start) << "what hangs is given up";
    gate.open();
    processEvents();
    EXPECT_EQ(controller->result(), nullptr);
}

TEST_F(DuplicatesViewModelTests, movesCopiesToTheTrashAndBack) {
    write({"a", "bad \xff", "c"}, "content");
    const TreeState before = treeState(home.path("data"));
    start();
    scan();
    controller->selectCopies(0);
    EXPECT_THAT(review(), testing::Each(QString()));
    controller->removeReviewed();
    EXPECT_TRUE(controller->isWorking());
    controller->scan();
    controller->removeReviewed();
    EXPECT_TRUE(controller->result()) << "nothing else runs meanwhile";
    settle();
    EXPECT_EQ(controller->banner(), "Moved 2 duplicate(s) to Trash");
    EXPECT_EQ(home.logged("duplicates trash count=2 root=" + home.path("data") + "\n"), 1);
    EXPECT_EQ(home.logged("duplicates scan start"), 2);
    EXPECT_EQ(treeState(home.path("data")).size(), 1U);
    EXPECT_THAT(controller->groups(), IsEmpty());

    controller->undo();
    EXPECT_TRUE(controller->isWorking());
    settle();
    EXPECT_EQ(controller->banner(), "Restored 2 file(s)");
    EXPECT_EQ(treeState(home.path("data")), before);
    EXPECT_EQ(controller->groups().size(), 1U);
    EXPECT_THAT(controller->receipts(), IsEmpty());
}

TEST_F(DuplicatesViewModelTests, keepsItsResultWhenARemovalFails) {
    write({"a", "b", "cc", "ddd"}, "same");
    environment.trash = std::make_shared<FailingTrash>(environment.trash, "cc");
    start();
    scan();
    controller->selectAllCopies();
    controller->prepareReview();
    controller->removeReviewed();
    settle();
    const std::string error = "Could not move " + home.path("data/cc") + " to Trash: it is in use";
    EXPECT_EQ(controller->banner().toStdString(), error);
    EXPECT_EQ(home.logged("duplicates trash failed: " + error), 1);
    EXPECT_TRUE(controller->showReview());
    EXPECT_THAT(ticked(), ElementsAre("b", "cc", "ddd"));
    EXPECT_THAT(controller->receipts(), IsEmpty());
    EXPECT_EQ(home.logged("duplicates scan start"), 1);

    controller->removal()->leaveOutTroubled();
    controller->removeReviewed();
    settle();
    EXPECT_EQ(controller->banner(), "Moved 1 duplicate(s) to Trash");
    home.write("data/ddd", "taken");
    controller->undo();
    settle();
    EXPECT_EQ(controller->banner(), "Restored with 1 failure(s)");
}

TEST_F(DuplicatesViewModelTests, ticksByRulesThatNeverTickAnotherNameOfWhatStays) {
    write({"a", "in/b", "in/deep/c", "other/d"}, std::string(4'000, 's'));
    write({"in/x", "in/y", "z"}, "other content");
    link("a", "link");
    setDate(home.url("data/in/b"), 1'000);
    setDate(home.url("data/a"), 2'000);
    setDate(home.url("data/in/deep/c"), 3'000);
    setDate(home.url("data/other/d"), 2'500);
    start();
    scan();
    EXPECT_EQ(text(rowOf("link"), DuplicatesModel::LinkText), "same file, frees nothing");
    DuplicatesViewModel& of = *controller;
    const struct {
        const char* rule;
        std::function<void()> tick;
        std::vector<std::string> expected;
    } rules[] = {
        {"copies", [&] { of.selectCopiesAt(rowOf("a")); }, {"in/b", "in/deep/c", "other/d"}},
        {"newest", [&] { of.keepNewest(rowOf("link")); }, {"a", "in/b", "link", "other/d"}},
        {"oldest", [&] { of.keepOldest(rowOf("a")); }, {"a", "in/deep/c", "link", "other/d"}},
        {"only", [&] { of.keepOnly(rowOf("link")); }, {"in/b", "in/deep/c", "other/d"}},
        {"folder", [&] { of.keepFolder(rowOf("in/b")); }, {"z", "a", "link", "other/d"}},
        {"deeper", [&] { of.keepFolder(rowOf("in/deep/c")); }, {"a", "in/b", "link", "other/d"}},
        {"header", [&] { of.toggleRow(rowOf("in/x") - 1); }, {"in/y", "z"}},
        {"header again",
         [&] {
             of.toggleRow(rowOf("in/x") - 1);
             of.toggleRow(rowOf("in/x") - 1);
         },
         {}},
        {"newest of all",
         [&] {
             of.keepNewestOfAll();
             of.clearTicksAt(rowOf("z"));
         },
         {"a", "in/b", "link", "other/d"}},
        {"no such row",
         [&] {
             of.keepOnly(0);
             of.keepFolder(-1);
             of.toggleRow(99);
             of.open(99);
         },
         {}},
    };
    for (const auto& rule : rules) {
        controller->clearTicks();
        rule.tick();
        EXPECT_THAT(ticked(), testing::UnorderedElementsAreArray(rule.expected)) << rule.rule;
        EXPECT_EQ(controller->selectedCount(), static_cast<int>(rule.expected.size()));
    }
    std::vector<std::string> sizes;
    for (const char* name : {"in/b", "a", "link", "a"}) {
        controller->toggleRow(rowOf(name));
        sizes.push_back(controller->selectionText().toStdString());
    }
    EXPECT_THAT(sizes,
                ElementsAre("1 file, 4 KB", "2 files, 4 KB", "3 files, 8 KB", "2 files, 4 KB"))
        << "a file is freed with the last of its names";
    controller->reveal(rowOf("z"));
    EXPECT_THAT(home.workspace.revealed, ElementsAre(home.url("data/z")));
}

TEST_F(DuplicatesViewModelTests, warnsOfWhatHappenedSinceTheComparison) {
    const struct {
        const char* what;
        std::function<void(const FileURL&)> happen;
        std::string reason;
    } changes[] = {
        {"new content", [](const FileURL& file) { std::ofstream(file.path()) << "else!"; },
         "changed since it was compared"},
        {"new content with the old date",
         [](const FileURL& file) {
             std::ofstream(file.path()) << "SAME";
             setDate(file, 1'000);
         },
         "may have changed since it was compared"},
        {"another file with the old date",
         [](const FileURL& file) {
             const FileURL other(file.path() + "x");
             std::ofstream(other.path()) << "SAME";
             setDate(other, 1'000);
             std::filesystem::rename(other.path(), file.path());
         },
         "was replaced since it was compared"},
        {"nothing there", [](const FileURL& file) { std::filesystem::remove(file.path()); },
         "is gone"},
    };
    start();
    for (const auto& change : changes) {
        SCOPED_TRACE(change.what);
        write({"keep", "row"}, "same");
        setDate(home.url("data/keep"), 1'000);
        setDate(home.url("data/row"), 1'000);
        scan();
        controller->toggleRow(rowOf("row"));
        EXPECT_THAT(review(), ElementsAre(""));
        change.happen(home.url("data/keep"));
        EXPECT_THAT(review(), ElementsAre(QString::fromStdString("keep, which would stay, " +
                                                                 change.reason)));
        write({"keep"}, "same");
        scan();
        controller->toggleRow(rowOf("row"));
        change.happen(home.url("data/row"));
        // The sheet says already of a row that is gone what is in its way.
        const bool isGone = change.reason == "is gone";
        EXPECT_THAT(review(),
                    ElementsAre(isGone ? QString() : QString::fromStdString(change.reason)));
        EXPECT_EQ(controller->removal()->troubledCount(), isGone ? 1 : 0);
        EXPECT_EQ(controller->removal()->warningText(), "");
    }
}

TEST_F(DuplicatesViewModelTests, warnsOfGroupsWithoutASurvivorAndOfNamesThatFreeNothing) {
    write({"a", "b", "c"}, "same");
    write({"x", "y"}, "other");
    link("a", "link");
    std::filesystem::create_hard_link(home.path("data/y"), home.path("outside"));
    start();
    scan();
    for (const char* name : {"a", "x", "y"}) {
        controller->toggleRow(rowOf(name));
    }
    EXPECT_THAT(review(), testing::UnorderedElementsAre(
                              "is the same file as link, frees nothing", "no copy would stay",
                              "has other names (hard links), frees nothing; no copy would stay"));
    EXPECT_EQ(controller->removal()->warningText(), "Every copy would be removed of x (2 copies).");

    const std::vector<QString> rows = texts(*controller->removal()->rows(), "name");
    controller->removal()->leaveOut(
        static_cast<int>(std::find(rows.begin(), rows.end(), "x") - rows.begin()));
    settle();
    EXPECT_EQ(controller->removal()->warningText(), "");
    EXPECT_THAT(texts(*controller->removal()->rows(), "warning"),
                testing::UnorderedElementsAre("is the same file as link, frees nothing",
                                              "has other names (hard links), frees nothing"));
    controller->removeReviewed();
    settle();
    EXPECT_EQ(controller->banner(), "Moved 2 duplicate(s) to Trash") << "warnings forbid nothing";
}

TEST_F(DuplicatesViewModelTests, filtersAndCollapsesGroupsAndChangesOnlyTheRowsOfATick) {
    write({"Photos/\u00c4pfel.jpg", "copy.jpg"}, "123456789");
    write({"notes", "Notes (1)", "more"}, "1234");
    start();
    scan();
    DuplicatesModel& rows = *controller->rows();
    controller->selectAllCopies();
    QSignalSpy changes(&rows, &DuplicatesModel::dataChanged);
    controller->toggleRow(rowOf("more"));
    std::vector<int> changed;
    for (const auto& change : changes) {
        changed.push_back(change[0].toModelIndex().row());
        EXPECT_EQ(change[0], change[1]);
    }
    EXPECT_THAT(changed, ElementsAre(3, rowOf("Notes (1)"), rowOf("more")))
        << "the header, the file, and the one that stays whatever becomes of it";

    rows.setFilter("NOTES (");
    EXPECT_EQ(rows.rowCount(), 4);
    EXPECT_EQ(rows.countsText(), "1 of 2 groups, 3 of 5 files");
    EXPECT_EQ(rows.hiddenTicksText(), "1 ticked file is not shown");
    rows.setFilter("\u00e4PFEL");
    EXPECT_EQ(rows.rowCount(), 3);
    rows.setFilter("nothing like it");
    EXPECT_EQ(rows.rowCount(), 0);
    rows.setFilter("");
    EXPECT_EQ(rows.countsText(), "");
    rows.toggleCollapsed(1);
    EXPECT_THAT(texts(rows, "isCollapsed").front(), "true");
    EXPECT_EQ(rows.rowCount(), 5);
    EXPECT_EQ(rows.headerBelow(0), 1);
    EXPECT_EQ(rows.headerAbove(1), 0);
    rows.toggleCollapsed(0);
    rows.collapseAll();
    EXPECT_EQ(rows.count(), 2);
    rows.expandAll();
    EXPECT_EQ(rows.count(), 7);
}

TEST_F(DuplicatesViewModelTests, takesRootsAndSizesFromPeopleAndRefusesTheRest) {
    home.write("bad \xff%20 name/file");
    home.makeFolder("Downloads");
    start();
    EXPECT_FALSE(controller->setMinimumSize("a lot"));
    EXPECT_NE(controller->minimumSizeError(), "");
    EXPECT_EQ(controller->minimumSize(), 1);
    EXPECT_TRUE(controller->setMinimumSize("500 kb"));
    EXPECT_EQ(controller->minimumSizeError(), "");
    EXPECT_EQ(controller->minimumSizeText(), "500 KB");

    for (const char* text : {"", "relative", "~nobody", "/nowhere", "https://example.com/x"}) {
        controller->scanPath(text);
        waitUntil([this] { return controller->banner() != ""; });
        EXPECT_THAT(controller->banner().toStdString(), HasSubstr("There is no such folder"));
        controller->dismissBanner();
    }
    controller->scanDropped(
        {QUrl("https://example.com/x"), qurl(home.url("bad \xff%20 name/file"))});
    waitUntil([this] { return controller->banner() != ""; });
    EXPECT_EQ(controller->root(), home.url("Downloads"));
    controller->scanDropped({qurl(home.url("bad \xff%20 name"))});
    controller->scanPath("~/ignored, because a newer one was named");
    controller->scanDropped({qurl(home.url("bad \xff%20 name"))});
    waitUntil([this] { return controller->isScanning(); });
    EXPECT_EQ(controller->root(), home.url("bad \xff%20 name"));
    controller->scanPath(" ~/Downloads/.. ");
    waitUntil([this] { return controller->root() == home.url(); });
    EXPECT_THAT(texts(*controller->quickPlaces(), "title"), ElementsAre("Home", "Downloads"));
    controller->scanQuickPlace(1);
    EXPECT_EQ(controller->root(), home.url("Downloads"));
    controller->chooseRoot();
    EXPECT_EQ(home.workspace.choosingStart, home.url("Downloads"));
    home.workspace.choose(FileURL("/"));
    controller->cancel();
    EXPECT_EQ(controller->rootName(), "/");
    EXPECT_THAT(controller->lockedText().toStdString(), HasSubstr("Nothing can be moved"));
    EXPECT_EQ(home.defaults.path("duplicatesRootPath"), std::nullopt);
}

TEST_F(DuplicatesViewModelTests, tellsOfFoldersThatCouldNotBeRead) {
    write({"a", "b", "locked/c"}, "same");
    start(refusing(home.files, "locked"));
    scan();
    EXPECT_EQ(controller->groups().size(), 1U);
    EXPECT_EQ(controller->failuresText(), "1 folder could not be read");
    EXPECT_THAT(controller->leftOutText().toStdString(), HasSubstr("1 folder could not be read"));
    EXPECT_EQ(home.logged(" errors=1\n"), 1);
    controller->openFailures();
    EXPECT_TRUE(controller->showFailures());
    EXPECT_THAT(texts(*controller->failureFolders(), "pathText"),
                ElementsAre(shownPath(home.url("data"))));
}

TEST_F(DuplicatesViewModelTests, marksFilesThatTheScanMayBeWrongAbout) {
    write({"a", "b"}, "same");
    start(std::make_shared<FaultyFiles>(
        home.files, [](FileOperation operation, const FileURL& url) -> std::optional<SystemError> {
            if (operation == FileOperation::openFile && url.lastPathComponent() == "b") {
                setDate(url, 1'000);
            }
            return std::nullopt;
        }));
    scan();
    EXPECT_EQ(text(rowOf("a"), DuplicatesModel::UncertainText), "");
    EXPECT_EQ(text(rowOf("b"), DuplicatesModel::UncertainText),
              "changed or could not be read whole");
    controller->toggleRow(rowOf("a"));
    EXPECT_THAT(review(),
                ElementsAre("b, which would stay, changed since it was compared; changed or could "
                            "not be read whole when it was compared"));
}

TEST_F(DuplicatesViewModelTests, mayBeDestroyedWhateverRuns) {
    write({"a", "b"}, "same");
    const auto reviewAll = [this] {
        settle();
        controller->selectAllCopies();
        controller->prepareReview();
    };
    const auto scanAgain = [this] {
        controller->scan();
        processEvents();
    };
    // A move that began is carried out, whoever waits for it.
    const auto removeAll = [&] {
        reviewAll();
        controller->removeReviewed();
        controller->scan();
        stop();
        waitUntil([this] { return !home.has("data/b"); });
        home.write("data/b", "same");
    };
    const auto cancelAgain = [this] {
        settle();
        controller->scan();
        controller->cancel();
    };
    destroyAmidst([this] { start().scanRoot(home.url("data")); },
                  {[this] { controller->cancel(); }, scanAgain, reviewAll, removeAll, cancelAgain});
    EXPECT_EQ(home.read("data/a"), "same");
}

}
}
