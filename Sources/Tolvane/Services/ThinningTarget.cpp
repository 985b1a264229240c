#include <Services/ThinningTarget.h>

#include <algorithm>

namespace tolvane {

std::optional<ThinningTarget> ThinningTarget::of(const SnapshotInventory& inventory,
                                                 const std::optional<VolumeStats>& volume) {
    constexpr Bytes least = 1'000'000'000;
    if (inventory.count() == 0) {
        return std::nullopt;
    }
    const std::vector<LocalSnapshot>& snapshots =
        inventory.data.empty() ? inventory.system : inventory.data;
    const Bytes wanted =
        volume ? difference(volume->importantAvailable, volume->available) : Bytes{0};
    return ThinningTarget{.volume = snapshots.front().volume, .bytes = std::max(wanted, least)};
}

}
