#include "MadeNodes.h"

#include <ArborviewKit/Treemap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

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

void expectNear(const Rectangle& actual, const Rectangle& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
    EXPECT_NEAR(actual.width, expected.width, 1e-9);
    EXPECT_NEAR(actual.height, expected.height, 1e-9);
}

TEST(TreemapLayout, tilesTheRectangleInProportion) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        const Rectangle whole{-50, 20, 400.0 + static_cast<double>(random() % 800),
                              400.0 + static_cast<double>(random() % 800)};
        std::vector<double> weights(1 + random() % 40);
        double total = 0;
        for (double& weight : weights) {
            weight = static_cast<double>(1 + random() % 1000);
            total += weight;
        }
        const std::vector<TreemapCell> cells = layout(weights, whole);
        ASSERT_EQ(cells.size(), weights.size());
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const Rectangle& rect = cells[i].rect;
            ASSERT_NEAR(rect.width * rect.height / (whole.width * whole.height),
                        cells[i].weight / total, 1e-9);
            ASSERT_GE(rect.x, whole.x - 1e-6);
            ASSERT_GE(rect.y, whole.y - 1e-6);
            ASSERT_LE(rect.x + rect.width, whole.x + whole.width + 1e-6);
            ASSERT_LE(rect.y + rect.height, whole.y + whole.height + 1e-6);
            for (std::size_t j = 0; j < i; ++j) {
                const Rectangle& other = cells[j].rect;
                ASSERT_TRUE(overlap(rect.x, rect.width, other.x, other.width) < 1e-6 ||
                            overlap(rect.y, rect.height, other.y, other.height) < 1e-6);
            }
        }
    }
}

// The example of the paper the algorithm comes from, ten times as large.
TEST(TreemapLayout, givesThePublishedExample) {
    const std::vector<TreemapCell> cells = layout({6, 6, 4, 3, 2, 2, 1}, {0, 0, 60, 40});
    ASSERT_EQ(cells.size(), 7U);
    expectNear(cells[0].rect, {0, 0, 30, 20});
    expectNear(cells[1].rect, {0, 20, 30, 20});
    expectNear(cells[2].rect, {30, 0, 120.0 / 7, 70.0 / 3});
    expectNear(cells[3].rect, {30 + 120.0 / 7, 0, 90.0 / 7, 70.0 / 3});
    expectNear(cells[4].rect, {30, 70.0 / 3, 12, 50.0 / 3});
    expectNear(cells[5].rect, {42, 70.0 / 3, 12, 50.0 / 3});
    expectNear(cells[6].rect, {54, 70.0 / 3, 6, 50.0 / 3});
}

TEST(TreemapLayout, growsARowThatStaysAsGood) {
    const std::vector<TreemapCell> squares = layout({5, 5, 5, 5}, {10, 10, 100, 100});
    ASSERT_EQ(squares.size(), 4U);
    expectNear(squares[0].rect, {10, 10, 50, 50});
    expectNear(squares[1].rect, {10, 60, 50, 50});
    expectNear(squares[2].rect, {60, 10, 50, 50});
    expectNear(squares[3].rect, {60, 60, 50, 50});
    expectNear(layout({0.25}, {3, 4, 70, 20}).front().rect, {3, 4, 70, 20});
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
    EXPECT_TRUE(layout({}, {0, 0, 10, 10}).empty());
    EXPECT_TRUE(layout({0, -1}, {0, 0, 10, 10}).empty());
    EXPECT_TRUE(layout({1}, {0, 0, 0, 10}).empty());
    EXPECT_TRUE(layout({1}, {0, 0, 10, -1}).empty());
    EXPECT_TRUE(layout({1}, {0, 0, NAN, 10}).empty());
}

TEST(TreemapLayout, countsSidesUnderOneUnitAsOne) {
    // 0.25 of area over a height taken as 1: a quarter wide, and a quarter high by the same bound.
    const std::vector<TreemapCell> single = layout({7}, {0, 0, 0.5, 0.5});
    ASSERT_EQ(single.size(), 1U);
    expectNear(single[0].rect, {0, 0, 0.25, 0.25});
    const std::vector<TreemapCell> thin = layout({1e15, 9, 8, 1e-9}, {0, 0, 0.5, 300});
    ASSERT_FALSE(thin.empty());
    expectNear(thin.front().rect, {0, 0, 1, 150});
    for (const TreemapCell& cell : thin) {
        EXPECT_TRUE(std::isfinite(cell.rect.x) && std::isfinite(cell.rect.y));
        EXPECT_TRUE(cell.rect.width <= 1 && cell.rect.height <= 300);
    }
}

TEST(TreemapEntries, areTheLargestChildren) {
    const FileNode node =
        madeFolder("n", {madeFile("a", 10), madeFolder("b", {madeFile("x", 40)}, 2),
                         madeFile("c", 30), madeFile("d", 10), madeFile("e", 50)});
    const std::vector<TreemapEntry> three = treemapEntries(node, 0, 3);
    ASSERT_EQ(three.size(), 3U);
    EXPECT_EQ(three[0].label, "e");
    EXPECT_EQ(three[1].label, "b");
    EXPECT_EQ(three[1].weight, 42);
    EXPECT_EQ(three[1].id, node.children()[1].id());
    EXPECT_EQ(three[2].colorIndex, 2);
    const std::vector<TreemapEntry> two = treemapEntries(node, 31, 3);
    ASSERT_EQ(two.size(), 2U);
    EXPECT_EQ(two[1].colorIndex, 1);
    const std::vector<TreemapEntry> every = treemapEntries(node, 10, 100);
    ASSERT_EQ(every.size(), 5U) << "as large as the minimum is enough";
    EXPECT_EQ(every[3].label, "a");
    EXPECT_EQ(every[4].label, "d");
    EXPECT_TRUE(treemapEntries(node, 0, 0).empty());
    EXPECT_TRUE(treemapEntries(node, 0, -1).empty());
}

}
}
