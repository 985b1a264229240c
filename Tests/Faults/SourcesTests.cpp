#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

/// The calls in a source file that take an item off a disk or may write over one. Functions of the
/// same names that a file defines, and that give nothing back, are our own.
std::set<std::string> destructiveCalls(const fs::path& path) {
    static const std::regex definition(R"(\bvoid\s+(?:\w+::)*(\w+)\()");
    static const std::regex call(
        R"((::|[^\w.>])(unlink|unlinkat|rmdir|remove|remove_all|rename|renameat|renameat2)\s*\()");
    const std::sregex_iterator end;
    std::ifstream file(path);
    std::string text(std::istreambuf_iterator<char>(file), {});
    std::set<std::string> ours;
    for (std::sregex_iterator match(text.begin(), text.end(), definition); match != end; ++match) {
        ours.insert((*match)[1]);
    }
    text = std::regex_replace(text, definition, "");
    std::set<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), call); match != end; ++match) {
        if ((*match)[1] == "::" || !ours.contains((*match)[2])) {
            found.insert((*match)[2]);
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
        const std::string extension = entry.path().extension();
        if (extension == ".h" || extension == ".cpp" || extension == ".mm") {
            found[fs::relative(entry.path(), sources)] = destructiveCalls(entry.path());
        }
    }
    std::erase_if(found, [](const auto& inFile) { return inFile.second.empty(); });
    EXPECT_EQ(found, allowed);
}

}
}
