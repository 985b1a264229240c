#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Identifier.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

class FileNode;

/// Something that takes a share of a treemap.
struct TreemapEntry {
    /// Of the node it stands for.
    Identifier id{};
    std::string label;
    /// Bytes.
    double weight = 0;
    /// A place in the palette of whoever draws the cells.
    std::int64_t colorIndex = 0;

    friend bool operator==(const TreemapEntry&, const TreemapEntry&) = default;
};

/// In the units and coordinates of whoever asks; y grows downwards.
struct Rectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

/// An entry and the place it was given, in fractions of a unit.
struct TreemapCell {
    Identifier id{};
    std::string label;
    double weight = 0;
    std::int64_t colorIndex = 0;
    Rectangle rect;

    friend bool operator==(const TreemapCell&, const TreemapCell&) = default;
};

/// The `limit` largest children of `node`, largest first, less those smaller than `minimumWeight`;
/// the rest is absent, not summed up. The colour index is the rank among the children, so that a
/// child keeps its colour whatever the minimum.
std::vector<TreemapEntry> treemapEntries(const FileNode& node, Bytes minimumWeight,
                                         std::int64_t limit);

namespace TreemapLayout {

/// Cells with areas in proportion to the weights, as close to squares as the algorithm of Bruls,
/// Huizing and van Wijk ("Squarified Treemaps", 2000) gets them. Entries without a positive weight
/// get none; neither do those left when the free space has shrunk to nothing.
std::vector<TreemapCell> squarified(std::vector<TreemapEntry> entries, const Rectangle& rectangle);

}

}
