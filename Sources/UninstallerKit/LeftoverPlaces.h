#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/LeftoverTable.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// The table of leftovers for one user on one system. Nothing here reads the disk.
class LeftoverPlaces {
  public:
    struct Place {
        FileURL folder;
        LeftoverRow row;
    };

    LeftoverPlaces(const FileURL& home, const FileURL& systemLibrary, LeftoverTable table);

    const LeftoverTable& table() const { return table_; }
    /// In the order of the table.
    const std::vector<Place>& places() const { return places_; }
    /// Whether an entry of the row's folder is a leftover of the identifier: case counts in exact
    /// names only.
    bool matches(const LeftoverRow& row, std::string_view name, std::string_view identifier) const;
    /// The closest way in which the item is a leftover of one of the identifiers; absent when it is
    /// none.
    std::optional<LeftoverMatch> match(const FileURL& item,
                                       const std::vector<std::string>& identifiers) const;

  private:
    LeftoverTable table_;
    std::vector<Place> places_;
};

}
