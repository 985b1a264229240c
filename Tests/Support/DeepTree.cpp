#include <Support/DeepTree.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tolvane {
namespace {

int require(int result, const char* what) {
    if (result < 0) {
        throw std::runtime_error(what);
    }
    return result;
}

void writeFile(int folder, std::string_view content) {
    const int file = require(::openat(folder, "f", O_WRONLY | O_CREAT | O_CLOEXEC, 0644), "openat");
    require(static_cast<int>(::write(file, content.data(), content.size())), "write");
    ::close(file);
}

}

FileURL makeDeepTree(const FileURL& top, std::size_t levels, std::string_view name,
                     std::string_view content) {
    const std::string folderName(name);
    std::string path = top.path();
    int folder = require(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "open");
    for (std::size_t level = 0; level < levels; ++level) {
        require(::mkdirat(folder, folderName.c_str(), 0755), "mkdirat");
        const int next = require(
            ::openat(folder, folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "openat");
        ::close(folder);
        folder = next;
        writeFile(folder, content);
        appendComponent(path, folderName);
    }
    ::close(folder);
    return FileURL(std::move(path));
}

void removeDeepTree(const FileURL& top) {
    const std::string command = "rm -rf -- '" + top.path() + "'";
    require(std::system(command.c_str()) == 0 ? 0 : -1, "rm");
}

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator listing("/proc/self/fd");
    // One of them is the listing's own.
    return static_cast<std::size_t>(std::distance(begin(listing), end(listing))) - 1;
}

}
