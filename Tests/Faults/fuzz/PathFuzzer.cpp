#include "Fuzzer.h"
#include "Properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tolvane::expectHolds(&tolvane::brokenPathPromise, data, size);
    return 0;
}
