#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

/// The calls in a source file that take an item off a disk or may write over one.
std::set<std::string> destructiveCalls(const fs::path& path) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::regex call("(^|[^A-Za-z0-9_.>])"
                          "(unlink|unlinkat|rmdir|remove|remove_all|rename|renameat|renameat2)"
                          "\\s*\\(");
    std::set<std::string> calls;
    for (std::sregex_iterator match(text.begin(), text.end(), call), end; match != end; ++match) {
        calls.insert((*match)[2]);
    }
    return calls;
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
        std::set<std::string> calls = destructiveCalls(entry.path());
        if (!calls.empty()) {
            found[fs::relative(entry.path(), sources)] = std::move(calls);
        }
    }
    EXPECT_EQ(found, allowed);
}

}
}
