#pragma once

#include <HostKit/FileManager.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Walks everything below a directory in pre-order, listing order within a directory. Links are
/// entries like others and never followed, at the root only when that is asked for. Iterative, so
/// that depth costs no stack.
class DeepEnumerator {
  public:
    struct Options {
        bool skipsHidden = false;
        /// A root that is a link to a directory is entered; its items bear the link's path.
        bool entersLinkedRoot = false;
        /// Directories whose extension (any case) is listed here are entries but are not entered.
        std::vector<std::string> opaqueExtensions = {};
        std::function<bool()> isCancelled = {};
    };
    /// Called with every directory that could not be listed; the walk goes on behind it.
    using ErrorHandler = std::function<void(const FileURL&, SystemError)>;

    DeepEnumerator(const FileManager& files, const FileURL& root, Options options,
                   ErrorHandler onError = {});
    ~DeepEnumerator();

    /// Moves to the next item; false when there is none left.
    bool next();
    /// The current item's name; valid until the next call of `next()`.
    std::string_view name() const;
    /// The path of the directory that the current item lies in; valid as long.
    std::string_view folder() const { return path_; }
    FileURL url() const;
    Result<ResourceValues, SystemError> values();
    /// The current item is not entered.
    void skipDescendants();

  private:
    struct Level {
        std::unique_ptr<Directory> directory;
        std::size_t current = 0;
        std::size_t next = 0;
        std::size_t pathLength = 0;
    };

    void enterCurrent();
    void enter(Result<std::unique_ptr<Directory>, SystemError> opened);
    Listing listing() const;
    bool isOpaque(std::string_view name) const;

    Options options_;
    ErrorHandler onError_;
    std::vector<Level> levels_;
    std::string path_;
    bool mayEnter_ = false;
};

}
