#include <Support/DeepTree.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace tolvane {

namespace fs = std::filesystem;

FileURL makeDeepTree(const FileURL& top, std::size_t levels, std::string_view name,
                     std::string_view content) {
    // From the bottom up, so that no path grows too long on the way.
    const fs::path chain = fs::path(top.path()) / name;
    const fs::path next = fs::path(top.path()) / ".next";
    std::string deepest = top.path();
    for (std::size_t level = 0; level < levels; ++level) {
        fs::create_directory(next);
        std::ofstream(next / "f") << content;
        if (level > 0) {
            fs::rename(chain, next / name);
        }
        fs::rename(next, chain);
        appendComponent(deepest, name);
    }
    return FileURL(std::move(deepest));
}

void removeDeepTree(const FileURL& top) {
    const std::string command = "rm -rf -- '" + top.path() + "'";
    if (std::system(command.c_str()) != 0) {
        throw std::runtime_error(command);
    }
}

std::size_t openDescriptors() {
    const fs::directory_iterator listing("/proc/self/fd");
    // One of them is the listing's own.
    return static_cast<std::size_t>(std::distance(begin(listing), end(listing))) - 1;
}

}
