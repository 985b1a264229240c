#include "RemovalModel.h"

#include <HostKit/TrashInfo.h>
#include <Support/OddNames.h>
#include <Support/RemovalHome.h>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;
using Receipts = std::vector<RemovalReceipt>;

constexpr int sequenceCount = 10000;
constexpr std::size_t treeSize = 24;
constexpr std::size_t largestTrash = 40;

/// What two states do not have in common, for people.
std::string difference(const TreeState& found, const TreeState& expected) {
    std::string text;
    for (const auto& [path, description] : found) {
        if (!expected.contains(path) || expected.at(path) != description) {
            text += "found " + testing::PrintToString(path) + ": " + description + "\n";
        }
    }
    for (const auto& [path, description] : expected) {
        if (!found.contains(path)) {
            text += "expected " + testing::PrintToString(path) + ": " + description + "\n";
        }
    }
    return text;
}

/// A folder with things in it, its Trash, and the model that both must agree with.
class RandomRemovals : public testing::Test {
  protected:
    void SetUp() override {
        home.makeFolder("root");
        home.write("target");
    }

    std::size_t pick(std::size_t count) { return random() % count; }
    FileURL url(const std::string& path) const { return FileURL(root + path); }
    std::string pathOf(const FileURL& item) const { return item.path().substr(root.size()); }
    std::string trashFolder() const { return home.layout.locations.homeTrash.path(); }

    std::string anyPath() {
        auto entry = model.tree.begin();
        std::advance(entry, static_cast<std::ptrdiff_t>(pick(model.tree.size())));
        return entry->first;
    }

    /// Somewhere below a folder that there is; often where something trashed once was.
    std::string newPath() {
        std::string folder = model.tree.empty() || pick(3) == 0 ? "" : anyPath();
        while (!folder.empty() && model.tree.at(folder) != "folder") {
            folder.resize(folder.rfind('/'));
        }
        const Paths names = oddNames();
        return folder + "/" + (pick(2) == 0 ? names[pick(names.size())] : "n");
    }

    void create() {
        const std::string path = newPath();
        if (model.has(path)) {
            return;
        }
        switch (pick(4)) {
        case 0:
        case 1:
            fs::create_directory(root + path);
            model.tree[path] = "folder";
            break;
        case 2:
            fs::create_symlink(pick(2) == 0 ? fs::path("gone") : target, root + path);
            model.tree[path] = "link to " + fs::read_symlink(root + path).native();
            break;
        default:
            home.write("root" + path, std::to_string(++fileCount));
            model.tree[path] = "file " + std::to_string(fileCount);
        }
    }

    Paths chosen() {
        Paths paths;
        for (std::size_t count = 1 + pick(4); count > 0; --count) {
            paths.push_back(anyPath());
        }
        return paths;
    }

    void remove() {
        const Paths paths = chosen();
        std::vector<FileURL> items;
        bool isValid = true;
        for (const std::string& path : paths) {
            items.push_back(url(path));
            isValid = isValid && fs::exists(root + path);
        }
        if (pick(4) == 0) {
            killed([&] { static_cast<void>(home.cleaner().moveToTrash(items, FileURL(root))); });
            for (const std::string& path : RemovalModel::withoutNested(paths)) {
                noteIfMoved(path);
            }
            return;
        }
        const auto moved = home.cleaner().moveToTrash(items, FileURL(root));
        ASSERT_EQ(moved.has_value(), isValid);
        Paths originals;
        for (const RemovalReceipt& receipt : moved.value_or(Receipts{})) {
            originals.push_back(pathOf(receipt.original));
            note(receipt);
        }
        ASSERT_EQ(originals, isValid ? RemovalModel::withoutNested(paths) : Paths{});
    }

    void note(const RemovalReceipt& receipt) {
        const std::string name(receipt.trashed.lastPathComponent());
        ASSERT_FALSE(model.trash.contains(name)) << "a name of another item was given again";
        model.moveToTrash(pathOf(receipt.original), name);
        receipts.push_back(receipt);
    }

    /// Whether its name in the Trash has not been given to another item since.
    bool isCurrent(const RemovalReceipt& receipt) const {
        const auto found = model.trash.find(std::string(receipt.trashed.lastPathComponent()));
        return found == model.trash.end() || found->second.original == pathOf(receipt.original);
    }

    void putBack() {
        std::erase_if(receipts, [&](const auto& receipt) { return !isCurrent(receipt); });
        Receipts some;
        for (std::size_t count = 1 + pick(4); count > 0; --count) {
            some.push_back(receipts[pick(receipts.size())]);
        }
        if (pick(4) == 0) {
            killed([&] { static_cast<void>(home.cleaner().restore(some)); });
            for (const RemovalReceipt& receipt : some) {
                noteIfBack(receipt);
            }
            return;
        }
        std::size_t failures = 0;
        for (const RemovalReceipt& receipt : some) {
            const std::string name(receipt.trashed.lastPathComponent());
            if (model.mayPutBack(name)) {
                model.putBack(name);
            } else {
                ++failures;
            }
        }
        ASSERT_EQ(home.cleaner().restore(some).size(), failures);
    }

    /// Somebody deletes from the Trash for good.
    void emptyTrash() {
        for (auto item = model.trash.begin(); item != model.trash.end();) {
            if (pick(4) == 0) {
                ++item;
                continue;
            }
            fs::remove_all(trashFolder() + "/files/" + item->first);
            fs::remove(trashFolder() + "/info/" + trashInfoName(item->first));
            item = model.trash.erase(item);
        }
    }

    /// Does it in a process that is killed at any moment, or just after it was done.
    void killed(const std::function<void()>& work) {
        const auto microseconds = static_cast<useconds_t>(pick(1500));
        const pid_t child = ::fork();
        if (child == 0) {
            work();
            ::_exit(0);
        }
        ::usleep(microseconds);
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        killCount += WIFSIGNALED(status) ? 1 : 0;
    }

    static bool isThere(const FileURL& item) {
        return fs::symlink_status(item.path()).type() != fs::file_type::not_found;
    }

    void noteIfMoved(const std::string& path) {
        if (!model.has(path) || isThere(url(path))) {
            return;
        }
        for (const auto& [name, original] : recorded()) {
            if (original == root + path && !model.trash.contains(name)) {
                note({freshIdentifier(), url(path), FileURL(trashFolder() + "/files/" + name)});
                return;
            }
        }
        FAIL() << path << " is lost";
    }

    void noteIfBack(const RemovalReceipt& receipt) {
        const std::string name(receipt.trashed.lastPathComponent());
        if (model.mayPutBack(name) && !isThere(receipt.trashed)) {
            model.putBack(name);
        } else if (model.trash.contains(name)) {
            makeFoldersOf(receipt);
        }
    }

    /// The folders for an item may be there without it.
    void makeFoldersOf(const RemovalReceipt& receipt) {
        for (fs::path folder = fs::path(receipt.original.path()).parent_path();
             folder.native().size() > root.size(); folder = folder.parent_path()) {
            if (fs::is_directory(fs::symlink_status(folder))) {
                model.tree.try_emplace(folder.native().substr(root.size()), "folder");
            }
        }
    }

    /// What the info files tell of the items that are in the Trash.
    std::map<std::string, std::string> recorded() const {
        std::map<std::string, std::string> places;
        if (!fs::exists(trashFolder() + "/info")) {
            return places;
        }
        for (const auto& entry : fs::directory_iterator(trashFolder() + "/info")) {
            const std::string name = entry.path().stem().native();
            if (isThere(FileURL(trashFolder() + "/files/" + name))) {
                const std::string text =
                    home.read(".local/share/Trash/info/" + entry.path().filename().native());
                places[name] = TrashInfo::parse(text).value_or(TrashInfo{}).path;
            }
        }
        return places;
    }

    void check() {
        ASSERT_TRUE(treeState(root) == model.tree) << difference(treeState(root), model.tree);
        TreeState expected;
        std::map<std::string, std::string> expectedPlaces;
        for (const auto& [name, item] : model.trash) {
            expectedPlaces[name] = root + item.original;
            const std::string place = "/" + name;
            for (const auto& [below, description] : item.content) {
                expected[place + below] = description;
            }
        }
        const std::string files = trashFolder() + "/files";
        const TreeState inTrash = fs::exists(files) ? treeState(files) : TreeState{};
        ASSERT_TRUE(inTrash == expected) << difference(inTrash, expected);
        ASSERT_TRUE(recorded() == expectedPlaces) << difference(recorded(), expectedPlaces);
    }

    RemovalHome home;
    const std::string root = home.path("root");
    const fs::path target = home.path("target");
    RemovalModel model;
    Receipts receipts;
    std::mt19937 random{20261115};
    int fileCount = 0;
    int killCount = 0;
};

TEST_F(RandomRemovals, agreeWithTheModelAndLoseNothing) {
    for (int step = 0; step < sequenceCount; ++step) {
        while (model.tree.size() < treeSize) {
            create();
        }
        if (receipts.empty() || pick(2) == 0) {
            remove();
        } else {
            putBack();
        }
        if (model.trash.size() > largestTrash) {
            emptyTrash();
        }
        check();
        ASSERT_FALSE(HasFailure()) << "at step " << step;
    }
    EXPECT_GT(killCount, 0) << "no process lived long enough to be killed";
    std::printf("%d removals and ways back, %d of them killed\n", sequenceCount, killCount);
}

}
}
