#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace tolvane {
namespace {

using Case = RemovalError::Case;
using Paths = std::vector<std::string>;

class CleanerTest : public testing::Test {
  protected:
    std::vector<FileURL> urls(const Paths& relative) const {
        std::vector<FileURL> list;
        for (const std::string& path : relative) {
            list.push_back(home.url(path));
        }
        return list;
    }

    Paths validated(const Paths& relative) const {
        const auto valid = cleaner.validate(urls(relative), home.url());
        EXPECT_TRUE(valid.has_value()) << valid.error().description();
        Paths paths;
        for (const FileURL& url : valid.value_or(std::vector<FileURL>{})) {
            paths.push_back(url.path().substr(home.url().path().size() + 1));
        }
        return paths;
    }

    std::string refusal(const std::vector<FileURL>& items, const std::vector<FileURL>& within) {
        const auto valid = cleaner.validate(items, within, false);
        EXPECT_FALSE(valid.has_value());
        return valid ? "" : valid.error().description();
    }

    RemovalHome home;
    Cleaner cleaner = home.cleaner();
};

TEST_F(CleanerTest, keepsAFolderInsteadOfWhatLiesInIt) {
    for (const char* path : {"Photos/a", "Photos/deep/b", "Photos 2", "Phot", "z/\u00e9", "z/bb"}) {
        home.write(path);
    }
    EXPECT_EQ(validated({"Photos/deep/b", "Photos 2", "Photos/a", "Photos", "Phot", "Photos"}),
              (Paths{"Phot", "Photos", "Photos 2"}));
    EXPECT_EQ(validated({"z/bb", "z/\u00e9"}), (Paths{"z/\u00e9", "z/bb"}))
        << "a character counts once, however many bytes it has";
    EXPECT_EQ(validated({"z/../Phot", "./Phot//"}), Paths{"Phot"});
    EXPECT_TRUE(validated({}).empty());
    home.write("n/\xff\xfe");
    home.write("n/\u20ac");
    EXPECT_EQ(validated({"n/\xff\xfe", "n/\u20ac"}), (Paths{"n/\u20ac", "n/\xff\xfe"}))
        << "a byte of no character counts as one";
}

TEST_F(CleanerTest, refusesTheWholeBatchForItsFirstBadItem) {
    home.write("in/good");
    home.write("out");
    home.makeLink("in/dangling", "nowhere");
    const FileURL root = home.url("in");
    const FileURL good = root.appending("good");
    const std::string& path = root.path();
    EXPECT_EQ(refusal({good, root, home.url("out")}, {root}),
              "Refusing to remove the scanned root: " + path);
    EXPECT_EQ(refusal({home.url("in/gone/..")}, {root}),
              "Refusing to remove the scanned root: " + path);
    EXPECT_EQ(refusal({good, home.url("out"), root}, {root}),
              "Outside the scanned folder: " + home.path("out"));
    EXPECT_EQ(refusal({home.url("in2")}, {root}), "Outside the scanned folder: " + path + "2");
    EXPECT_EQ(refusal({good}, {}), "Outside the scanned folder: " + good.path());
    EXPECT_EQ(refusal({root.appending("gone")}, {root}),
              "Item no longer exists: " + path + "/gone");
    EXPECT_EQ(refusal({root.appending("dangling")}, {root}),
              "Item no longer exists: " + path + "/dangling");
    EXPECT_FALSE(cleaner.moveToTrash({good, root.appending("gone")}, root));
    EXPECT_TRUE(home.has("in/good"));
}

TEST_F(CleanerTest, removesNothingFromAScanOfTheWholeVolume) {
    const FileURL file = home.write("file");
    const std::string refused = "Outside the scanned folder: " + file.path();
    EXPECT_EQ(refusal({file}, {FileURL("/")}), refused);
    EXPECT_EQ(refusal({file}, {FileURL("")}), refused);
    EXPECT_TRUE(cleaner.validate({file}, {FileURL("/"), home.url()}, false));
}

TEST_F(CleanerTest, protectsUnlessTold) {
    const FileURL bundle = home.write("Applications/Some.app");
    const FileURL root = home.url("Applications");
    const ProtectionPolicy policy({{root.path()}}, std::nullopt, {});
    const Cleaner careful(policy, home.url(), home.files, home.trash);
    const auto refused = careful.moveToTrash({bundle, home.url()}, {root}, false);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), RemovalError::protectedPath(bundle.path()));
    EXPECT_EQ(refused.error().description(), "Protected path: " + bundle.path());
    EXPECT_TRUE(careful.moveToTrash({bundle}, {root}, true));
    EXPECT_FALSE(home.has("Applications/Some.app"));
}

TEST_F(CleanerTest, refusesARelativePathThatStillLeadsUpwards) {
    const auto result = cleaner.validate({FileURL("../..")}, FileURL(".."));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), RemovalError::protectedPath("../.."));
}

TEST_F(CleanerTest, bringsBackWhatItMoved) {
    home.write("p/app/build/x", "content");
    home.write("p/other", "o");
    home.makeLink("p/link", "other");
    const TreeState before = treeState(home.path("p"));
    const auto receipts = cleaner.moveToTrash(
        urls({"p/app/build", "p/app", "p/link", "p/other", "p/app"}), home.url("p"));
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

TEST_F(CleanerTest, attemptsEveryReceiptAndOverwritesNothing) {
    for (const char* path : {"a", "b", "c", "d"}) {
        home.write(path, path);
    }
    const auto receipts = cleaner.moveToTrash(urls({"a", "b", "c", "d"}), home.url());
    ASSERT_TRUE(receipts);
    std::filesystem::remove(receipts->at(0).trashed.path());
    home.write("b", "new");
    home.makeLink("c", "nowhere");
    const std::vector<RemovalError> errors = cleaner.restore(*receipts);
    ASSERT_EQ(errors.size(), 3U);
    EXPECT_EQ(errors[0].description(), "Item no longer exists: " + receipts->at(0).trashed.path());
    EXPECT_EQ(errors[1].description(),
              "Could not restore " + home.path("b") + ": An item already exists there");
    EXPECT_EQ(errors[2],
              RemovalError::restoreFailed(home.path("c"), "An item already exists there"));
    EXPECT_EQ(home.read("b"), "new");
    EXPECT_EQ(home.read("d"), "d");
    EXPECT_EQ(treeState(home.layout.locations.homeTrash.path()).at("/files/b"), "file b");
}

/// Moves what it is told to and nothing else, and notes the root it was given.
class ReportingTrash final : public Trash {
  public:
    Result<std::optional<FileURL>, std::string> move(const FileURL& item,
                                                     const FileURL& within) const override {
        roots.push_back(within.path());
        if (item.lastPathComponent() == "broken") {
            return tl::unexpected(std::string("the reason"));
        }
        return std::nullopt;
    }
    Result<void, std::string> putBack(const FileURL&, const FileURL&) const override { return {}; }

    mutable Paths roots;
};

TEST_F(CleanerTest, tellsWhyTheTrashDidNotTakeAnItem) {
    home.write("r/s/broken");
    home.write("none");
    const auto reporting = std::make_shared<ReportingTrash>();
    const Cleaner cleanerOfNone = home.cleanerWith(reporting);
    const auto absent = cleanerOfNone.moveToTrash(urls({"none"}), home.url());
    ASSERT_FALSE(absent);
    EXPECT_EQ(absent.error().description(),
              "Could not move " + home.path("none") +
                  " to Trash: The volume has no Trash; the item was not moved");
    const auto failed =
        cleanerOfNone.moveToTrash(urls({"r/s/broken"}), urls({"elsewhere", "r/./s"}), false);
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error(), RemovalError::trashFailed(home.path("r/s/broken"), "the reason"));
    EXPECT_EQ(reporting->roots, (Paths{home.url().path(), home.path("r/s")}));
}

}
}
