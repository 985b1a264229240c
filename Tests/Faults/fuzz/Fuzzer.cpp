#include "Promises.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Ends the run when the promises this was built for do not hold for the fuzzer's input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string broken =
        tolvane::BROKEN_PROMISE(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!broken.empty()) {
        std::fprintf(stderr, "broken promise: %s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
