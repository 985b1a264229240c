#include <Support/TreeState.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

std::string describe(const fs::directory_entry& entry) {
    switch (entry.symlink_status().type()) {
    case fs::file_type::directory:
        return "folder";
    case fs::file_type::symlink:
        return "link to " + fs::read_symlink(entry.path()).native();
    case fs::file_type::regular: {
        std::ifstream file(entry.path(), std::ios::binary);
        return "file " + std::string(std::istreambuf_iterator<char>(file), {});
    }
    default:
        return "other";
    }
}

}

TreeState treeState(const std::string& folder) {
    TreeState state;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        state[entry.path().native().substr(folder.size())] = describe(entry);
    }
    return state;
}

}
