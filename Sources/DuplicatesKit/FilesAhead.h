#pragma once

#include <HostKit/FileManager.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

namespace tolvane {

/// Opens files in the order in which they are read, a few ahead of the reader, and tells the system
/// what will be read of them: so the disk works while a file is digested.
class FilesAhead {
  public:
    using Opened = Result<std::unique_ptr<ReadableFile>, SystemError>;
    /// What is to be read of the files: numbers below `count`.
    struct Plan {
        std::size_t count = 0;
        /// Whether the file is read at all.
        std::function<bool(std::size_t index)> isRead;
        std::function<FileURL(std::size_t index)> url;
        std::function<void(std::size_t index, ReadableFile& file)> prefetch;
    };

    FilesAhead(const FileManager& files, Plan plan)
        : files_(files)
        , plan_(std::move(plan)) {}

    /// The file of this number, which is greater than in the call before. One that was not to be
    /// read is opened all the same.
    Opened open(std::size_t index);

  private:
    struct Waiting {
        std::size_t index;
        Opened file;
    };
    static constexpr std::size_t window = 16;

    void openAhead();

    const FileManager& files_;
    Plan plan_;
    std::deque<Waiting> waiting_;
    std::size_t next_ = 0;
};

}
