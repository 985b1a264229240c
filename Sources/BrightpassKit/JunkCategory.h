#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <string>

namespace tolvane {

/// A folder whose content programs make again or nobody misses.
struct JunkCategory {
    /// For people.
    std::string name;
    FileURL url;
    /// Bytes on disk of all that lies in it.
    Bytes bytes = 0;

    const std::string& id() const { return url.path(); }
    /// Whether it holds anything: a missing folder, an empty one and one that cannot be read do
    /// not.
    bool exists() const { return bytes > 0; }

    friend bool operator==(const JunkCategory&, const JunkCategory&) = default;
};

}
