#include "MadeTree.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string_view>

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

/// Numbers that are the same in every run.
class Numbers {
  public:
    explicit Numbers(std::uint64_t seed)
        : state_(seed * 0x9E3779B97F4A7C15 + 1) {}

    std::uint64_t next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return state_;
    }

  private:
    std::uint64_t state_;
};

void write(const fs::path& path, std::string_view content) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (::write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size())) {
        throw std::runtime_error("could not write " + path.string());
    }
    ::close(file);
}

/// As many sizes between a power of two and the next as between this and the one after it.
std::size_t sizeOf(std::int64_t source) {
    const auto random = static_cast<double>(Numbers(std::uint64_t(source)).next() >> 11);
    return static_cast<std::size_t>(std::lround(std::exp2(10 + 9 * random / 0x1p53)));
}

std::string contentOf(std::int64_t source, std::size_t size) {
    Numbers numbers(static_cast<std::uint64_t>(source) + 1'000'000);
    std::string content(size + sizeof(std::uint64_t), ' ');
    for (std::size_t offset = 0; offset < size; offset += sizeof(std::uint64_t)) {
        const std::uint64_t number = numbers.next();
        std::memcpy(content.data() + offset, &number, sizeof number);
    }
    content.resize(size);
    return content;
}

/// What the file with this number holds, of ten that belong together.
std::string copiedContent(std::int64_t number) {
    constexpr std::int64_t original = 3;
    constexpr std::int64_t otherOriginal = 4;
    const std::int64_t ten = number - number % 10;
    const std::size_t size = sizeOf(ten + original);
    switch (number % 10) {
    case 0:
    case 1:
        return contentOf(ten + original, size);
    case 2:
        return contentOf(ten + otherOriginal, sizeOf(ten + otherOriginal));
    case 5:
        return contentOf(number, size);
    case 6: {
        std::string content = contentOf(ten + original, size);
        content[size / 2] ^= 1;
        return content;
    }
    default:
        return contentOf(number, sizeOf(number));
    }
}

}

std::string numbered(std::int64_t files) {
    return made("numbered-" + std::to_string(files), [&](const fs::path& root) {
        for (std::int64_t number = 0; number < files; ++number) {
            const std::string name = "file-" + std::to_string(number) + ".txt";
            write(root / name, {reinterpret_cast<const char*>(&number), sizeof number});
        }
    });
}

std::string pairs(std::int64_t files, std::int64_t sizes) {
    const std::string tree = "pairs-" + std::to_string(files) + "-" + std::to_string(sizes);
    return made(tree, [&](const fs::path& root) {
        for (std::int64_t number = 0; number < files; ++number) {
            // Two halves, so that no file lies beside its copy.
            const std::int64_t source = number % (files / 2);
            std::string content(sizeof source + static_cast<std::size_t>(source % sizes), ' ');
            std::memcpy(content.data(), &source, sizeof source);
            write(root / ("file-" + std::to_string(number) + ".txt"), content);
        }
    });
}

std::string copies(std::int64_t files) {
    return made("copies-" + std::to_string(files), [&](const fs::path& root) {
        const std::int64_t folders = std::max<std::int64_t>(files / 100, 1);
        for (std::int64_t number = 0; number < files; ++number) {
            const fs::path folder = root / std::to_string(number % folders);
            fs::create_directories(folder);
            write(folder / std::to_string(number), copiedContent(number));
        }
    });
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
