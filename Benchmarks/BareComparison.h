#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// The cheapest search for duplicates that reads the same bytes in the same passes and digests them
/// by the same library: nothing but system calls, digests and sorting.
struct BareComparison {
    std::int64_t duplicates = 0;

    void run(const std::string& path);
};

}
