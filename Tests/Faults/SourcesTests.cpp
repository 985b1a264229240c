#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 8> destructive = {
    "unlink", "unlinkat", "rmdir", "remove", "remove_all", "rename", "renameat", "renameat2"};

bool isPartOfName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// Whether a function of this name is called, which is no member of something.
bool calls(std::string_view text, std::string_view function) {
    for (std::size_t at = text.find(function); at != std::string_view::npos;
         at = text.find(function, at + 1)) {
        const char before = at == 0 ? ' ' : text[at - 1];
        const std::size_t next = text.find_first_not_of(" \n", at + function.size());
        if (!isPartOfName(before) && before != '.' && before != '>' &&
            next != std::string_view::npos && text[next] == '(') {
            return true;
        }
    }
    return false;
}

/// The calls in a source file that take an item off a disk or may write over one.
std::set<std::string> destructiveCalls(const fs::path& path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    std::set<std::string> found;
    for (const std::string_view function : destructive) {
        if (calls(text, function)) {
            found.emplace(function);
        }
    }
    return found;
}

TEST(Sources, removeNothingFromADiskButOurOwnInfoFiles) {
    const std::map<std::string, std::set<std::string>> allowed = {
        {"HostKit/linux/ItemMove.cpp", {"renameat", "renameat2"}},
        {"HostKit/linux/TrashFolder.cpp", {"unlinkat"}},
    };
    std::map<std::string, std::set<std::string>> found;
    const fs::path sources(TOLVANE_SOURCES);
    for (const auto& entry : fs::recursive_directory_iterator(sources)) {
        const fs::path extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp" && extension != ".mm") {
            continue;
        }
        std::set<std::string> inFile = destructiveCalls(entry.path());
        if (!inFile.empty()) {
            found[fs::relative(entry.path(), sources)] = std::move(inFile);
        }
    }
    EXPECT_EQ(found, allowed);
}

}
}
