#pragma once

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <cstring>
#include <string>
#include <utility>

namespace tolvane {

/// Something mounted for the time of a test, in a namespace that is the test's own.
class OwnMount {
  public:
    static OwnMount memory(std::string folder, const char* options = "") {
        return OwnMount("tmpfs", std::move(folder), "tmpfs", 0, options);
    }
    /// Shows `source` at `folder` as well.
    static OwnMount alias(const std::string& source, std::string folder) {
        return OwnMount(source.c_str(), std::move(folder), nullptr, MS_BIND, nullptr);
    }
    ~OwnMount() { ::umount2(folder_.c_str(), MNT_DETACH); }
    OwnMount(const OwnMount&) = delete;
    OwnMount& operator=(const OwnMount&) = delete;

    void makeReadOnly() const {
        const int result =
            ::mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr);
        EXPECT_EQ(result, 0) << std::strerror(errno);
    }

  private:
    OwnMount(const char* source, std::string folder, const char* type, unsigned long flags,
             const char* options)
        : folder_(std::move(folder)) {
        const int result = ::mount(source, folder_.c_str(), type, flags, options);
        EXPECT_EQ(result, 0) << folder_ << ": " << std::strerror(errno);
    }

    std::string folder_;
};

}
