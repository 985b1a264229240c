#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Date.h>
#include <HostKit/FileURL.h>
#include <HostKit/ResourceValues.h>

#include <optional>
#include <string>

namespace tolvane {

/// One file of a group, as the walk met it.
struct DuplicateFile {
    FileURL url;
    /// Length of the content.
    Bytes size = 0;
    /// When the content was last modified.
    std::optional<Date> modified;
    /// Equal for all names of one file (hard links): of those only the last one to go frees
    /// anything. Absent where the system does not tell files apart.
    std::optional<FileIdentity> identity = {};
    /// When content or attributes were last changed, which nobody can set back. Renaming the file
    /// or another name of it counts as a change of attributes.
    std::optional<Date> attributesModified = {};

    const std::string& id() const { return url.path(); }
    /// Whether `values`, read later under the same path, are those of this very file with nothing
    /// changed since.
    bool isUnchanged(const ResourceValues& values) const;

    friend bool operator==(const DuplicateFile&, const DuplicateFile&) = default;
};

}
