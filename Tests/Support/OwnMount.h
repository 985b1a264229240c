#pragma once

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <utility>

namespace tolvane {

/// Something mounted on a folder, made where it is missing, for the time of a test: in a namespace
/// that is the test's own.
class OwnMount {
  public:
    static OwnMount memory(std::string folder, const char* options = "") {
        return OwnMount("tmpfs", std::move(folder), 0, options);
    }
    /// Shows `source` at `folder` as well.
    static OwnMount alias(const std::string& source, std::string folder) {
        return OwnMount(source.c_str(), std::move(folder), MS_BIND, nullptr);
    }
    ~OwnMount() { ::umount2(folder_.c_str(), MNT_DETACH); }
    OwnMount(const OwnMount&) = delete;
    OwnMount& operator=(const OwnMount&) = delete;

    void makeReadOnly() const { mount(nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr); }
    void makeWritable() const { mount(nullptr, MS_REMOUNT | MS_BIND, nullptr); }

  private:
    OwnMount(const char* source, std::string folder, unsigned long flags, const char* options)
        : folder_(std::move(folder)) {
        std::filesystem::create_directories(folder_);
        mount(source, flags, options);
    }
    void mount(const char* source, unsigned long flags, const char* options) const {
        EXPECT_EQ(::mount(source, folder_.c_str(), "tmpfs", flags, options), 0)
            << folder_ << ": " << std::strerror(errno);
    }

    const std::string folder_;
};

}
