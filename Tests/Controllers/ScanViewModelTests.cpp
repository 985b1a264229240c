#include <Support/GatedFiles.h>
#include <Support/SyntheticFiles.h>
#include <Support/TreeState.h>

#include <ControllerSupport/ControllerTest.h>
#include <ControllerSupport/FailingTrash.h>
#include <Controllers/ScanViewModel.h>
#include <Controllers/ShownText.h>
#include <gmock/gmock.h>

#include <filesystem>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> names(const std::vector<FileNode>& nodes) {
    std::vector<std::string> names;
    for (const FileNode& node : nodes) {
        names.emplace_back(node.name());
    }
    return names;
}

/// A folder of `count` files of one block.
SyntheticItem folderOf(std::string name, int count) {
    SyntheticItem folder = SyntheticItem::folder(std::move(name));
    for (int i = 0; i < count; ++i) {
        folder.children.push_back(SyntheticItem::file("file" + std::to_string(i), 4096));
    }
    return folder;
}

/// Makes a folder with all that `item` tells of below `home`. The files of a folder are names of
/// one file, which is made quickly and counted by each of its names.
FileURL makeOnDisk(const TemporaryHome& home, const std::string& path, const SyntheticItem& item) {
    home.makeFolder(path);
    std::string first;
    for (const SyntheticItem& child : item.children) {
        const std::string place = path + "/" + child.name;
        if (child.values.isDirectory.value_or(false)) {
            makeOnDisk(home, place, child);
        } else if (first.empty()) {
            first = home.write(place, std::string(4096, 'x')).path();
        } else {
            std::filesystem::create_hard_link(first, home.path(place));
        }
    }
    return home.url(path);
}

class ScanViewModelTests : public ControllerTest<ScanViewModel> {
  protected:
    ScanViewModelTests() {
        environment.clock = [this] { return time; };
    }

    ScanViewModel& start(const std::shared_ptr<const FileManager>& files = nullptr) {
        ControllerTest::start(files);
        watch(controller->folder());
        if (files || idleUses == 0) {
            idleUses = environment.files.use_count() - (files ? 1 : 0);
        }
        return *controller;
    }
    FileURL onDisk(const SyntheticItem& root) { return makeOnDisk(home, root.name, root); }
    void scan(const FileURL& url) {
        controller->scan(url, "test");
        settle();
    }
    /// Waits until nothing runs any more that the controller waits for.
    void settle() {
        waitUntil([this] {
            return controller->stage() != Ui::Stage::Working && !controller->isLoadingFolder() &&
                   !controller->removal()->isRemoving();
        });
    }
    /// Shows a folder too large to be loaded in detail by itself; from then on its folder "inner",
    /// some of whose files have no row, is loaded only when the gate opens.
    void scanAndHoldInner() {
        SyntheticItem root = folderOf("data", 60'001);
        root.children.push_back(folderOf("inner", 50));
        root.children.push_back(folderOf("other", 1));
        const FileURL data = onDisk(root);
        start(gated(gate, home.files, data.appending("inner")));
        gate.open();
        scan(data);
        gate.close();
    }
    /// Waits until no worker holds the file manager any more, and for what they told.
    void finishWorkers() {
        waitUntil([this] { return environment.files.use_count() <= idleUses; });
        processEvents();
    }
    /// Enters a folder of the one on screen, past the guard against double clicks.
    void enter(const std::string& name) {
        time += 1;
        controller->drill(child(name));
        settle();
    }
    FileNode child(const std::string& name) const {
        for (const FileNode& node : controller->path().back().children()) {
            if (node.name() == name) {
                return node;
            }
        }
        ADD_FAILURE() << name << " is not on screen";
        return controller->path().back();
    }
    /// The name that a scan of `folder` meets last.
    std::string lastListed(const FileURL& folder) const {
        const auto listing = home.files->openDirectory(folder, {});
        return std::string((*listing)->name((*listing)->count() - 1));
    }

    Date time = 1000;
    std::ptrdiff_t idleUses = 0;
};

TEST_F(ScanViewModelTests, showsWhatFillsAFolder) {
    home.write("data/small", std::string(5'000, 's'));
    home.write("data/folder/large", std::string(500'000, 'l'));
    home.write("data/bad \xff\n\u200fname");
    start();
    EXPECT_EQ(controller->stage(), Ui::Stage::Start);
    controller->scan(home.url("data"), "a test");
    EXPECT_TRUE(controller->isScanning());
    EXPECT_EQ(controller->stage(), Ui::Stage::Working);
    settle();

    EXPECT_EQ(controller->stage(), Ui::Stage::Result);
    EXPECT_THAT(names(controller->path()), ElementsAre("data"));
    const QString odd = u"bad \uFFFD\u240a\uFFFDname"_qs;
    EXPECT_THAT(texts(*controller->folder(), "name"), ElementsAre("folder", "small", odd));
    controller->folder()->sortBy(Ui::SortKey::Name);
    EXPECT_THAT(texts(*controller->folder(), "name"), ElementsAre(odd, "folder", "small"));
    controller->folder()->setFilter("SMA");
    EXPECT_THAT(texts(*controller->folder(), "name"), ElementsAre("small"));

    const std::string path = home.path("data");
    EXPECT_EQ(controller->lastScanPath().toStdString(), path);
    EXPECT_EQ(home.logged("scan start path=" + path + " origin=a test\n"), 1);
    EXPECT_THAT(home.logText(),
                testing::ContainsRegex("scan done path=" + path +
                                       " total=[0-9]+ children=3 files=3 listedFiles=3 dirs=2 "
                                       "errors=0 seconds=0[.0-9]+ cancelled=false\n"));
}

TEST_F(ScanViewModelTests, showsOnlyTheLatestScanAndWhatACancelledOneFound) {
    home.write("first/file");
    home.write("second/file");
    start(gated(gate, environment.files, home.url("first")));
    controller->scan(home.url("first"), "test");
    scan(home.url("second"));
    gate.open();
    finishWorkers();
    EXPECT_THAT(names(controller->path()), ElementsAre("second"));
    EXPECT_EQ(home.logged("scan cancel requested"), 1);
    EXPECT_EQ(home.logged("scan done"), 1);

    SyntheticItem root = folderOf("data", 100);
    root.children.push_back(folderOf("held", 10));
    const FileURL data = onDisk(root);
    gate.close();
    start(gated(gate, home.files, data.appending("held")));
    controller->scan(data, "test");
    controller->cancel();
    EXPECT_FALSE(controller->isScanning());
    gate.open();
    settle();
    EXPECT_TRUE(controller->isPartial());
    EXPECT_EQ(controller->path().size(), 1U);
    EXPECT_EQ(home.logged("cancelled=true"), 1);
    EXPECT_EQ(home.logged("folder load start"), 0) << "a partial tree is loaded no further";
}

TEST_F(ScanViewModelTests, ignoresClicksThatFollowAnEntryAtOnce) {
    start();
    scan(onDisk(SyntheticItem::folder(
        "data", {SyntheticItem::folder("a", {SyntheticItem::folder("b", {folderOf("c", 1)})})})));
    controller->drill(child("a"));
    controller->drill(child("b"));
    controller->select(child("b"), false);
    EXPECT_THAT(names(controller->path()), ElementsAre("data", "a"));
    EXPECT_EQ(controller->selectedCount(), 0);
    time += 0.5;
    controller->select(child("b"), false);
    EXPECT_EQ(controller->selectedCount(), 1);
    controller->drill(child("b"));
    EXPECT_EQ(controller->selectedCount(), 0);
    EXPECT_THAT(names(controller->path()), ElementsAre("data", "a", "b"));
    controller->jump(7);
    controller->jump(-1);
    controller->goBack();
    EXPECT_THAT(names(controller->path()), ElementsAre("data", "a"));
    controller->jump(0);
    controller->goBack();
    EXPECT_THAT(names(controller->path()), ElementsAre("data"));
    EXPECT_FALSE(controller->canGoBack());
}

TEST_F(ScanViewModelTests, keepsTheEightFoldersLastLoadedInDetail) {
    SyntheticItem root = SyntheticItem::folder("data");
    for (int i = 0; i < 9; ++i) {
        root.children.push_back(folderOf("f" + std::to_string(i), 40));
    }
    // Too many files to be loaded in detail as a whole.
    root.children.push_back(folderOf("many", 60'001));
    start();
    scan(onDisk(root));
    ASSERT_EQ(home.logged("folder load start"), 0);
    for (int i = 0; i < 9; ++i) {
        enter("f" + std::to_string(i));
        EXPECT_EQ(controller->folder()->count(), 40);
        controller->goBack();
    }
    EXPECT_EQ(home.logged("folder load done"), 9);
    enter("f1");
    EXPECT_EQ(home.logged("folder load start"), 9);
    controller->goBack();
    // The tree keeps what was loaded, so that nothing is missing and nothing is loaded again.
    enter("f0");
    EXPECT_EQ(controller->folder()->count(), 40);
}

TEST_F(ScanViewModelTests, loadsASmallScanInDetailByItself) {
    const FileURL data =
        onDisk(SyntheticItem::folder("data", {folderOf("some", 33), folderOf("rest", 59'967)}));
    start();
    scan(data);
    EXPECT_EQ(home.logged("folder load done"), 1);
    home.write("data/one more");
    scan(data);
    EXPECT_EQ(home.logged("folder load start"), 1);
}

TEST_F(ScanViewModelTests, carriesTicksIntoTheDetailedFolder) {
    scanAndHoldInner();
    time += 1;
    controller->select(child("other"), false);
    controller->loadFolder(child("inner"));
    const FileNode ticked = child("inner").children()[3];
    const FileNode inspected = child("inner").children()[5];
    controller->select(ticked, true);
    controller->inspect(QString::fromStdString(text(inspected.id())));
    gate.open();
    settle();

    EXPECT_EQ(child("inner").children().size(), 50U);
    EXPECT_THAT(names(controller->topLevelSelected()),
                testing::UnorderedElementsAre("other", std::string(ticked.name())));
    EXPECT_EQ(controller->selectedSize(), 2 * 4096);
    ASSERT_TRUE(controller->inspected());
    EXPECT_EQ(controller->inspected()->name(), inspected.name());
    EXPECT_EQ(controller->path().front().fileCount(), 60'052);
    // What is on screen is what can be ticked.
    controller->select(child("inner").children()[49], true);
    EXPECT_EQ(controller->selectedCount(), 3);
}

TEST_F(ScanViewModelTests, neverAppliesACancelledFolderLoad) {
    scanAndHoldInner();
    controller->loadContents(child("inner"));
    EXPECT_TRUE(controller->isLoadingFolder());
    EXPECT_EQ(controller->activeTitle(), "Loading inner");
    EXPECT_THAT(names(controller->path()), ElementsAre("data", "inner"));
    controller->cancelActivity();
    EXPECT_FALSE(controller->isLoadingFolder());
    gate.open();
    finishWorkers();
    EXPECT_EQ(controller->folder()->count(), 32);
    EXPECT_EQ(controller->folder()->hiddenText(), "18 smaller items, 74 KB");
    EXPECT_EQ(home.logged("folder load cancelled"), 1);
    EXPECT_EQ(home.logged("folder load done"), 0);
    controller->rescanInDetail();
    settle();
    EXPECT_EQ(controller->folder()->count(), 50);
    EXPECT_EQ(controller->folder()->hiddenText(), "");
    controller->loadContents(FileNode(controller->path().back()));
    EXPECT_EQ(home.logged("folder load start"), 2);
}

TEST_F(ScanViewModelTests, estimatesFromTheScanBefore) {
    const FileURL data =
        onDisk(SyntheticItem::folder("data", {folderOf("a", 500), folderOf("b", 500)}));
    start(gated(gate, home.files, data.appending(lastListed(data))));
    controller->scan(data, "test");
    waitUntil([&] { return controller->activeProgress().has_value(); });
    EXPECT_EQ(controller->activeFraction(), std::nullopt);
    EXPECT_EQ(controller->activeTitle(), "Scanning data");
    gate.open();
    settle();
    EXPECT_EQ(controller->activeProgress(), std::nullopt);

    gate.close();
    controller->scan(data, "test");
    waitUntil([&] { return controller->activeFraction().has_value(); });
    EXPECT_LE(*controller->activeFraction(), 0.52);
    EXPECT_EQ(controller->activeETA(), std::nullopt);
    time += 10;
    const double fraction = *controller->activeFraction();
    EXPECT_DOUBLE_EQ(controller->activeETA().value_or(0), (1 - fraction) * 10 / fraction);
    gate.open();
    settle();
}

TEST_F(ScanViewModelTests, movesWhatIsTickedToTheTrashAndBack) {
    home.write("data/keep", "k");
    home.write("data/bad \xff name", "b");
    home.write("data/folder/one", "1");
    home.write("data/folder/two", "2");
    const TreeState before = treeState(home.path("data"));
    start();
    scan(home.url("data"));
    controller->select(child("folder").children()[0], true);
    controller->select(child("folder"), true);
    controller->select(child("bad \xff name"), true);
    EXPECT_THAT(names(controller->topLevelSelected()), ElementsAre("folder", "bad \xff name"));
    controller->prepareReview();
    EXPECT_TRUE(controller->removal()->showReview());
    controller->removeReviewed();
    EXPECT_TRUE(controller->removal()->isRemoving());
    settle();

    EXPECT_EQ(controller->banner(), "Moved 2 items to Trash");
    EXPECT_FALSE(home.has("data/folder"));
    EXPECT_TRUE(home.has("data/keep"));
    EXPECT_THAT(names(controller->path().back().children()), ElementsAre("keep"));
    EXPECT_EQ(controller->selectedCount(), 0);
    EXPECT_EQ(home.logged("trash count=2 bytes=" + std::to_string(3 * 4096) +
                          " root=" + home.path("data")),
              1);
    EXPECT_EQ(home.logged("origin=rescan"), 1);

    controller->undoRemoval();
    settle();
    EXPECT_EQ(controller->banner(), "Restored 2 items");
    EXPECT_EQ(treeState(home.path("data")), before);
    EXPECT_EQ(home.logged("undo restored=2 failed=0"), 1);
    EXPECT_FALSE(controller->removal()->canUndo());

    controller->select(child("keep"), true);
    controller->prepareReview();
    controller->removeReviewed();
    settle();
    home.write("data/keep", "another");
    controller->undoRemoval();
    settle();
    EXPECT_EQ(controller->banner(), "Restored 0; 1 failed");
    EXPECT_EQ(home.read("data/keep"), "another");
}

TEST_F(ScanViewModelTests, scansAgainOnlyWhenARemovalThatFailedHadBegun) {
    home.write("data/a", "a");
    home.write("data/bb", "b");
    home.write("data/keep", "k");
    home.makeLink("data/link", "nowhere");
    environment.trash = std::make_shared<FailingTrash>(environment.trash, "bb");
    start();
    scan(home.url("data"));
    const auto remove = [&](const std::vector<std::string>& ticked, const std::string& error) {
        controller->clearSelection();
        for (const std::string& name : ticked) {
            controller->select(child(name), true);
        }
        controller->prepareReview();
        controller->removeReviewed();
        settle();
        EXPECT_EQ(controller->banner().toStdString(), error);
        EXPECT_FALSE(controller->removal()->canUndo());
    };
    const std::string missing = "Item no longer exists: " + home.path("data/link");
    remove({"a", "link"}, missing);
    EXPECT_EQ(home.logged("trash failed: " + missing), 1);
    EXPECT_EQ(home.logged("origin=rescan"), 0);
    remove({"a", "bb"}, "Could not move " + home.path("data/bb") + " to Trash: it is in use");
    EXPECT_EQ(home.logged("origin=rescan"), 1);
    EXPECT_THAT(names(controller->path().back().children()),
                testing::UnorderedElementsAre("bb", "keep", "link"));
}

TEST_F(ScanViewModelTests, ticksAFolderWithAllThatLiesInItButTheScannedOne) {
    start();
    scan(onDisk(SyntheticItem::folder("data", {folderOf("a", 3), folderOf("b", 1)})));
    const auto tick = [&](int row) {
        return controller->folder()->index(row).data(FolderModel::Tick).value<Ui::Tick>();
    };
    enter("a");
    controller->selectAllChildren();
    EXPECT_THAT(names(controller->topLevelSelected()), ElementsAre("a"));
    time += 1;
    controller->select(child("file0"), true);
    EXPECT_EQ(tick(0), Ui::Tick::Included);
    EXPECT_EQ(controller->selectionText(), "1 item, 12 KB");
    controller->goBack();
    EXPECT_EQ(tick(0), Ui::Tick::All);
    controller->clearSelection();
    EXPECT_EQ(tick(0), Ui::Tick::None);
    enter("a");
    time += 1;
    controller->select(child("file0"), true);
    controller->goBack();
    EXPECT_EQ(tick(0), Ui::Tick::Partial);
    controller->clearSelection();

    controller->selectAllChildren();
    EXPECT_THAT(names(controller->topLevelSelected()), ElementsAre("data"));
    EXPECT_EQ(controller->selectionText(), "2 items, 16 KB");
    controller->select(child("b"), true);
    EXPECT_EQ(tick(0), Ui::Tick::All);
    EXPECT_EQ(tick(1), Ui::Tick::None);
    controller->reviewChosen();
    EXPECT_THAT(texts(*controller->removal()->rows(), "name"), ElementsAre("a"));
    controller->prepareReview();
    EXPECT_THAT(texts(*controller->removal()->rows(), "name"), ElementsAre("data"));
}

TEST_F(ScanViewModelTests, listsPurgeableFilesAndFailures) {
    SyntheticItem root = SyntheticItem::folder("data", {folderOf("a", 3), folderOf("locked", 0)});
    root.children[0].children[1].values.isPurgeable = true;
    root.children[0].children[2].values.isPurgeable = true;
    root.children[0].children[2].values.totalFileAllocatedSize = 8192;
    root.children[0].values.isPurgeable = true;
    root.children[1].listingError = SystemError{EACCES};
    start(std::make_shared<SyntheticFiles>("/data", std::move(root)));
    scan(FileURL("/data"));
    EXPECT_THAT(names(controller->purgeableFiles(500)), ElementsAre("file2", "file1"));
    EXPECT_THAT(names(controller->purgeableFiles(1)), ElementsAre("file2"));
    EXPECT_EQ(controller->purgeableText(), "12 KB purgeable");
    EXPECT_EQ(controller->failuresText(), "1 item could not be read");
    controller->openFailures();
    EXPECT_THAT(texts(*controller->failureFolders(), "pathText"), ElementsAre("/data"));
    EXPECT_THAT(texts(*controller->failureFolders(), "countText"), ElementsAre("1 item"));
    enter("locked");
    EXPECT_EQ(controller->emptyText(), "This folder could not be read: Operation not permitted");
}

TEST_F(ScanViewModelTests, saysThatNothingOfTheWholeFileSystemCanBeRemoved) {
    start(std::make_shared<SyntheticFiles>(
        "/", SyntheticItem::folder("/", {SyntheticItem::folder("srv", {folderOf("a", 1)})})));
    scan(FileURL("/"));
    EXPECT_THAT(controller->lockedText().toStdString(), HasSubstr("Nothing can be moved"));
    EXPECT_EQ(controller->scannedName(), "/");
    enter("srv");
    controller->scanFolderOnScreen();
    settle();
    EXPECT_EQ(controller->scannedPath(), "/srv");
    EXPECT_EQ(controller->lockedText(), "");
}

TEST_F(ScanViewModelTests, mayBeDestroyedWhateverRuns) {
    home.write("data/folder/file");
    const auto load = [this] {
        settle();
        controller->loadFolder(controller->path().front());
    };
    const auto review = [this] {
        finishWorkers();
        controller->selectAllChildren();
        controller->prepareReview();
    };
    destroyAmidst([this] { start().scan(home.url("data"), "test"); },
                  {[this] { controller->cancel(); }, load,
                   [this] { controller->scan(home.url("data/folder"), "test"); }, review});
    finishWorkers();
    EXPECT_TRUE(home.has("data/folder/file"));
}

}
}
