#pragma once

#include <Support/TemporaryHome.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

struct CommandResult {
    int status = 0;
    std::string output;
    /// What it wrote to standard error.
    std::string complaint;

    /// The output as one JSON document; a test fails when it is none.
    nlohmann::json json() const;
};

/// Runs the real program with a temporary home as its home and working directory.
class ProgramTest : public ::testing::Test {
  protected:
    using Arguments = std::vector<std::string>;

    CommandResult run(const Arguments& arguments, std::string_view input = {}) const;
    /// The program by way of a shell script, in which "$@" stands for it and its arguments.
    CommandResult runIn(const std::string& script, const Arguments& arguments,
                        std::string_view input = {}) const;
    /// The program with a signal on its way that it is given as soon as it takes signals.
    CommandResult runSignalled(int signal, const Arguments& arguments) const;
    /// What the program writes to a terminal of 80 columns in place of `stream` (1 or 2).
    std::string shownOnTerminal(int stream, const std::string& environment,
                                const Arguments& arguments) const;

    /// Beside the home, so that it is in no result.
    TemporaryHome aside;
    TemporaryHome home;
};

/// RFC 4648, by another implementation than the program's.
std::string base64(std::string_view bytes);
/// The bytes of the path that an object tells under `key`.
bool tellsPath(const nlohmann::json& object, const std::string& key, const std::string& path);

}
