#pragma once

#include <DuplicatesKit/DuplicateScanResult.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tolvane {

/// The result of a search for duplicates in a form that a screen can ask about each of its files at
/// once: files are known by their position, counted through all groups. Made on a worker, never
/// changed.
class DuplicateIndex {
  public:
    using Position = std::uint32_t;

    /// `uncertain` are the paths, ascending, of files that the scan may be wrong about.
    DuplicateIndex(DuplicateScanResult result, const std::vector<std::string>& uncertain);

    const DuplicateScanResult& result() const { return result_; }
    const std::vector<DuplicateGroup>& groups() const { return result_.groups; }
    std::size_t fileCount() const { return firsts_.back(); }

    /// The position of a group's first file.
    Position first(std::size_t group) const { return firsts_[group]; }
    /// The one behind its last file.
    Position end(std::size_t group) const { return firsts_[group + 1]; }
    std::size_t groupOf(Position position) const;
    const DuplicateFile& file(Position position) const;
    std::optional<Position> find(std::string_view path) const;

    /// The first name in its group of the file that this is a name of (hard links): `position`
    /// itself unless there is an earlier one.
    Position original(Position position) const { return originals_[position]; }
    /// How many names of a file its group holds; `original` is the first of them.
    std::uint32_t nameCount(Position original) const;
    /// What keeping one file of a group frees; more names of one file count once.
    Bytes reclaimable(std::size_t group) const { return reclaimable_[group]; }
    /// Of all groups.
    Bytes reclaimable() const { return allReclaimable_; }
    bool isUncertain(Position position) const { return isUncertain_[position]; }

  private:
    void add(const DuplicateGroup& group, const std::vector<std::string>& uncertain);

    DuplicateScanResult result_;
    /// Of each group, and behind them the number of files.
    std::vector<Position> firsts_{0};
    std::vector<Position> originals_;
    /// Of the files that have several, by the first.
    std::unordered_map<Position, std::uint32_t> nameCounts_;
    std::vector<bool> isUncertain_;
    std::vector<Bytes> reclaimable_;
    Bytes allReclaimable_ = 0;
    /// All positions, by path.
    std::vector<Position> byPath_;
};

}
