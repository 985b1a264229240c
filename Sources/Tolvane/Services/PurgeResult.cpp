#include <Services/ByteFormat.h>
#include <Services/PurgeResult.h>

namespace tolvane {
namespace {

Bytes available(const std::optional<MemoryStats>& memory) {
    return memory ? memory->available() : 0;
}

}

PurgeResult PurgeResult::between(const std::optional<MemoryStats>& before,
                                 const std::optional<MemoryStats>& after) {
    return {difference(available(after), available(before))};
}

std::string PurgeResult::text() const {
    return delta < 1 ? "Purge completed; available memory is unchanged"
                     : "Released " + ByteFormat::text(delta) + " of memory";
}

}
