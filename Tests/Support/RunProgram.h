#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

struct ProgramRun {
    /// The exit status; 128 and the signal's number when a signal ended it, 127 when it could not
    /// be started.
    int status = 0;
    /// What it wrote to standard output.
    std::string output;
};

/// Runs `work` in a process of its own, keeps what it writes to `output` and waits for its end.
ProgramRun runChild(const std::function<void(std::FILE* output)>& work);

/// Runs a program found by PATH and waits for its end. `environment` is added to this process's
/// own, `input` is what it reads; its standard error is not kept.
ProgramRun runProgram(const std::vector<std::string>& arguments,
                      const std::map<std::string, std::string>& environment = {},
                      std::string_view input = {});

/// Whether a program of this name can be started.
bool hasProgram(const std::string& name);

}
