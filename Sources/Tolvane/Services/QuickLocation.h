#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/HostLayout.h>
#include <HostKit/Identifier.h>

#include <string>
#include <vector>

namespace tolvane {

/// A folder that is offered for scanning with one click.
struct QuickLocation {
    Identifier id;
    std::string title;
    /// Name of the icon shown beside the title.
    std::string symbol;
    FileURL url;
};

/// The places of `layout` in its order, each with a fresh id. Build the list once and keep it.
std::vector<QuickLocation> quickLocations(const HostLayout& layout);

}
