#pragma once

#include <Controllers/DuplicateIndex.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tolvane {

/// Which files of a result are ticked, and the rules that tick many at once. A rule that keeps a
/// file never ticks another name of it (hard link): removing that would free nothing.
class DuplicateSelection {
  public:
    using Position = DuplicateIndex::Position;
    enum class Keep { newest, oldest };

    /// Nothing of `index`, which may be null, is ticked.
    void load(std::shared_ptr<const DuplicateIndex> index);

    bool isSelected(Position position) const { return ticks_[position] != 0; }
    std::size_t count() const { return count_; }
    /// What removing all that is ticked frees: a file of several names counts once, and only when
    /// all of them are ticked.
    Bytes size() const { return size_; }
    std::size_t countIn(std::size_t group) const { return counts_[group]; }
    /// How many groups have every file ticked.
    std::size_t completeGroups() const { return completeGroups_; }
    /// The first file of the group that is not ticked; absent when all are.
    std::optional<Position> kept(std::size_t group) const;
    /// In the order of groups and files.
    std::vector<Position> selected() const;

    void toggle(Position position);
    /// Ticks all but the first file; takes no tick off.
    void selectCopies(std::size_t group);
    void selectAllCopies();
    /// Ticks all others of its group; the file itself loses its tick.
    void keep(Position position);
    /// Equal dates: the first. A file without a date is neither new nor old.
    void keep(std::size_t group, Keep which);
    void keepOfAll(Keep which);
    /// In all groups with a file in `folder` or below: those lose their ticks, the others get one.
    void keepFolder(const FileURL& folder);
    void clear(std::size_t group);
    void clear();

  private:
    /// Whether nothing of the file would be left with this tick, or was before it was taken off.
    bool decides(Position position, bool isTicked);
    void set(Position position, std::size_t group, bool isTicked);

    std::shared_ptr<const DuplicateIndex> index_;
    /// A byte for each file: faster than bits, and small beside the paths.
    std::vector<std::uint8_t> ticks_;
    std::vector<std::uint32_t> counts_;
    std::size_t count_ = 0;
    std::size_t completeGroups_ = 0;
    Bytes size_ = 0;
    /// Of the files that have several names, by the first: how many of them are ticked.
    std::unordered_map<Position, std::uint32_t> tickedNames_;
};

}
