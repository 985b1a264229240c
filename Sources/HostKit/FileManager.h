#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/MountTable.h>
#include <HostKit/ReadableFile.h>
#include <HostKit/ResourceValues.h>
#include <HostKit/Result.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

struct HostLayout;

/// How a directory is to be listed.
struct Listing {
    /// Asked between one buffer of entries and the next, so only of large directories.
    std::function<bool()> isCancelled = {};
    bool skipsHidden = false;
};

/// What a listing tells of an entry without touching it.
enum class EntryType : std::uint8_t { unknown, regular, directory, symbolicLink, other };

/// One open directory whose listing is complete. Entries are named by their position in listing
/// order, so that a back end knows what will be asked for next. Not to be shared between threads; a
/// child must be destroyed before its parent, and while it lives only the newest child of a chain
/// may open another.
class Directory {
  public:
    virtual ~Directory() = default;
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    virtual std::size_t count() const = 0;
    /// The entry's name; valid while this directory lives.
    virtual std::string_view name(std::size_t position) const = 0;
    virtual EntryType listedType(std::size_t position) const = 0;
    /// The entry's own attributes; a link is not followed.
    virtual Result<ResourceValues, SystemError> values(std::size_t position) = 0;
    /// Opens and lists a directory that lies in this one. A link is refused.
    virtual Result<std::unique_ptr<Directory>, SystemError> open(std::size_t position,
                                                                 const Listing& listing) = 0;

  protected:
    Directory() = default;
};

/// The file system by role. Paths longer than PATH_MAX are served everywhere. Safe to share between
/// threads.
class FileManager {
  public:
    virtual ~FileManager() = default;

    /// Opens and lists the directory that `url` leads to, links followed. A listing that fails in
    /// the middle is an error, never half a listing; one that the stop test ended is
    /// `SystemError::cancelled()`.
    virtual Result<std::unique_ptr<Directory>, SystemError>
    openDirectory(const FileURL& url, const Listing& listing) const = 0;
    /// The attributes of the item itself; a link is not followed.
    virtual Result<ResourceValues, SystemError> values(const FileURL& url) const = 0;
    /// The type of what `url` leads to, links followed; absent when nothing is there.
    virtual std::optional<FileType> targetType(const FileURL& url) const = 0;
    /// `url` with every symbolic link resolved; `url` itself when that fails.
    virtual FileURL resolvingLinks(const FileURL& url) const = 0;
    /// Opens the item for reading and closes it at once. Never blocks on a pipe.
    virtual Result<void, SystemError> probeReading(const FileURL& url) const = 0;
    /// At most `limit` bytes from the start of a regular file; other items are refused.
    virtual Result<std::string, SystemError> read(const FileURL& url, std::size_t limit) const = 0;
    /// Opens a regular file for reading. Other items and links are refused, also where the item
    /// became one since it was listed; never blocks on a pipe.
    virtual Result<std::unique_ptr<ReadableFile>, SystemError>
    openFile(const FileURL& url) const = 0;
    /// Creates the directory and the missing ones above it; one that exists is fine.
    virtual Result<void, SystemError> createDirectories(const FileURL& url) const = 0;
    /// What is mounted now.
    virtual MountTable mounts() const = 0;

    /// Whether `url` leads to anything, links followed.
    bool exists(const FileURL& url) const { return targetType(url).has_value(); }
    /// Whether an item bears this path, be it a link that leads nowhere.
    bool itemExists(const FileURL& url) const { return values(url).has_value(); }
};

/// This machine's file system. Takes what counts as purgeable and where mounts are told from
/// `layout`.
std::shared_ptr<const FileManager> systemFileManager(const HostLayout& layout);

}
