#include <ArborviewKit/Treemap.h>
#include <ScanKit/FileNode.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

namespace tolvane {
namespace {

struct Share {
    TreemapEntry entry;
    double area = 0;
};

/// How far the worst cell of a row is from a square, for a row along `side`: 1 is a square.
double worstRatio(double area, double largest, double smallest, double side) {
    if (!(area > 0) || !(side > 0) || !(smallest > 0)) {
        return std::numeric_limits<double>::infinity();
    }
    const double squaredSide = side * side;
    const double squaredArea = area * area;
    return std::max(squaredSide * largest / squaredArea, squaredArea / (squaredSide * smallest));
}

struct Row {
    std::size_t count = 0;
    double area = 0;
};

/// The row that `shares`, largest first, begin with: it grows as long as that makes no cell worse.
Row nextRow(std::span<const Share> shares, double side) {
    const double largest = shares.front().area;
    Row row{1, largest};
    double ratio = worstRatio(largest, largest, largest, side);
    while (row.count < shares.size()) {
        const double candidate = shares[row.count].area;
        const double grownArea = row.area + candidate;
        const double grownRatio = worstRatio(grownArea, largest, candidate, side);
        if (ratio < grownRatio) {
            break;
        }
        row = {row.count + 1, grownArea};
        ratio = grownRatio;
    }
    return row;
}

TreemapCell cell(const TreemapEntry& entry, const Rectangle& rect) {
    return {entry.id, entry.label, entry.weight, entry.colorIndex, rect};
}

/// Appends the cells of one row, a column at the left of a wide or square space or a line at the
/// top of a tall one, and gives the space that remains. Lengths under one unit divide as one, so
/// that no cell becomes endless.
Rectangle layoutRow(std::span<const Share> row, double area, const Rectangle& free,
                    std::vector<TreemapCell>& cells) {
    if (free.height <= free.width) {
        const double thickness = area / std::max(free.height, 1.0);
        double y = free.y;
        for (const Share& share : row) {
            const double height = share.area / std::max(thickness, 1.0);
            cells.push_back(
                cell(share.entry, {free.x, y, std::min(free.width, thickness), height}));
            y += height;
        }
        return {free.x + thickness, free.y, std::max(free.width - thickness, 0.0), free.height};
    }
    const double thickness = area / std::max(free.width, 1.0);
    double x = free.x;
    for (const Share& share : row) {
        const double width = share.area / std::max(thickness, 1.0);
        cells.push_back(cell(share.entry, {x, free.y, width, std::min(free.height, thickness)}));
        x += width;
    }
    return {free.x, free.y + thickness, free.width, std::max(free.height - thickness, 0.0)};
}

bool isEmpty(const Rectangle& rectangle) {
    return !(rectangle.width > 0) || !(rectangle.height > 0);
}

/// The entries with a positive weight, largest first, each with its part of `area`.
std::vector<Share> shares(std::vector<TreemapEntry> entries, double area) {
    std::erase_if(entries, [](const TreemapEntry& entry) { return !(entry.weight > 0); });
    double total = 0;
    for (const TreemapEntry& entry : entries) {
        total += entry.weight;
    }
    std::stable_sort(
        entries.begin(), entries.end(),
        [](const TreemapEntry& a, const TreemapEntry& b) { return a.weight > b.weight; });
    const double areaOfOne = area / total;
    std::vector<Share> list;
    list.reserve(entries.size());
    for (TreemapEntry& entry : entries) {
        const double part = areaOfOne * entry.weight;
        list.push_back({std::move(entry), part});
    }
    return list;
}

}

std::vector<TreemapEntry> treemapEntries(const FileNode& node, Bytes minimumWeight,
                                         std::int64_t limit) {
    struct Candidate {
        const FileNode* child;
        Bytes size;
    };
    std::vector<Candidate> candidates;
    candidates.reserve(node.children().size());
    for (const FileNode& child : node.children()) {
        candidates.push_back({&child, child.totalAllocatedSize()});
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.size > b.size; });
    const std::int64_t count = std::clamp<std::int64_t>(limit, 0, std::ssize(candidates));

    std::vector<TreemapEntry> entries;
    for (std::int64_t rank = 0; rank < count; ++rank) {
        const auto& [child, size] = candidates[static_cast<std::size_t>(rank)];
        if (size >= minimumWeight) {
            entries.push_back(
                {child->id(), std::string(child->name()), static_cast<double>(size), rank});
        }
    }
    return entries;
}

std::vector<TreemapCell> TreemapLayout::squarified(std::vector<TreemapEntry> entries,
                                                   const Rectangle& rectangle) {
    if (isEmpty(rectangle)) {
        return {};
    }
    const std::vector<Share> all = shares(std::move(entries), rectangle.width * rectangle.height);
    std::vector<TreemapCell> cells;
    cells.reserve(all.size());
    std::span<const Share> remaining(all);
    Rectangle free = rectangle;
    while (!remaining.empty() && !isEmpty(free)) {
        const Row row = nextRow(remaining, std::min(free.width, free.height));
        free = layoutRow(remaining.first(row.count), row.area, free, cells);
        remaining = remaining.subspan(row.count);
    }
    return cells;
}

}
