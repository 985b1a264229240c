#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>

#include <string>

namespace tolvane {

struct FullDiskAccessStatus {
    bool granted = false;
    /// Whether the probes gave a definite answer.
    bool confirmed = false;
    /// A sentence for people.
    std::string detail;

    /// `detail`, and how to grant the access when it is missing.
    std::string guidance() const;

    friend bool operator==(const FullDiskAccessStatus&, const FullDiskAccessStatus&) = default;
};

/// Whether this process may read everything; found out by opening what others may not.
namespace FullDiskAccess {

/// Probes afresh. Callable from any thread.
FullDiskAccessStatus status(const HostLayout::Access& access, const FileManager& files);

}

}
