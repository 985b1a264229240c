#include <Support/OddNames.h>
#include <Support/TreeState.h>

#include <ControllerSupport/ControllerHome.h>
#include <Controllers/Removal.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace tolvane {
namespace {

using testing::ElementsAre;

class BrokenTrash final : public Trash {
  public:
    Result<std::optional<FileURL>, std::string> move(const FileURL&,
                                                     const FileURL&) const override {
        throw std::runtime_error("out of luck");
    }
    Result<void, std::string> putBack(const FileURL&, const FileURL&) const override {
        throw std::runtime_error("out of luck");
    }
};

class RemovalTest : public testing::Test {
  protected:
    void SetUp() override { removal = make(home.environment()); }

    std::unique_ptr<Removal> make(const Environment& environment) {
        const auto note = [this](std::string told) {
            if (isDestroying) {
                removal.reset();
            }
            calls.push_back(std::move(told));
        };
        return std::make_unique<Removal>(
            environment,
            Removal::Handlers{
                [note](const auto& receipts) { note("moved " + std::to_string(receipts.size())); },
                [note](const RemovalError& error) { note(error.description()); },
                [note](std::size_t restored, const std::vector<RemovalError>& failed) {
                    std::string told = "restored " + std::to_string(restored);
                    for (const RemovalError& error : failed) {
                        told += "; " + error.description();
                    }
                    note(told);
                }});
    }
    void review(const std::vector<FileURL>& urls) {
        std::vector<ReviewItem> items;
        for (const FileURL& url : urls) {
            const std::string name(url.lastPathComponent());
            items.push_back({url.path(), name, url, 1000, false});
        }
        removal->review(items, {chosen}, false);
    }
    /// Removes what is on the sheet, and waits for the end.
    void remove() {
        removal->remove({{reviewed(), {chosen}}});
        waitForEnd();
    }
    void undo() {
        removal->undo();
        waitForEnd();
    }
    void waitForEnd() {
        EXPECT_TRUE(removal->isRemoving());
        waitUntil([this] { return removal == nullptr || !removal->isRemoving(); });
    }
    std::vector<FileURL> reviewed() const {
        std::vector<FileURL> urls;
        for (const ReviewItem& item : removal->reviewItems()) {
            urls.push_back(item.url);
        }
        return urls;
    }
    std::string text(int row, const char* role) const {
        const ListModel& rows = *removal->rows();
        return rows.data(rows.index(row), rows.roleNames().key(role)).toString().toStdString();
    }

    ControllerHome home;
    FileURL chosen = home.makeFolder("chosen");
    std::vector<std::string> calls;
    bool isDestroying = false;
    std::unique_ptr<Removal> removal;
};

TEST_F(RemovalTest, movesWhatIsOnTheSheetAndBringsItBack) {
    std::vector<FileURL> urls;
    for (const std::string& name : oddNames()) {
        urls.push_back(home.write("chosen/" + name, name));
    }
    const TreeState before = treeState(chosen.path());
    review(urls);
    EXPECT_TRUE(removal->showReview());
    EXPECT_EQ(removal->countText().toStdString(), std::to_string(urls.size()) + " items");
    EXPECT_EQ(removal->reviewedSize(), static_cast<Bytes>(urls.size()) * 1000);
    remove();
    EXPECT_THAT(calls, ElementsAre("moved " + std::to_string(urls.size())));
    EXPECT_FALSE(removal->showReview());
    EXPECT_EQ(removal->rows()->count(), 0);
    EXPECT_TRUE(removal->canUndo());
    EXPECT_NE(treeState(chosen.path()), before);

    undo();
    EXPECT_EQ(calls.back(), "restored " + std::to_string(urls.size()));
    EXPECT_EQ(treeState(chosen.path()), before);
    EXPECT_FALSE(removal->canUndo());
    removal->undo();
    EXPECT_FALSE(removal->isRemoving()) << "an undo is for once";

    review({urls[0], urls[1]});
    remove();
    home.write("chosen/" + oddNames()[0], "new");
    undo();
    EXPECT_EQ(calls.back(),
              "restored 1; Could not restore " + urls[0].path() + ": An item already exists there");
    EXPECT_FALSE(removal->canUndo());
}

TEST_F(RemovalTest, marksWhatIsInTheWayAndDropsNothing) {
    const FileURL good = home.write("chosen/<b>good\xff");
    const FileURL dangling = home.makeLink("chosen/dangling", "nowhere");
    const FileURL outside = home.write("outside");
    review({good, dangling, chosen, outside, home.url("chosen/gone"), FileURL("/usr")});
    EXPECT_EQ(removal->rows()->count(), 6) << "at once";
    waitUntil([this] { return removal->troubledCount() > 0; });
    EXPECT_EQ(removal->troubledCount(), 5);
    EXPECT_EQ(text(0, "name"), "<b>good\ufffd");
    EXPECT_EQ(text(0, "trouble"), "");
    EXPECT_EQ(text(1, "trouble"), "Item no longer exists: " + dangling.path());
    EXPECT_EQ(text(2, "trouble"), "Refusing to remove the scanned root: " + chosen.path());
    EXPECT_EQ(text(3, "trouble"), "Outside the scanned folder: " + outside.path());
    EXPECT_EQ(text(5, "trouble"), "Protected path: /usr");

    const TreeState before = treeState(home.path("chosen"));
    remove();
    EXPECT_THAT(calls, ElementsAre("Item no longer exists: " + dangling.path()));
    EXPECT_EQ(treeState(home.path("chosen")), before) << "nothing moves when one may not";
    EXPECT_TRUE(removal->showReview());

    removal->leaveOut(1);
    EXPECT_EQ(removal->rows()->count(), 5);
    removal->leaveOutTroubled();
    EXPECT_THAT(reviewed(), ElementsAre(good));
    EXPECT_EQ(removal->countText(), "1 item");
    EXPECT_EQ(removal->totalText(), "1 KB");
    removal->leaveOut(0);
    EXPECT_FALSE(removal->showReview());
}

TEST_F(RemovalTest, warnsOfRowsAndForbidsNothing) {
    const auto item = [](const FileURL& url) { return ReviewItem{url.path(), "n", url, 1, false}; };
    const FileURL gone = home.url("chosen/gone");
    const auto examiner = [](const std::vector<ReviewItem>& items, const auto&) {
        Removal::Warnings warnings{{}, std::to_string(items.size()) + " in all"};
        warnings.rows[items.front().id] = "think\ntwice";
        return warnings;
    };
    removal->review({item(home.write("chosen/a")), item(home.write("chosen/b")), item(gone)},
                    {chosen}, false, examiner);
    EXPECT_TRUE(removal->isChecking());
    waitUntil([this] { return !removal->isChecking(); });
    EXPECT_EQ(text(0, "warning"), "think\u240atwice");
    EXPECT_EQ(text(2, "trouble"), "Item no longer exists: " + gone.path());
    EXPECT_EQ(removal->warningText(), "3 in all");

    removal->leaveOut(0);
    waitUntil([this] { return !removal->isChecking(); });
    EXPECT_EQ(text(0, "warning"), "think\u240atwice") << "another row is the first one now";
    EXPECT_EQ(removal->warningText(), "2 in all");
    removal->leaveOutTroubled();
    EXPECT_EQ(removal->warnedCount(), 1);
    remove();
    EXPECT_THAT(calls, ElementsAre("moved 1"));
    EXPECT_EQ(removal->warningText(), "");
}

TEST_F(RemovalTest, showsAfterAFailureMidwayWhatBecameOfEachRow) {
    // Shorter paths go first, and what holds the Trash does not go into it.
    chosen = home.url();
    const FileURL first = home.write("a");
    const FileURL second = home.makeFolder(".local");
    const FileURL third = home.write("longest name");
    const std::string failure =
        "Could not move " + second.path() + " to Trash: The folder contains the Trash";
    review({first, second, third});
    removal->remove({{reviewed(), {chosen}}});
    removal->remove({{{third}, {chosen}}});
    removal->leaveOut(0);
    removal->closeReview();
    EXPECT_EQ(removal->rows()->count(), 3) << "the rows stay while they are being moved";
    waitForEnd();
    EXPECT_THAT(calls, ElementsAre(failure));
    EXPECT_FALSE(home.has("a"));
    EXPECT_TRUE(home.has("longest name"));
    EXPECT_FALSE(removal->canUndo());

    waitUntil([this] { return removal->troubledCount() > 0; });
    EXPECT_TRUE(removal->showReview());
    EXPECT_EQ(text(0, "trouble"), "Item no longer exists: " + first.path());
    EXPECT_EQ(text(1, "trouble"), failure);
    EXPECT_EQ(text(2, "trouble"), "");
    removal->leaveOutTroubled();
    remove();
    EXPECT_EQ(calls.back(), "moved 1");
    EXPECT_FALSE(home.has("longest name"));
}

TEST_F(RemovalTest, endsWithAnErrorWhenItsWorkBreaksOff) {
    const Environment broken = home.environmentWith(std::make_shared<BrokenTrash>());
    removal = make(broken);
    const FileURL item = home.write("chosen/a");
    review({item});
    remove();
    EXPECT_THAT(calls, ElementsAre("Could not move " + item.path() + " to Trash: out of luck"));
    EXPECT_TRUE(home.has("chosen/a"));
}

TEST_F(RemovalTest, mayBeDestroyedByWhomItTells) {
    const FileURL item = home.write("chosen/a");
    isDestroying = true;
    review({item});
    remove();
    EXPECT_EQ(removal, nullptr);

    SetUp();
    removal->remove({{{item}, {chosen}}});
    waitForEnd();
    EXPECT_THAT(calls, ElementsAre("moved 1", "Item no longer exists: " + item.path()));
    EXPECT_EQ(removal, nullptr);
}

}
}
