#include <ArborviewKit/Bitmap.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tolvane {
namespace {

std::size_t nextIn(const std::vector<bool>& bits, std::size_t from, bool value) {
    const auto begin = bits.begin() + static_cast<std::ptrdiff_t>(std::min(from, bits.size()));
    return static_cast<std::size_t>(std::find(begin, bits.end(), value) - bits.begin());
}

TEST(Bitmap, fillsAndFindsLikeAListOfBools) {
    std::mt19937 random(7);
    for (const std::size_t count : {0U, 1U, 63U, 64U, 65U, 128U, 200U}) {
        Bitmap bitmap(count);
        std::vector<bool> plain(count);
        for (int round = 0; round < 300; ++round) {
            const std::size_t end = random() % (count + 1);
            const std::size_t begin = random() % (end + 1);
            const bool value = random() % 2 == 0;
            bitmap.fill(begin, end, value);
            std::fill(plain.begin() + static_cast<std::ptrdiff_t>(begin),
                      plain.begin() + static_cast<std::ptrdiff_t>(end), value);
            const std::size_t from = random() % (count + 1);
            ASSERT_EQ(bitmap.nextSet(from), nextIn(plain, from, true)) << count << " " << from;
            ASSERT_EQ(bitmap.nextClear(from), nextIn(plain, from, false)) << count << " " << from;
            for (std::size_t i = 0; i < count; ++i) {
                ASSERT_EQ(bitmap[i], plain[i]) << count << " " << i;
            }
        }
    }
}

}
}
