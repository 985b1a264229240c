#include "Promises.h"

#include <Support/OddNames.h>

#include <gtest/gtest.h>

#include <random>

namespace tolvane {
namespace {

/// Bytes put together of what the formats treat as special and of any others, the same in each run.
TEST(Promises, aboutTrashInfosAndPathsHoldForFixedInputs) {
    const std::vector<std::string> parts = {"[Trash Info]\n",
                                            "Path=",
                                            "DeletionDate=",
                                            "\n",
                                            "%",
                                            "%41",
                                            "%fF",
                                            "%00",
                                            "[",
                                            "]",
                                            "/",
                                            "/",
                                            "..",
                                            ".",
                                            "a",
                                            "\r",
                                            "\u20ac",
                                            "\xe2\x82",
                                            std::string(120, 'x'),
                                            "\xff",
                                            std::string(90, '.')};
    std::mt19937 random(20261115);
    std::vector<std::string> inputs = oddNames();
    for (int count = 0; count < 20000; ++count) {
        std::string input = random() % 2 == 0 ? parts.front() : "";
        for (std::size_t length = random() % 12; length > 0; --length) {
            const std::size_t choice = random() % (parts.size() + 3);
            const auto anyByte = static_cast<char>(choice == parts.size() ? 0 : random() % 256);
            input += choice < parts.size() ? parts[choice] : std::string(1, anyByte);
        }
        inputs.push_back(std::move(input));
    }
    for (const std::string& input : inputs) {
        ASSERT_EQ(brokenTrashInfoPromise(input), "") << testing::PrintToString(input);
        ASSERT_EQ(brokenPathPromise(input), "") << testing::PrintToString(input);
    }
}

}
}
