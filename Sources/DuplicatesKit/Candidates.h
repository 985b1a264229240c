#pragma once

#include <DuplicatesKit/DuplicateFile.h>
#include <HostKit/ResourceValues.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace tolvane {

/// The files that a walk found worth comparing, by their position in the order of the walk. There
/// may be millions, so each takes 56 bytes and its name: paths hang on a chain of folders, and what
/// people get to see is only made of those that turn out to be equal.
class Candidates {
  public:
    using Position = std::uint32_t;

    /// `folder` is the path of the directory the file lies in; those of one walk, in its order.
    void add(std::string_view folder, std::string_view name, Bytes size,
             const ResourceValues& values);

    std::size_t count() const { return entries_.size(); }
    Bytes size(Position position) const { return entries_[position].size; }
    FileURL url(Position position) const;
    DuplicateFile file(Position position) const;
    /// By size, the names of one file side by side, else in the order of the disk.
    bool isBefore(Position a, Position b) const;
    bool isSameFile(Position a, Position b) const;
    /// Whether the file has no second name, so that whoever meets it twice came by a second way.
    bool hasOneName(Position position) const { return entries_[position].hasOneName != 0; }

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
        const char* name;
        std::uint32_t nameLength : 31;
        std::uint32_t hasOneName : 1;
        std::uint32_t folder;
        Bytes size;
        /// Not a number where it is absent, as below.
        Date modified;
        Date attributesModified;
        /// All zero where it is absent.
        FileIdentity identity;
    };

    void enter(std::string_view folder);
    std::string_view keep(std::string_view text);

    static constexpr std::uint32_t noFolder = UINT32_MAX;

    std::vector<Entry> entries_;
    std::vector<Folder> folders_;
    std::vector<Level> levels_;
    /// The path of the last of `levels_`.
    std::string current_;
    std::vector<std::unique_ptr<char[]>> texts_;
    std::size_t freeText_ = 0;
};

}
