#pragma once

#include <HostKit/FileURL.h>

#include <string>
#include <vector>

namespace tolvane {

/// A program and what it is started with. No shell ever reads it.
struct Tool {
    FileURL executable;
    /// Without the program's own name.
    std::vector<std::string> arguments;

    friend bool operator==(const Tool&, const Tool&) = default;
};

}
