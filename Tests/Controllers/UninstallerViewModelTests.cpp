#include <Support/GatedFiles.h>
#include <Support/OrdinaryUser.h>
#include <Support/TreeState.h>

#include <ControllerSupport/ControllerTest.h>
#include <ControllerSupport/FailingTrash.h>
#include <Controllers/UninstallerReview.h>
#include <Controllers/UninstallerViewModel.h>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>

#include <csignal>
#include <filesystem>

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class UninstallerViewModelTests : public ControllerTest<UninstallerViewModel> {
  protected:
    /// Some leftovers belong to the system, which lies below the home here, and are protected.
    UninstallerViewModelTests() {
        environment.layout.locations.systemLibrary = home.url("system");
        environment.layout.protection.additionalPrefixes.push_back(home.path("system"));
    }

    void settle() {
        waitUntil([this] {
            return !controller->isLoading() && !controller->isWorking() &&
                   !controller->detail()->isLoading() && !controller->removal()->isChecking();
        });
    }
    void load() {
        controller->load();
        settle();
    }
    void select(const std::string& identifier) {
        controller->select(QString::fromLatin1(identifier));
        settle();
    }
    void review() {
        controller->prepareReview();
        settle();
    }
    void remove() {
        controller->removeReviewed();
        settle();
    }
    /// Has it load, and opens the sheet on the tool.
    void reviewTool() {
        start();
        load();
        select(id);
        review();
    }
    /// An application folder that describes itself.
    void makeApp(const std::string& name, const std::string& identifier) const {
        home.write(bundle(name) + "/" + identifier + ".desktop",
                   "[Desktop Entry]\nName=" + name + "\n");
        home.write(bundle(name) + "/AppRun", "program");
    }
    static std::string bundle(const std::string& name) { return "Applications/" + name + ".app"; }
    std::vector<QString> shown(const QByteArray& role) { return texts(*controller->rows(), role); }
    std::vector<QString> left(const QByteArray& role) {
        return texts(*controller->detail()->leftoverRows(), role);
    }
    std::vector<QString> sheet(const QByteArray& role) {
        return texts(*controller->removal()->rows(), role);
    }

    const std::string id = "org.example.tool";
};

TEST_F(UninstallerViewModelTests, listsAndFindsApplicationsByNameAndIdentifier) {
    makeApp("App 10", "org.example.Ten");
    makeApp("App 9", "org.example.nine");
    makeApp("\u00c4pfel \u202e<b>\u202c", "net.odd");
    start();
    EXPECT_EQ(controller->stage(), Ui::Stage::Start);
    controller->appeared();
    EXPECT_EQ(controller->stage(), Ui::Stage::Working);
    settle();
    controller->appeared();
    EXPECT_FALSE(controller->isLoading()) << "once is enough";
    EXPECT_THAT(shown("name"), ElementsAre("\u00c4pfel \ufffd<b>\ufffd", "App 9", "App 10"));
    EXPECT_EQ(home.logged("uninstaller inventory apps=3\n"), 1);
    EXPECT_THAT(controller->leftOutText().toStdString(), HasSubstr("package manager"));
    const struct {
        const char* query;
        std::vector<std::string> ids;
        const char* count;
    } searches[] = {
        {"\u00e4PF", {"net.odd"}, "1 of 3 applications"},
        {"TEN", {"org.example.Ten"}, "1 of 3 applications"},
        {"org.EXAMPLE", {"org.example.nine", "org.example.Ten"}, "2 of 3 applications"},
        {"apfel", {}, "0 of 3 applications"},
        {" ", {"net.odd", "org.example.nine", "org.example.Ten"}, "3 applications"},
        {"  ", {}, "0 of 3 applications"},
        {"", {"net.odd", "org.example.nine", "org.example.Ten"}, "3 applications"},
    };
    for (const auto& search : searches) {
        controller->setQuery(search.query);
        std::vector<std::string> ids;
        for (const InstalledApp& app : controller->filteredApps()) {
            ids.push_back(app.id());
        }
        EXPECT_EQ(ids, search.ids) << search.query;
        EXPECT_EQ(controller->countText(), search.count) << search.query;
        EXPECT_EQ(controller->emptyText().isEmpty(), !search.ids.empty());
    }
    EXPECT_EQ(controller->selectedRow(), -1);
    select("org.example.Ten");
    EXPECT_EQ(controller->selectedRow(), 2);
    controller->revealApp(controller->idAt(2));
    EXPECT_THAT(home.workspace.revealed, ElementsAre(home.url(bundle("App 10"))));
}

TEST_F(UninstallerViewModelTests, showsWhatAnApplicationLeavesAndHowSureThatIs) {
    makeApp("Tool", id);
    makeApp("Tools", id + "s");
    home.write(".local/share/" + id + "/data", std::string(20'000, 'x'));
    home.write(".config/" + id + "rc");
    home.write(".config/" + id + "s.conf", "s");
    home.write("system/etc/xdg/" + id + ".conf", "x");
    start();
    load();
    controller->select(QString::fromStdString(id));
    EXPECT_TRUE(controller->detail()->isLoading());
    EXPECT_EQ(controller->appSize(), 0);
    settle();
    EXPECT_THAT(left("kind"), ElementsAre("Application Support", "Preferences", "Preferences",
                                          "System Preferences"));
    EXPECT_THAT(left("remark"),
                ElementsAre("Exact name", "Also matches Tools", "By name",
                            "Protected: belongs to the system and stays where it is"));
    EXPECT_THAT(left("isDoubtful"), ElementsAre("false", "true", "false", "false"));
    EXPECT_THAT(left("groupText")[1].toStdString(), HasSubstr("Preferences: 2 items, "));
    const std::string size = std::to_string(controller->appSize());
    EXPECT_EQ(home.logged("uninstaller detail app=" + id + " size=" + size + " leftovers=4\n"), 1);
    EXPECT_EQ(controller->detail()->protectedText(), "1 protected item stays");
    EXPECT_NE(shown("sizeText")[0], "") << "known from now on";
    controller->copyLeftoverPath(99);
    EXPECT_THAT(home.workspace.copied, IsEmpty());

    const InstalledApp tool = *controller->selected();
    start();
    controller->load();
    controller->select(tool);
    settle();
    EXPECT_EQ(left("remark")[1], "Also matches Tools") << "chosen before the list was there";
}

TEST_F(UninstallerViewModelTests, showsOnlyTheLatestSelection) {
    makeApp("Slow", "org.example.slow");
    makeApp("Tool", id);
    home.write(".config/org.example.slow.conf");
    home.defaults.set("autoSelectFirstApp", true);
    start(gated(gate, home.files, home.url(".config")));
    gate.open();
    load();
    EXPECT_EQ(controller->selected()->id(), "org.example.slow");
    review();
    gate.close();
    controller->select(*controller->selected());
    EXPECT_FALSE(controller->showReview()) << "it was that of an earlier look";
    waitUntil([this] { return gate.isReached(); });
    controller->prepareReview();
    EXPECT_FALSE(controller->showReview()) << "it would go without its leftovers";
    const InstalledApp tool = controller->apps()[1];
    controller->select(tool);
    gate.open();
    settle();
    processEvents();
    EXPECT_EQ(controller->selected(), tool);
    EXPECT_THAT(controller->leftovers(), IsEmpty());
    EXPECT_NE(controller->detail()->emptyText(), "");
    EXPECT_EQ(home.logged("uninstaller detail app=org.example.slow"), 1);
}

TEST_F(UninstallerViewModelTests, movesAllOfAnApplicationToTheTrashAndBack) {
    makeApp("Tool", id);
    makeApp("Other", "org.example.other");
    home.write(".local/share/" + id + "/deep/er/file", std::string(20'000, 'x'));
    home.makeLink(".config/" + id + "-link", "../elsewhere");
    home.write(".config/" + id + " odd \xff\n", "odd");
    home.write("elsewhere/kept", "kept");
    const TreeState apps = treeState(home.path("Applications"));
    const TreeState config = treeState(home.path(".config"));
    reviewTool();
    EXPECT_THAT(controller->reviewItems()[0],
                (ReviewItem{id, "Tool", home.url(bundle("Tool")), controller->appSize(), true}));
    EXPECT_THAT(sheet("isDirectory"), ElementsAre("true", "true", "false", "false"))
        << "the folder is the largest leftover";
    EXPECT_THAT(sheet("trouble"), testing::Each(QString()));
    EXPECT_EQ(controller->removal()->warningText(), "");

    controller->removeReviewed();
    EXPECT_TRUE(controller->isWorking());
    controller->load();
    controller->select("org.example.other");
    controller->clearSelection();
    settle();
    EXPECT_EQ(controller->banner(), "Removed Tool and 3 leftover item(s)");
    EXPECT_EQ(home.logged("uninstaller removed app=" + id + " receipts=4\n"), 1);
    EXPECT_FALSE(controller->selected() || controller->showReview());
    EXPECT_THAT(shown("name"), ElementsAre("Other"));
    EXPECT_THAT(treeState(home.path(".config")), IsEmpty());
    EXPECT_EQ(home.read("elsewhere/kept"), "kept");

    controller->undo();
    settle();
    EXPECT_EQ(controller->banner(), "Restored 4 item(s)");
    EXPECT_EQ(home.logged("uninstaller undo restored=4 failed=0\n"), 1);
    EXPECT_EQ(treeState(home.path("Applications")), apps);
    EXPECT_EQ(treeState(home.path(".config")), config);
    EXPECT_THAT(shown("name"), ElementsAre("Other", "Tool"));
    controller->undo();
    EXPECT_FALSE(controller->isWorking()) << "there is nothing to undo any more";
}

TEST_F(UninstallerViewModelTests, tellsOfARemovalThatFailedInItsMidst) {
    makeApp("Tool", id);
    home.write(".config/" + id + ".conf", "x");
    environment.trash = std::make_shared<FailingTrash>(environment.trash, "Tool.app");
    reviewTool();
    remove();
    const std::string error =
        "Could not move " + home.path(bundle("Tool")) + " to Trash: it is in use";
    EXPECT_EQ(controller->banner().toStdString(), error);
    EXPECT_EQ(home.logged("uninstaller removal failed: " + error + "\n"), 1);
    EXPECT_TRUE(controller->showReview());
    EXPECT_TRUE(home.has(".local/share/Trash/info/" + id + ".conf.trashinfo"));
    EXPECT_THAT(controller->receipts(), IsEmpty());
    EXPECT_EQ(controller->removal()->troubledCount(), 2) << "one is gone, one in use";
    EXPECT_EQ(controller->leftovers().size(), 1U);
    controller->removal()->closeReview();
    settle();
    EXPECT_THAT(controller->leftovers(), IsEmpty()) << "what is gone is not shown any longer";

    environment.trash = home.trash;
    reviewTool();
    remove();
    EXPECT_EQ(controller->banner(), "Removed Tool and 0 leftover item(s)");
    makeApp("Tool", id);
    controller->undo();
    settle();
    EXPECT_EQ(controller->banner(), "Restored with 1 failure(s)");
    EXPECT_EQ(home.logged("uninstaller undo restored=0 failed=1\n"), 1);
}

TEST_F(UninstallerViewModelTests, movesNothingWhileSomethingIsInTheWay) {
    makeApp("Tool", id);
    home.makeLink(".config/" + id + "-dangling", "nowhere");
    home.write(".config/" + id + ".conf", "x");
    home.write("system/etc/xdg/" + id + ".conf", "x");
    reviewTool();
    EXPECT_EQ(controller->reviewItems().size(), 3U) << "what is protected is not offered";
    EXPECT_EQ(controller->removal()->troubledCount(), 1);
    remove();
    EXPECT_EQ(controller->banner().toStdString(),
              "Item no longer exists: " + home.path(".config/" + id + "-dangling"));
    EXPECT_TRUE(home.has(".config/" + id + ".conf"));
    controller->removal()->leaveOutTroubled();
    controller->removal()->leaveOut(0);
    remove();
    EXPECT_EQ(controller->banner(), "Removed 1 leftover item(s) of Tool");
    EXPECT_TRUE(home.has(bundle("Tool")));
    EXPECT_TRUE(home.has("system/etc/xdg/" + id + ".conf"));
}

TEST_F(UninstallerViewModelTests, warnsOfWhatRunsAndOfWhatMayNotBeMoved) {
    makeApp("Tool", id);
    makeApp("Tools", id + "s");
    home.write(".config/" + id + "s.conf");
    std::string program = home.path(bundle("Tool") + "/sleep");
    std::string seconds = "1000";
    std::filesystem::copy_file("/bin/sleep", program);
    char* const arguments[] = {program.data(), seconds.data(), nullptr};
    pid_t running = 0;
    ASSERT_EQ(::posix_spawn(&running, program.c_str(), nullptr, nullptr, arguments, nullptr), 0);
    reviewTool();
    EXPECT_EQ(controller->removal()->warningText(),
              "Tool is running: quit it first, or it may write its files again.");
    EXPECT_THAT(sheet("warning"), ElementsAre("", "Also matches Tools"));
    ::kill(running, SIGKILL);
    ::waitpid(running, nullptr, 0);

    const InstalledApp app = *controller->selected();
    const std::vector<ReviewItem> items = controller->reviewItems();
    const std::filesystem::path folder = home.path("Applications");
    giveToOrdinaryUser(home.path(""));
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    const std::string text = asOrdinaryUser([&] {
        const Removal::Warnings warnings = UninstallerReview::warnings(
            app, {}, *home.files, home.layout.sources, items, [] { return false; });
        return warnings.rows.contains(id) ? warnings.all : "no warning of the application";
    });
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_EQ(text, "Tool cannot be moved with your rights; its leftovers "
                    "would go to the Trash without it.");
}

TEST_F(UninstallerViewModelTests, mayBeDestroyedWhateverRuns) {
    makeApp("Tool", id);
    makeApp("Other", "org.example.other");
    home.write(".config/" + id + ".conf", "x");
    const auto select = [this] {
        settle();
        controller->select(controller->apps()[1]);
    };
    const auto reload = [this] {
        controller->stopLoading();
        controller->load();
    };
    const auto selectOther = [&] {
        select();
        controller->select(controller->apps()[0]);
        processEvents();
    };
    const auto review = [&] {
        select();
        settle();
        controller->prepareReview();
    };
    // A move that began is carried out, whoever waits for it.
    const auto remove = [&] {
        select();
        controller->removeReviewed();
        stop();
        waitUntil([this] { return !home.has(bundle("Tool")); });
        makeApp("Tool", id);
    };
    destroyAmidst([this] { start().load(); }, {reload, [] {}, selectOther, review, remove});
    EXPECT_TRUE(home.has(bundle("Other")));
}

}
}
