#include <HostKit/Text.h>
#include <HostKit/TrashInfo.h>
#include <Support/OddNames.h>
#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <random>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;
using Receipts = std::vector<RemovalReceipt>;

constexpr int sequenceCount = 10000;
constexpr std::size_t treeSize = 24;
constexpr std::size_t largestTrash = 40;

bool isBelow(const std::string& path, const std::string& folder) {
    return path.starts_with(folder + "/");
}

/// What removal and undo must do to a folder and its Trash, told plainly. Paths begin with "/" and
/// are below the folder.
struct Model {
    struct Trashed {
        std::string original;
        /// Keyed by the path below the item, "" for itself.
        TreeState content;
    };

    bool has(const std::string& path) const { return tree.contains(path); }

    /// A choice without what lies in another item of it, in the order of removal.
    static Paths withoutNested(const Paths& paths) {
        Paths kept;
        for (const std::string& path : paths) {
            const bool isNested = std::ranges::any_of(
                paths, [&](const std::string& other) { return isBelow(path, other); });
            if (!isNested && std::ranges::find(kept, path) == kept.end()) {
                kept.push_back(path);
            }
        }
        std::ranges::stable_sort(kept, {}, [](const auto& path) { return characterCount(path); });
        return kept;
    }

    void moveToTrash(const std::string& path, const std::string& name) {
        trash[name] = {path, {}};
        std::erase_if(tree, [&](const auto& entry) {
            const bool goes = entry.first == path || isBelow(entry.first, path);
            if (goes) {
                trash[name].content[entry.first.substr(path.size())] = entry.second;
            }
            return goes;
        });
    }

    bool mayPutBack(const std::string& name) const {
        const auto found = trash.find(name);
        return found != trash.end() && !has(found->second.original) &&
               std::ranges::none_of(tree, [&](const auto& entry) {
                   return entry.second != "folder" && isBelow(found->second.original, entry.first);
               });
    }

    void makeFoldersAbove(const std::string& path) {
        for (std::size_t end = path.rfind('/'); end > 0; end = path.rfind('/', end - 1)) {
            tree.try_emplace(path.substr(0, end), "folder");
        }
    }

    void putBack(const std::string& name) {
        const Trashed item = trash.at(name);
        makeFoldersAbove(item.original);
        for (const auto& [below, description] : item.content) {
            tree[item.original + below] = description;
        }
        trash.erase(name);
    }

    TreeState tree;
    /// Keyed by the name in the Trash.
    std::map<std::string, Trashed> trash;
};

std::string nameInTrash(const RemovalReceipt& receipt) {
    return std::string(receipt.trashed.lastPathComponent());
}

/// A folder with things in it, its Trash, and the model that both must agree with.
class RandomRemovals : public testing::Test {
  protected:
    std::size_t pick(std::size_t count) { return random() % count; }
    std::string pathOf(const FileURL& item) const { return item.path().substr(root.size()); }

    std::string anyPath() {
        return std::next(model.tree.begin(), static_cast<int>(pick(model.tree.size())))->first;
    }

    /// Makes something below a folder that there is; often where something trashed once was.
    void create() {
        std::string folder = model.tree.empty() || pick(3) == 0 ? "" : anyPath();
        while (!folder.empty() && model.tree.at(folder) != "folder") {
            folder.resize(folder.rfind('/'));
        }
        const Paths names = oddNames();
        const std::string path = folder + "/" + (pick(2) == 0 ? names[pick(names.size())] : "n");
        const std::size_t kind = pick(4);
        if (model.has(path)) {
            return;
        }
        if (kind < 2) {
            home.makeFolder("root" + path);
        } else if (kind == 2) {
            home.makeLink("root" + path, pick(2) == 0 ? "gone" : target);
        } else {
            home.write("root" + path, std::to_string(++fileCount));
        }
        model.tree[path] = treeState(root).at(path);
    }

    void remove() {
        Paths paths;
        std::vector<FileURL> items;
        bool isValid = true;
        for (std::size_t count = 1 + pick(4); count > 0; --count) {
            paths.push_back(anyPath());
            items.emplace_back(root + paths.back());
            isValid = isValid && fs::exists(items.back().path());
        }
        const auto move = [&] { return home.cleaner().moveToTrash(items, FileURL(root)); };
        if (pick(4) == 0) {
            killed([&] { static_cast<void>(move()); });
            for (const std::string& path : Model::withoutNested(paths)) {
                noteIfMoved(path);
            }
            return;
        }
        const auto moved = move();
        ASSERT_EQ(moved.has_value(), isValid);
        Paths originals;
        for (const RemovalReceipt& receipt : moved.value_or(Receipts{})) {
            originals.push_back(pathOf(receipt.original));
            note(receipt);
        }
        ASSERT_EQ(originals, isValid ? Model::withoutNested(paths) : Paths{});
    }

    void note(const RemovalReceipt& receipt) {
        const std::string name = nameInTrash(receipt);
        ASSERT_FALSE(model.trash.contains(name)) << "a name of another item was given again";
        model.moveToTrash(pathOf(receipt.original), name);
        receipts.push_back(receipt);
    }

    void noteIfMoved(const std::string& path) {
        if (!model.has(path) || home.has("root" + path)) {
            return;
        }
        for (const RemovalReceipt& receipt : home.receiptsFromTrash()) {
            if (pathOf(receipt.original) == path && !model.trash.contains(nameInTrash(receipt))) {
                note(receipt);
                return;
            }
        }
        FAIL() << path << " is lost";
    }

    void putBack() {
        // Less those whose name in the Trash was given to another item since.
        std::erase_if(receipts, [&](const RemovalReceipt& receipt) {
            const auto found = model.trash.find(nameInTrash(receipt));
            return found != model.trash.end() && found->second.original != pathOf(receipt.original);
        });
        Receipts some;
        for (std::size_t count = 1 + pick(4); count > 0; --count) {
            some.push_back(receipts[pick(receipts.size())]);
        }
        const bool isKilled = pick(4) == 0;
        std::size_t errors = 0;
        if (isKilled) {
            killed([&] { static_cast<void>(home.cleaner().restore(some)); });
        } else {
            errors = home.cleaner().restore(some).size();
        }
        for (const RemovalReceipt& receipt : some) {
            const std::string name = nameInTrash(receipt);
            const bool isBack =
                !isKilled || !fs::exists(fs::symlink_status(receipt.trashed.path()));
            if (model.mayPutBack(name) && isBack) {
                model.putBack(name);
            } else if (!isKilled) {
                ASSERT_GT(errors--, 0U);
            } else if (model.trash.contains(name)) {
                noteFoldersAbove(pathOf(receipt.original));
            }
        }
        ASSERT_EQ(errors, 0U);
    }

    /// The folders for an item may be there without it.
    void noteFoldersAbove(const fs::path& path) {
        for (fs::path folder = path.parent_path(); folder != "/"; folder = folder.parent_path()) {
            if (fs::is_directory(fs::symlink_status(root + folder.native()))) {
                model.tree.try_emplace(folder, "folder");
            }
        }
    }

    /// Somebody deletes from the Trash for good.
    void emptyTrash() {
        std::erase_if(model.trash, [&](const auto& item) {
            const bool goes = pick(4) > 0;
            if (goes) {
                fs::remove_all(trash + "/files/" + item.first);
                fs::remove(trash + "/info/" + trashInfoName(item.first));
            }
            return goes;
        });
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

    void check() const {
        ASSERT_EQ(treeState(root), model.tree);
        TreeState expected;
        std::map<std::string, std::string> places;
        for (const auto& [name, item] : model.trash) {
            places[name] = item.original;
            const std::string place = "/" + name;
            for (const auto& [below, description] : item.content) {
                expected[place + below] = description;
            }
        }
        const TreeState inTrash =
            fs::exists(trash + "/files") ? treeState(trash + "/files") : TreeState{};
        ASSERT_EQ(inTrash, expected);
        std::map<std::string, std::string> recorded;
        for (const RemovalReceipt& receipt : home.receiptsFromTrash()) {
            recorded[nameInTrash(receipt)] = pathOf(receipt.original);
        }
        ASSERT_EQ(recorded, places);
    }

    RemovalHome home;
    const std::string root = home.makeFolder("root").path();
    const std::string target = home.write("target").path();
    const std::string trash = home.layout.locations.homeTrash.path();
    Model model;
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
