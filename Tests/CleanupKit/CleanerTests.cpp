#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace tolvane {
namespace {

using Paths = std::vector<std::string>;

class CleanerTest : public testing::Test {
  protected:
    Paths validated(const Paths& relative) const {
        const auto valid = cleaner.validate(home.urls(relative), home.url());
        EXPECT_TRUE(valid.has_value()) << valid.error().description();
        Paths paths;
        for (const FileURL& url : valid.value_or(std::vector<FileURL>{})) {
            paths.push_back(url.path().substr(home.url().path().size() + 1));
        }
        return paths;
    }

    std::string refusal(const std::vector<FileURL>& items, const std::vector<FileURL>& within) {
        const auto valid = cleaner.validate(items, within, false);
        return valid ? "" : valid.error().description();
    }

    RemovalHome home;
    Cleaner cleaner = home.cleaner();
};

TEST_F(CleanerTest, keepsAFolderInsteadOfWhatLiesInIt) {
    for (const char* path : {"Photos/a", "Photos/deep/b", "Photos 2", "Phot", "z/\u00e9", "z/bb",
                             "n/\xff\xfe", "n/\u20ac"}) {
        home.write(path);
    }
    EXPECT_EQ(validated({"Photos/deep/b", "Photos 2", "Photos/a", "Photos", "Phot", "Photos"}),
              (Paths{"Phot", "Photos", "Photos 2"}));
    EXPECT_EQ(validated({"z/bb", "z/\u00e9"}), (Paths{"z/\u00e9", "z/bb"}))
        << "a character counts once, however many bytes it has";
    EXPECT_EQ(validated({"n/\xff\xfe", "n/\u20ac"}), (Paths{"n/\u20ac", "n/\xff\xfe"}))
        << "a byte of no character counts as one";
    EXPECT_EQ(validated({"z/../Phot", "./Phot//"}), Paths{"Phot"});
    EXPECT_TRUE(validated({}).empty());
}

TEST_F(CleanerTest, refusesTheWholeBatchForItsFirstBadItem) {
    home.write("in/good");
    home.write("out");
    home.makeLink("in/dangling", "nowhere");
    const FileURL root = home.url("in");
    const FileURL good = root.appending("good");
    const FileURL out = home.url("out");
    const std::string outside = "Outside the scanned folder: ";
    const std::string isRoot = "Refusing to remove the scanned root: " + root.path();
    EXPECT_EQ(refusal({good, root, out}, {root}), isRoot);
    EXPECT_EQ(refusal({home.url("in/gone/..")}, {root}), isRoot);
    EXPECT_EQ(refusal({good, out, root}, {root}), outside + out.path());
    EXPECT_EQ(refusal({home.url("in2")}, {root}), outside + home.path("in2"));
    EXPECT_EQ(refusal({good}, {}), outside + good.path());
    EXPECT_EQ(refusal({FileURL("../..")}, {FileURL("..")}), "Protected path: ../..");
    for (const FileURL& none : {root.appending("gone"), root.appending("dangling")}) {
        EXPECT_EQ(refusal({none}, {root}), "Item no longer exists: " + none.path());
    }
    EXPECT_FALSE(cleaner.moveToTrash({good, root.appending("gone")}, root));
    EXPECT_TRUE(home.has("in/good"));
    // From a scan of the whole volume nothing may be removed.
    EXPECT_EQ(refusal({good}, {FileURL("/")}), outside + good.path());
    EXPECT_EQ(refusal({good}, {FileURL("")}), outside + good.path());
    EXPECT_EQ(refusal({good}, {FileURL("/"), root}), "");
}

TEST_F(CleanerTest, protectsUnlessTold) {
    const FileURL bundle = home.write("Applications/Some.app");
    const FileURL root = home.url("Applications");
    const ProtectionPolicy policy({{root.path()}}, std::nullopt, {});
    const Cleaner careful(policy, home.url(), home.files, home.trash);
    const auto refused = careful.moveToTrash({bundle, home.url()}, {root}, false);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), RemovalError::protectedPath(bundle.path()));
    EXPECT_TRUE(careful.moveToTrash({bundle}, {root}, true));
    EXPECT_FALSE(home.has("Applications/Some.app"));
}

TEST_F(CleanerTest, bringsBackWhatItMoved) {
    home.write("p/app/build/x", "content");
    home.write("p/other", "o");
    home.makeLink("p/link", "../p/other");
    const TreeState before = treeState(home.path("p"));
    const auto receipts = cleaner.moveToTrash(
        home.urls({"p/app/build", "p/app", "p/link", "p/other", "p/app"}), home.url("p"));
    ASSERT_TRUE(receipts) << receipts.error().description();
    ASSERT_EQ(receipts->size(), 3U);
    EXPECT_TRUE(treeState(home.path("p")).empty());
    EXPECT_NE(receipts->at(0).id, receipts->at(1).id);
    EXPECT_EQ(receipts->at(0).original, home.url("p/app"));
    EXPECT_EQ(receipts->at(0).trashed, home.layout.locations.homeTrash.appending("files/app"));
    std::filesystem::remove(home.path("p"));
    EXPECT_TRUE(cleaner.restore(*receipts).empty());
    EXPECT_EQ(treeState(home.path("p")), before);
}

TEST_F(CleanerTest, attemptsEveryReceipt) {
    for (const char* path : {"a", "b", "c"}) {
        home.write(path, path);
    }
    const auto receipts = cleaner.moveToTrash(home.urls({"a", "b", "c"}), home.url());
    ASSERT_TRUE(receipts);
    std::filesystem::remove(receipts->at(0).trashed.path());
    home.makeLink("b", "nowhere");
    EXPECT_EQ(
        cleaner.restore(*receipts),
        (std::vector{RemovalError::missing(receipts->at(0).trashed.path()),
                     RemovalError::restoreFailed(home.path("b"), "An item already exists there")}));
    EXPECT_EQ(home.read("c"), "c");
}

/// Moves nothing, and notes the root it was given.
class ReportingTrash final : public Trash {
  public:
    Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                     const FileURL& within) const override {
        root = within.path();
        if (item.lastPathComponent() == "broken") {
            return tl::unexpected(std::string("the reason"));
        }
        return std::nullopt;
    }
    Result<void, std::string> putBack(const FileURL&, const FileURL&) const override { return {}; }

    mutable std::string root;
};

TEST_F(CleanerTest, tellsWhyTheTrashDidNotTakeAnItem) {
    home.write("r/s/broken");
    home.write("none");
    const auto reporting = std::make_shared<ReportingTrash>();
    const auto refusedFrom = [&](const std::string& item, const Paths& within) {
        const auto moved =
            home.cleanerWith(reporting).moveToTrash(home.urls({item}), home.urls(within), false);
        return moved ? "" : moved.error().description();
    };
    EXPECT_EQ(refusedFrom("none", {""}),
              "Could not move " + home.path("none") +
                  " to Trash: The volume has no Trash; the item was not moved");
    EXPECT_EQ(refusedFrom("r/s/broken", {"elsewhere", "r/./s"}),
              "Could not move " + home.path("r/s/broken") + " to Trash: the reason");
    EXPECT_EQ(reporting->root, home.path("r/s"));
}

}
}
