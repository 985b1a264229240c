#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <vector>

namespace tolvane {

/// A removal that someone intends.
struct RemovalPlan {
    FileURL scanRoot;
    std::vector<FileURL> items;
    Bytes totalBytes = 0;

    friend bool operator==(const RemovalPlan&, const RemovalPlan&) = default;
};

}
