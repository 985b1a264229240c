#include <Support/OtherPrograms.h>
#include <Support/RemovalHome.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace tolvane {
namespace {

constexpr std::size_t nameCount = 1000;

/// Short enough for what the other programs make of a name.
constexpr std::size_t longestName = 55;

std::string randomBytes(std::mt19937& random) {
    std::string name;
    for (std::size_t length = 1 + random() % longestName; name.size() < length;) {
        const auto byte = static_cast<char>(random() % 256);
        name += byte == '\0' || byte == '/' ? '.' : byte;
    }
    return name;
}

/// Text of one, two and three bytes a character.
std::string randomText(std::mt19937& random) {
    std::string name;
    for (std::size_t length = 1 + random() % longestName; name.size() < length;) {
        const auto low = static_cast<char>(0x80 | random() % 64);
        switch (random() % 3) {
        case 0:
            name += static_cast<char>(0x21 + random() % 94);
            break;
        case 1:
            name += static_cast<char>(0xc3 + random() % 28);
            name += low;
            break;
        default:
            name += static_cast<char>(0xe1 + random() % 12);
            name += low;
            name += low;
        }
    }
    std::replace(name.begin(), name.end(), '/', '.');
    return name;
}

class RandomNames : public testing::Test {
  protected:
    void make(std::string (*randomName)(std::mt19937&)) {
        std::mt19937 random(1115);
        std::set<std::string> names;
        while (names.size() < nameCount) {
            const std::string name = randomName(random);
            if (name != "." && name != ".." && names.insert(name).second) {
                items.push_back(home.write("odd/" + name, name));
            }
        }
        before = treeState(home.path("odd"));
        for (const FileURL& item : items) {
            paths.push_back(item.path());
        }
        std::sort(paths.begin(), paths.end());
    }
    void moveAll() {
        const auto moved = home.cleaner().moveToTrash(items, home.url());
        ASSERT_TRUE(moved) << moved.error().description();
        ASSERT_TRUE(treeState(home.path("odd")).empty());
    }
    void expectAllBack() {
        EXPECT_TRUE(withoutEscapes(treeState(home.path("odd"))) == before);
        EXPECT_TRUE(trashIsEmpty(home.layout));
    }
    void putAllBack() {
        EXPECT_TRUE(treeState(home.path("odd")).empty());
        EXPECT_TRUE(home.cleaner().restore(receiptsFromTrash(home.layout)).empty());
        EXPECT_TRUE(treeState(home.path("odd")) == before);
        EXPECT_TRUE(trashIsEmpty(home.layout));
    }

    RemovalHome home;
    std::vector<FileURL> items;
    std::vector<std::string> paths;
    TreeState before;
};

TEST_F(RandomNames, agreeWithGioBothWays) {
    const std::optional<Gio> gio = Gio::find(home.url().path());
    if (!gio) {
        GTEST_SKIP() << "gio with gvfs is not installed";
    }
    make(randomBytes);
    gio->trash(paths);
    putAllBack();
    moveAll();
    EXPECT_TRUE(gio->originalPaths() == paths);
    gio->restoreAll();
    expectAllBack();
}

TEST_F(RandomNames, agreeWithTrashCliBothWays) {
    const std::optional<TrashCli> trashCli = TrashCli::find(home.url().path());
    if (!trashCli) {
        GTEST_SKIP() << "trash-cli is not installed";
    }
    // It takes bytes that are no UTF-8 for others, so it gets text.
    make(randomText);
    trashCli->trash(paths);
    putAllBack();
    moveAll();
    EXPECT_TRUE(trashCli->originalPaths(home.path("odd")) == paths);
    trashCli->restoreAll(nameCount);
    expectAllBack();
}

}
}
