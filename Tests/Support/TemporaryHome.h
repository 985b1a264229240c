#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>

#include <string>
#include <string_view>

namespace tolvane {

/// A home folder of its own for one test, on the build's own file system; removed when the test
/// passed, kept for a look when it failed.
class TemporaryHome {
  public:
    TemporaryHome();
    explicit TemporaryHome(const std::string& folder);
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    const FileURL& url() const { return url_; }
    /// The path of something below the home; `relative` may be empty.
    std::string path(std::string_view relative) const;
    FileURL url(std::string_view relative) const { return FileURL(path(relative)); }

    /// Makes a file with this content, and the folders above it; gives its location.
    FileURL write(std::string_view relative, std::string_view content = "") const;
    FileURL makeFolder(std::string_view relative) const;
    FileURL makeLink(std::string_view relative, std::string_view target) const;
    /// Makes a chain of folders that all bear `name`, each with one file "f" of `content`; paths
    /// longer than PATH_MAX may come of it. Gives the deepest folder.
    FileURL makeDeep(std::size_t levels, std::string_view name, std::string_view content) const;
    /// The content of a file; a test fails when it cannot be read.
    std::string read(std::string_view relative) const;
    /// Whether an item bears this path, links not followed.
    bool has(std::string_view relative) const;

  private:
    FileURL url_;
};

}
