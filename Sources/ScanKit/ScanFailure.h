#pragma once

#include <string>

namespace tolvane {

/// An item that could not be read, and why, for people.
struct ScanFailure {
    std::string path;
    std::string reason;

    friend bool operator==(const ScanFailure&, const ScanFailure&) = default;
};

}
