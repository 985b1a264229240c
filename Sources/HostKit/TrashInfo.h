#pragma once

#include <HostKit/Date.h>

#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

/// What a ".trashinfo" file tells of one item in a Trash (freedesktop.org Trash specification 1.0).
struct TrashInfo {
    /// Where the item was: absolute, or relative to the mount point that holds the Trash. Any bytes
    /// but NUL; never empty.
    std::string path;
    /// "2026-11-15T20:14:26", local time; empty when the file does not tell.
    std::string deletionDate;

    /// The content of the file, which `parse` reads back.
    std::string text() const;
    /// Absent when the text does not follow the format. Of repeated keys the first counts, unknown
    /// ones are ignored.
    static std::optional<TrashInfo> parse(std::string_view text);

    friend bool operator==(const TrashInfo&, const TrashInfo&) = default;
};

/// `date` as a `deletionDate`, in the time zone of this process.
std::string deletionDate(Date date);

/// The name that an item called `name` bears in a Trash at the `number`-th attempt: itself at the
/// first, then "name.2.ext" and so on before the first "." that is not its first character.
/// Shortened, never inside a character, so that ".trashinfo" still fits behind it.
std::string trashName(std::string_view name, unsigned number);

/// `trashName` with ".trashinfo" behind it.
std::string trashInfoName(std::string_view trashName);

}
