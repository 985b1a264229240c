#pragma once

#include <DuplicatesKit/DuplicateFile.h>
#include <DuplicatesKit/PackedTexts.h>
#include <HostKit/ResourceValues.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// The files that a walk found worth comparing. There may be millions, so each takes 56 bytes and
/// its name: paths hang on a chain of folders, and what people get to see is only made of those
/// that turn out to be equal, each of which then leaves this list.
class Candidates {
  public:
    /// In the order in which files are read.
    using Position = std::uint32_t;
    /// In the order of the paths.
    using Rank = std::uint32_t;

    /// `folder` is the path of the directory the file lies in; those of one walk, in its order.
    void add(std::string_view folder, std::string_view name, Bytes size,
             const ResourceValues& values);

    /// Leaves the files that share their size with another one: large files first, those of one
    /// size in the order of the disk, so that the names of one file stand side by side. Leaves none
    /// when it was cancelled.
    void keepSharingSize(const std::function<bool()>& isCancelled);

    std::size_t count() const { return entries_.size(); }
    Bytes size(Position position) const { return entry(position).size; }
    FileURL url(Position position) const;
    DuplicateFile file(Position position) const { return file(entry(position)); }
    bool isSameFile(Position a, Position b) const;

    Rank rank(Position position) const { return ranks_[position]; }
    /// Leaves only the files of these ranks, in this order, and forgets the positions.
    void keep(std::vector<Rank> ranks);
    /// Gives the first file away, and its memory back.
    DuplicateFile takeFirst();

  private:
    struct Folder {
        /// Joined to the path of `parent`, which comes before it in the list.
        std::string_view path;
        std::uint32_t parent;
    };
    /// A folder that the walk is in now.
    struct Level {
        std::size_t pathLength;
        std::uint32_t folder;
    };
    struct Entry {
        const char* start;
        std::uint32_t nameLength : 31;
        /// It has no second name, so that whoever meets it twice came by a second way.
        std::uint32_t hasOneName : 1;
        std::uint32_t folder;
        Bytes size;
        /// Not a number where it is absent, as below.
        Date modified;
        Date attributesModified;
        /// All zero where it is absent.
        FileIdentity identity;

        std::string_view name() const { return {start, nameLength}; }
    };

    void enter(std::string_view folder);
    void sortByPath(const std::function<bool()>& isCancelled);
    /// The positions until now; none when it was cancelled.
    std::vector<Position> sortedByPath(const std::function<bool()>& isCancelled) const;
    const Entry& entry(Position position) const { return entries_[ranks_[position]]; }
    void makePath(const Entry& entry, std::string& path) const;
    DuplicateFile file(const Entry& entry) const;
    static bool isBefore(const Entry& a, const Entry& b);
    static bool isSameFile(const Entry& a, const Entry& b);

    static constexpr std::uint32_t noFolder = UINT32_MAX;

    /// By path once those that share their size are known; in pieces, which are given back one by
    /// one.
    std::deque<Entry> entries_;
    /// Of each position.
    std::vector<Rank> ranks_;
    std::vector<Folder> folders_;
    std::vector<Level> levels_;
    /// The path of the last of `levels_`.
    std::string current_;
    PackedTexts folderTexts_;
    PackedTexts names_;
};

}
