#pragma once

#include <HostKit/Checked.h>
#include <HostKit/ResourceValues.h>
#include <HostKit/Result.h>

#include <cstddef>
#include <span>

namespace tolvane {

/// A regular file that is open for reading; closed when it goes. Not to be shared between threads.
class ReadableFile {
  public:
    virtual ~ReadableFile() = default;
    ReadableFile(const ReadableFile&) = delete;
    ReadableFile& operator=(const ReadableFile&) = delete;

    /// Reads into `buffer` from `offset` on and gives the number of bytes: as many as there are at
    /// once, none only from the end of the file on.
    virtual Result<std::size_t, SystemError> read(Bytes offset, std::span<std::byte> buffer) = 0;
    /// Lets the system fetch what will be read soon; returns at once. The system may take only a
    /// part of a large range.
    virtual void prefetch(Bytes offset, Bytes length) = 0;
    /// The attributes of the open file, whatever bears its path by now. Whether it is purgeable is
    /// not told.
    virtual Result<ResourceValues, SystemError> values() const = 0;

  protected:
    ReadableFile() = default;
};

}
