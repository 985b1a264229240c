#include <Support/TemporaryHome.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tolvane {

namespace fs = std::filesystem;

TemporaryHome::TemporaryHome()
    : TemporaryHome(fs::canonical(fs::temp_directory_path())) {}

TemporaryHome::TemporaryHome(const std::string& folder) {
    std::string pattern = folder + "/tolvane-test-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw fs::filesystem_error("mkdtemp", pattern,
                                   std::error_code(errno, std::generic_category()));
    }
    url_ = FileURL(pattern);
}

TemporaryHome::~TemporaryHome() {
    if (::testing::Test::HasFailure()) {
        return;
    }
    // However deep it is, which the usual calls refuse.
    EXPECT_EQ(std::system(("rm -rf " + url_.path()).c_str()), 0);
}

std::string TemporaryHome::path(std::string_view relative) const {
    return relative.empty() ? url_.path() : url_.appending(relative).path();
}

FileURL TemporaryHome::write(std::string_view relative, std::string_view content) const {
    const fs::path file(path(relative));
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return FileURL(file);
}

FileURL TemporaryHome::makeFolder(std::string_view relative) const {
    fs::create_directories(path(relative));
    return url(relative);
}

FileURL TemporaryHome::makeLink(std::string_view relative, std::string_view target) const {
    const fs::path link(path(relative));
    fs::create_directories(link.parent_path());
    fs::create_symlink(fs::path(target), link);
    return FileURL(link);
}

FileURL TemporaryHome::makeDeep(std::size_t levels, std::string_view name,
                                std::string_view content) const {
    // From the bottom up, so that no path grows too long on the way.
    FileURL deepest = url_;
    for (std::size_t level = 0; level < levels; ++level) {
        write(".next/f", content);
        if (level > 0) {
            fs::rename(path(name), path(".next") + "/" + std::string(name));
        }
        fs::rename(path(".next"), path(name));
        deepest = deepest.appending(name);
    }
    return deepest;
}

std::string TemporaryHome::read(std::string_view relative) const {
    std::ifstream file(path(relative), std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << path(relative);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryHome::has(std::string_view relative) const {
    return fs::symlink_status(path(relative)).type() != fs::file_type::not_found;
}

}
