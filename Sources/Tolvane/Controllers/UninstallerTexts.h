#pragma once

#include <Controllers/LeftoverRows.h>
#include <Controllers/UninstallerScan.h>

#include <QString>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What the uninstaller's screen says, for people.
namespace tolvane::UninstallerTexts {

/// "12 applications", "3 of 12 applications"
QString count(std::size_t shown, std::size_t all);
/// Why no application is shown.
QString whyEmpty(std::size_t all);
/// "Looked in ~/Applications, ~/.local/bin"
QString lookedIn(const std::vector<std::string>& folders);
/// "12 applications read"
QString progress(std::int64_t read);

/// "5 leftovers, 1.2 MB"
QString leftovers(const UninstallerScan::Detail& detail);
/// "1.3 GB in 4 items": what can be moved.
QString removable(const UninstallerScan::Detail& detail);
/// "2 protected items stay"; empty when there are none.
QString protectedItems(const UninstallerScan::Detail& detail);
/// "3 items also match other applications"; empty when none does.
QString others(const UninstallerScan::Detail& detail);

/// "Removed NAME and 3 leftover item(s)"
QString removed(const std::string& name, std::size_t leftovers);
QString removedLeftovers(const std::string& name, std::size_t leftovers);
QString restored(std::size_t restored, std::size_t failed);

}
