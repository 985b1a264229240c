#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// The cheapest walk there can be, to compare with: `getdents64` and one attribute call relative to
/// the open folder for each entry, nothing else.
struct BareWalk {
    std::int64_t entries = 0;
    std::int64_t blocks = 0;

    void walk(const std::string& path);

  private:
    void walkFolder(int descriptor);
};

}
