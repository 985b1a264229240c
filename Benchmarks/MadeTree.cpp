#include "MadeTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

namespace tolvane::MadeTree {
namespace {

namespace fs = std::filesystem;

fs::path treesFolder() {
    const char* chosen = std::getenv("TOLVANE_BENCHMARK_TREES");
    return chosen != nullptr ? fs::path(chosen)
                             : fs::temp_directory_path() / "tolvane-benchmark-trees";
}

/// Makes the tree under another name first, so that one that was interrupted is never measured.
std::string made(const std::string& name, const std::function<void(const fs::path&)>& make) {
    const fs::path tree = treesFolder() / name;
    if (!fs::exists(tree)) {
        const fs::path unfinished = treesFolder() / (name + ".unfinished");
        fs::remove_all(unfinished);
        fs::create_directories(unfinished);
        make(unfinished);
        fs::rename(unfinished, tree);
    }
    return tree;
}

void makeFiles(const fs::path& folder, std::int64_t count) {
    const int directory = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (std::int64_t number = 0; number < count; ++number) {
        const std::string name = "file-" + std::to_string(number) + ".txt";
        ::close(::openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    }
    ::close(directory);
}

/// The folder with this number in a tree that branches by ten.
fs::path folderPath(const fs::path& root, std::int64_t number) {
    return number == 0 ? root
                       : folderPath(root, (number - 1) / 10) / ("folder-" + std::to_string(number));
}

}

std::string spread(std::int64_t files, std::int64_t folders) {
    const std::string name = "spread-" + std::to_string(files) + "-" + std::to_string(folders);
    return made(name, [&](const fs::path& root) {
        for (std::int64_t number = 0; number < folders; ++number) {
            const fs::path folder = folderPath(root, number);
            fs::create_directories(folder);
            makeFiles(folder, files / folders);
        }
    });
}

std::string flat(std::int64_t files) {
    return made("flat-" + std::to_string(files),
                [&](const fs::path& root) { makeFiles(root, files); });
}

std::string chain(std::int64_t levels, std::int64_t filesPerLevel) {
    const std::string name =
        "chain-" + std::to_string(levels) + "-" + std::to_string(filesPerLevel);
    return made(name, [&](const fs::path& root) {
        fs::path folder = root;
        for (std::int64_t level = 0; level < levels; ++level) {
            makeFiles(folder, filesPerLevel);
            folder /= "level";
            fs::create_directory(folder);
        }
    });
}

}
