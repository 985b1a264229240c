#pragma once

#include <HostKit/FileURL.h>

#include <optional>
#include <string>

namespace tolvane {

/// Something that is started by itself, at log-in or at boot.
struct StartupAgent {
    /// What it is called; bytes as they are.
    std::string label;
    /// A path or a bare name, as bytes; absent when none is told.
    std::optional<std::string> program;
    /// Whether it is started at once and not only when something asks for it.
    bool runAtLoad = false;
    /// The file that tells of it.
    FileURL url;
    /// Of whom: "user", "system" (everybody who logs in) or "daemon" (at boot).
    std::string scope;

    /// What tells it from others: the path of its file.
    const std::string& id() const { return url.path(); }

    friend bool operator==(const StartupAgent&, const StartupAgent&) = default;
};

}
