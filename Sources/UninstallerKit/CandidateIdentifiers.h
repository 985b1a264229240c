#pragma once

#include <HostKit/LeftoverTable.h>
#include <UninstallerKit/InstalledApp.h>

#include <string>
#include <string_view>
#include <vector>

/// Which of an application's identifiers leftovers are looked for by. They come from files that
/// anybody may have written. Nothing here reads the disk.
namespace tolvane::CandidateIdentifiers {

/// Each once, the application's own first. Those that would lead out of the folders of the table
/// are left out, and those that its gates refuse.
std::vector<std::string> of(const InstalledApp& app, const LeftoverTable& table);

/// Whether names that are longer than the identifier may count as its leftovers.
bool mayBegin(std::string_view identifier, const LeftoverTable& table);

}
