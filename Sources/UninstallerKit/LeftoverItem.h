#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <string>

namespace tolvane {

/// A file or folder that an application leaves behind.
struct LeftoverItem {
    FileURL url;
    /// What it is, for people.
    std::string kind;
    /// Bytes on disk.
    Bytes size = 0;
    /// To be shown, never to be removed.
    bool isProtected = true;

    const std::string& id() const { return url.path(); }

    friend bool operator==(const LeftoverItem&, const LeftoverItem&) = default;
};

}
