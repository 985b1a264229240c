#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>
#include <ScanKit/FileNode.h>

#include <string>

namespace tolvane {

/// One row of what a person is asked to confirm before it is removed.
struct ReviewItem {
    /// Which thing it is; for a scanned node the text of the node's id.
    std::string id;
    std::string name;
    FileURL url;
    Bytes size = 0;
    bool isDirectory = false;

    friend bool operator==(const ReviewItem&, const ReviewItem&) = default;
};

/// The row of a scanned node, with everything below it.
ReviewItem reviewItem(const FileNode& node);

}
