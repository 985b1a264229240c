#include "MadeNodes.h"

#include <ArborviewKit/Treemap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tolvane {
namespace {

std::vector<TreemapEntry> entriesOf(const std::vector<double>& weights) {
    std::vector<TreemapEntry> entries;
    for (const double weight : weights) {
        const auto rank = static_cast<std::int64_t>(entries.size());
        entries.push_back({freshIdentifier(), std::to_string(rank), weight, rank});
    }
    return entries;
}

std::vector<TreemapCell> layout(const std::vector<double>& weights, const Rectangle& rectangle) {
    return TreemapLayout::squarified(entriesOf(weights), rectangle);
}

double overlap(double beginA, double lengthA, double beginB, double lengthB) {
    return std::min(beginA + lengthA, beginB + lengthB) - std::max(beginA, beginB);
}

void expectCells(const std::vector<TreemapCell>& cells, const std::vector<Rectangle>& expected) {
    ASSERT_EQ(cells.size(), expected.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto& [x, y, width, height] = cells[i].rect;
        EXPECT_NEAR(std::abs(x - expected[i].x) + std::abs(y - expected[i].y) +
                        std::abs(width - expected[i].width) + std::abs(height - expected[i].height),
                    0, 1e-9)
            << i;
    }
}

TEST(TreemapLayout, tilesTheRectangleInProportion) {
    std::mt19937 random(3);
    const auto upTo = [&](unsigned bound) { return 1.0 + static_cast<double>(random() % bound); };
    for (int round = 0; round < 200; ++round) {
        const Rectangle whole{-50, 20, 400 + upTo(800), 400 + upTo(800)};
        std::vector<double> weights(1 + random() % 40);
        std::ranges::generate(weights, [&] { return upTo(1000); });
        const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
        const std::vector<TreemapCell> cells = layout(weights, whole);
        ASSERT_EQ(cells.size(), weights.size());
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const auto& [x, y, width, height] = cells[i].rect;
            ASSERT_NEAR(width * height / (whole.width * whole.height), cells[i].weight / total,
                        1e-9);
            ASSERT_GE(overlap(x, width, whole.x, whole.width), width - 1e-6);
            ASSERT_GE(overlap(y, height, whole.y, whole.height), height - 1e-6);
            for (std::size_t j = 0; j < i; ++j) {
                const Rectangle& other = cells[j].rect;
                ASSERT_LT(std::min(overlap(x, width, other.x, other.width),
                                   overlap(y, height, other.y, other.height)),
                          1e-6);
            }
        }
    }
}

// The first is the example of the paper the algorithm comes from, ten times as large.
TEST(TreemapLayout, growsARowAsLongAsNoCellBecomesWorse) {
    expectCells(layout({6, 6, 4, 3, 2, 2, 1}, {0, 0, 60, 40}),
                {{0, 0, 30, 20},
                 {0, 20, 30, 20},
                 {30, 0, 120.0 / 7, 70.0 / 3},
                 {30 + 120.0 / 7, 0, 90.0 / 7, 70.0 / 3},
                 {30, 70.0 / 3, 12, 50.0 / 3},
                 {42, 70.0 / 3, 12, 50.0 / 3},
                 {54, 70.0 / 3, 6, 50.0 / 3}});
    // Side by side these two would be as far from squares as one below the other.
    expectCells(layout({5, 5}, {10, 10, 100, 100}), {{10, 10, 100, 50}, {10, 60, 100, 50}});
}

TEST(TreemapLayout, ordersByWeightAndKeepsTheEntry) {
    const std::vector<TreemapEntry> entries = entriesOf({1, 5, 0, 5, -3, NAN});
    const std::vector<TreemapCell> cells = TreemapLayout::squarified(entries, {0, 0, 80, 30});
    ASSERT_EQ(cells.size(), 3U);
    EXPECT_EQ(cells[0].label, "1");
    EXPECT_EQ(cells[1].label, "3") << "equal weights keep their order";
    EXPECT_EQ(cells[2].id, entries[0].id);
    EXPECT_EQ(cells[2].weight, 1);
    EXPECT_EQ(cells[2].colorIndex, 0);
}

TEST(TreemapLayout, isEmptyWithoutWeightOrSpace) {
    for (const Rectangle& none : {Rectangle{0, 0, 0, 10}, {0, 0, 10, -1}, {0, 0, NAN, 10}}) {
        EXPECT_TRUE(layout({1}, none).empty());
    }
    EXPECT_TRUE(layout({0, -1}, {0, 0, 10, 10}).empty());
}

TEST(TreemapLayout, countsSidesUnderOneUnitAsOne) {
    // 0.25 of area over a height taken as 1: a quarter wide, and a quarter high by the same bound.
    expectCells(layout({7}, {0, 0, 0.5, 0.5}), {{0, 0, 0.25, 0.25}});
    const std::vector<TreemapCell> thin = layout({1e15, 9, 8, 1e-9}, {0, 0, 0.5, 300});
    expectCells({thin.front()}, {{0, 0, 1, 150}});
    for (const TreemapCell& cell : thin) {
        EXPECT_TRUE(std::isfinite(cell.rect.x) && std::isfinite(cell.rect.y));
        EXPECT_TRUE(cell.rect.width <= 1 && cell.rect.height <= 300);
    }
}

TEST(TreemapEntries, areTheLargestChildren) {
    const FileNode node =
        madeFolder("n", {madeFile("a", 10), madeFolder("b", {madeFile("x", 40)}, 2),
                         madeFile("c", 30), madeFile("d", 10), madeFile("e", 50)});
    const auto told = [&](Bytes minimum, std::int64_t limit) {
        std::string text;
        for (const TreemapEntry& entry : treemapEntries(node, minimum, limit)) {
            text += std::to_string(entry.colorIndex) + entry.label + ' ';
        }
        return text;
    };
    EXPECT_EQ(told(0, 3), "0e 1b 2c ");
    EXPECT_EQ(told(31, 3), "0e 1b ");
    EXPECT_EQ(told(10, 100), "0e 1b 2c 3a 4d ") << "as large as the minimum is enough";
    EXPECT_EQ(told(0, 0) + told(0, -1), "");
    EXPECT_EQ(treemapEntries(node, 0, 3)[1].weight, 42);
    EXPECT_EQ(treemapEntries(node, 0, 3)[1].id, node.children()[1].id());
}

}
}
