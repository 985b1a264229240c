#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace tolvane {

/// Ends the run when a promise does not hold for the fuzzer's input.
inline void expectHolds(std::string (*brokenPromise)(std::string_view), const std::uint8_t* data,
                        std::size_t size) {
    const std::string broken =
        brokenPromise(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!broken.empty()) {
        std::fprintf(stderr, "broken promise: %s\n", broken.c_str());
        std::abort();
    }
}

}
