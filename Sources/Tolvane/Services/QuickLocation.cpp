#include <Services/QuickLocation.h>

namespace tolvane {

std::vector<QuickLocation> quickLocations(const HostLayout& layout) {
    std::vector<QuickLocation> locations;
    locations.reserve(layout.quickLocations.size());
    for (const HostLayout::QuickPlace& place : layout.quickLocations) {
        locations.push_back({freshIdentifier(), place.title, place.symbol, place.url});
    }
    return locations;
}

}
