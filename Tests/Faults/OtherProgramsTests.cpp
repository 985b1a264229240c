#include <HostKit/Text.h>
#include <Support/OddNames.h>
#include <Support/RemovalHome.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <set>

namespace tolvane {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

/// Any bytes, or text of one, two and three bytes a character.
std::string randomName(std::mt19937& random, bool isText) {
    std::string name;
    for (std::size_t length = 1 + random() % 55; name.size() < length;) {
        const auto low = static_cast<char>(0x80 | random() % 64);
        switch (isText ? random() % 3 : 3) {
        case 0:
            name += static_cast<char>(0x21 + random() % 94);
            break;
        case 1:
            name += {static_cast<char>(0xc3 + random() % 28), low};
            break;
        case 2:
            name += {static_cast<char>(0xe1 + random() % 12), low, low};
            break;
        default:
            name += static_cast<char>(random() % 256);
        }
    }
    std::replace_if(
        name.begin(), name.end(), [](char byte) { return byte == '\0' || byte == '/'; }, '_');
    return name;
}

/// The odd ones, and so many random ones of either kind as a long run asks for.
std::set<std::string> namesToTry() {
    const Strings odd = oddNames();
    std::set<std::string> names(odd.begin(), odd.end());
    const char* more = std::getenv("TOLVANE_RANDOM_NAMES");
    const std::size_t wanted = names.size() + (more != nullptr ? 2 * std::stoul(more) : 0);
    std::mt19937 random(1115);
    while (names.size() < wanted) {
        names.insert(randomName(random, names.size() % 2 == 0));
    }
    names.erase(".");
    names.erase("..");
    return names;
}

/// Undoes the "\xNN" that GIO writes for bytes which are no plain characters.
std::string unescaped(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\\x") == 0) {
            bytes += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

/// Programs that use the same Trash, and items of odd names that go there and come back.
class OtherPrograms : public testing::Test {
  protected:
    ProgramRun run(Strings command, const Strings& more = {}, const std::string& input = {}) const {
        command.insert(command.end(), more.begin(), more.end());
        return runProgram(command,
                          {{"HOME", home.path("")},
                           {"XDG_DATA_HOME", home.path(".local/share")},
                           {"XDG_RUNTIME_DIR", runtime.path("")},
                           {"LC_ALL", "C.UTF-8"}},
                          input);
    }
    void make(bool (*suits)(std::string_view name)) {
        for (const std::string& name : namesToTry()) {
            if (suits(name)) {
                items.push_back(home.write("odd/" + name, name));
                paths.push_back(items.back().path());
            }
        }
        std::sort(paths.begin(), paths.end());
        before = treeState(home.path("odd"));
    }
    void moveAll() {
        ASSERT_TRUE(home.cleaner().moveToTrash(items, home.url()));
        ASSERT_TRUE(treeState(home.path("odd")).empty());
    }
    void putBackTheRest() {
        EXPECT_TRUE(home.cleaner().restore(home.receiptsFromTrash()).empty());
        EXPECT_TRUE(home.isTrashEmpty());
    }
    /// The others do not shorten a name to make room for that of its info file.
    void expectWeRestoreWhatIsMovedBy(const Strings& command) {
        std::erase_if(paths, [this](const std::string& path) {
            return path.size() > home.path("odd/").size() + 240;
        });
        EXPECT_EQ(run(command, paths).status, 0);
        EXPECT_EQ(home.receiptsFromTrash().size(), paths.size());
        putBackTheRest();
        EXPECT_TRUE(treeState(home.path("odd")) == before);
    }
    /// What GIO lists, each address in its Trash with the original place.
    std::map<std::string, std::string> listedByGio() const {
        const std::string output = run({"dbus-run-session", "--", "gio", "trash", "--list"}).output;
        std::map<std::string, std::string> list;
        for (std::size_t start = 0; start < output.size();) {
            const std::size_t tab = output.find('\t', start);
            const std::size_t end = output.find('\n', tab);
            list[output.substr(start, tab - start)] =
                unescaped(output.substr(tab + 1, end - tab - 1));
            start = end + 1;
        }
        return list;
    }
    /// The original places that trash-cli lists as "DATE TIME PATH". A path may hold line breaks,
    /// but what it begins with is known.
    Strings listedByTrashCli() const {
        const std::string output = run({"trash-list"}).output;
        constexpr std::size_t dateLength = 20;
        Strings list;
        for (std::size_t at = output.find(home.path("odd/")); at != std::string::npos;) {
            const std::size_t next = output.find(home.path("odd/"), at + 1);
            const std::size_t end =
                (next == std::string::npos ? output.size() : next - dateLength) - 1;
            list.push_back(output.substr(at, end - at));
            at = next;
        }
        std::sort(list.begin(), list.end());
        return list;
    }

    RemovalHome home;
    TemporaryHome runtime;
    std::vector<FileURL> items;
    Strings paths;
    TreeState before;
};

TEST_F(OtherPrograms, gioAgreesBothWays) {
    const Strings gio{"dbus-run-session", "--", "gio"};
    if (run(gio, {"info", "trash:///"}).status != 0) {
        GTEST_SKIP() << "gio with gvfs is not installed";
    }
    make([](std::string_view) { return true; });
    moveAll();
    Strings addresses;
    Strings places;
    for (const auto& [address, place] : listedByGio()) {
        addresses.push_back(address);
        places.push_back(place);
    }
    std::sort(places.begin(), places.end());
    EXPECT_TRUE(places == paths);
    run({"dbus-run-session", "--", "gio", "trash", "--restore"}, addresses);
    EXPECT_LE(home.receiptsFromTrash().size(), 1U);
    // Some versions write the escapes of their listing into the names, one of which grows too long.
    putBackTheRest();
    for (const auto& [path, description] : treeState(home.path("odd"))) {
        fs::rename(home.path("odd") + path, home.path("odd") + unescaped(path));
    }
    EXPECT_TRUE(treeState(home.path("odd")) == before);

    expectWeRestoreWhatIsMovedBy({"dbus-run-session", "--", "gio", "trash", "--"});
}

TEST_F(OtherPrograms, trashCliAgreesBothWays) {
    if (!hasProgram("trash-put") || !hasProgram("trash-restore")) {
        GTEST_SKIP() << "trash-cli is not installed";
    }
    // It takes bytes that are no UTF-8 for others.
    make(isValidUTF8);
    moveAll();
    EXPECT_TRUE(listedByTrashCli() == paths);
    for (std::size_t count = 0; count < items.size(); ++count) {
        run({"trash-restore", "/"}, {}, "0\n");
    }
    EXPECT_TRUE(treeState(home.path("odd")) == before);
    EXPECT_TRUE(home.isTrashEmpty());

    expectWeRestoreWhatIsMovedBy({"trash-put", "--"});
}

}
}
