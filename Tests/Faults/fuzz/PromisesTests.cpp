#include "Promises.h"

#include <Support/OddNames.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

namespace tolvane {
namespace {

/// Bytes put together of what a format treats as special and of any others, the same in each run.
std::vector<std::string> fixedInputs(const std::vector<std::string>& parts) {
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
    return inputs;
}

/// The parts that stand between blanks; "~" is the end of a line, "_" a blank.
std::vector<std::string> partsOf(const std::string& text) {
    std::istringstream words(text);
    std::vector<std::string> parts;
    for (std::string word; std::getline(words, word, ' ');) {
        std::replace(word.begin(), word.end(), '~', '\n');
        std::replace(word.begin(), word.end(), '_', ' ');
        parts.push_back(word);
    }
    return parts;
}

TEST(Promises, holdForFixedInputs) {
    const std::string endless = std::string(120, 'x') + " " + std::string(90, '.');
    const std::vector<std::pair<std::string (*)(std::string_view), std::string>> subjects = {
        {brokenTrashInfoPromise, "[Trash_Info]~ Path= DeletionDate= ~ % %41 %fF %00 [ ] / / .. . a "
                                 "\r \u20ac \xe2\x82 \xff " +
                                     endless},
        {brokenPathPromise, "/ / / .. .. . a ~ % \r \u20ac \xe2\x82 \xff " + endless},
        {brokenListenersPromise,
         "p1~ p2~ p n*:80~ n[::1]:7~ n c cname P PTCP~ f3~ ~ : - + 0 99999 \r \xc3"},
        {brokenProcessTreePromise, "2_1~ 3_2~ 1_3~ 4_2~ 2 3 _ \t ~ - 9999999999 1"},
        {brokenHeavyProcessesPromise, "1 ~ _ _ 2_30_0.5_a_b~ 9 99999999 . - + e nan /a/b \t \r"},
        {brokenMemoryInfoPromise, "MemTotal:_9_kB~ MemFree:_5~ MemAvailable:_7~ SwapTotal: "
                                  "SwapFree: Zswap: Percpu: ~ _ 8 9999999999999999 full some "
                                  "avg10=50.0 avg10= . -"},
        {brokenSnapshotsPromise, "Name:_ Purgeable:_Yes~ no ~ com.apple.TimeMachine. "
                                 "2024-03-01-101500 2024-03 - 1 _ \r"},
        {brokenSnapperTablePromise,
         "1,2026-11-21_05:46:58,a~ 2, 2026-11-21_05:46:58 , ~ 0 - : _ n"},
        {brokenUnitFilePromise, "[Service]~ ExecStart= ~ \\ \" ' @ - ! # _ /a %% % [ ] ="},
        {brokenPropertyListPromise,
         "<plist> </plist> <dict> </dict> <array> </array> <key>a</key> <string> "
         "</string> <true/> <!-- --> <![CDATA[ ]]> &lt; \" bplist00 \xA1"},
        {brokenDesktopEntryPromise, "[Desktop_Entry]~ Exec= Name= Name[de]= ~ \" \\ \\s %f "
                                    "%% % env _ = a [ [Other]~"}};
    for (const auto& [broken, parts] : subjects) {
        for (const std::string& input : fixedInputs(partsOf(parts))) {
            ASSERT_EQ(broken(input), "") << testing::PrintToString(input);
        }
    }
}

}
}
