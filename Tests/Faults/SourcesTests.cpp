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

/// The calls in a source file that take an item off a disk or may write over one; functions of the
/// same names that give nothing back are our own.
std::set<std::string> destructiveCalls(const fs::path& path) {
    static const std::regex declaration(R"(\bvoid\s+(\w+::)*\w+\()");
    static const std::regex call(
        R"((?:^|[^\w.>])(unlink|unlinkat|rmdir|remove|remove_all|rename|renameat|renameat2)\s*\()");
    std::ifstream file(path);
    const std::string text =
        std::regex_replace(std::string(std::istreambuf_iterator<char>(file), {}), declaration, "");
    std::set<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), call), end; match != end; ++match) {
        found.insert((*match)[1]);
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
