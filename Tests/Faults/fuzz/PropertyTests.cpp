#include "Properties.h"

#include <Support/OddNames.h>

#include <gtest/gtest.h>

#include <random>

namespace tolvane {
namespace {

/// Bytes put together of what the formats treat as special and of any others, the same in each run.
std::vector<std::string> fixedInputs() {
    using namespace std::string_literals;
    const std::vector<std::string> parts = {"[Trash Info]\n"s,
                                            "Path="s,
                                            "DeletionDate="s,
                                            "\n"s,
                                            "%"s,
                                            "%41"s,
                                            "%fF"s,
                                            "%00"s,
                                            "["s,
                                            "]"s,
                                            "/"s,
                                            "/"s,
                                            ".."s,
                                            "."s,
                                            "a"s,
                                            "\0"s,
                                            "\r"s,
                                            "\u20ac"s,
                                            "\xe2\x82"s,
                                            "\xff"s,
                                            std::string(120, 'x'),
                                            std::string(90, '.')};
    std::mt19937 random(20261115);
    std::vector<std::string> inputs = oddNames();
    for (int count = 0; count < 20000; ++count) {
        std::string input = random() % 2 == 0 ? parts.front() : "";
        for (std::size_t length = random() % 12; length > 0; --length) {
            const std::size_t choice = random() % (parts.size() + 2);
            input += choice < parts.size() ? parts[choice]
                                           : std::string(1, static_cast<char>(random() % 256));
        }
        inputs.push_back(std::move(input));
    }
    return inputs;
}

TEST(Promises, aboutTrashInfosAndPathsHoldForFixedInputs) {
    for (const std::string& input : fixedInputs()) {
        ASSERT_EQ(brokenTrashInfoPromise(input), "") << testing::PrintToString(input);
        ASSERT_EQ(brokenPathPromise(input), "") << testing::PrintToString(input);
    }
}

}
}
