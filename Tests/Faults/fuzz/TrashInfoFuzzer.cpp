#include "Fuzzer.h"
#include "Properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tolvane::expectHolds(&tolvane::brokenTrashInfoPromise, data, size);
    return 0;
}
