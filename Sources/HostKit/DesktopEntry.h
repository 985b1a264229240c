#pragma once

#include <HostKit/FileManager.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

/// The main group of a desktop entry: a launcher or a file of the autostart folders
/// (freedesktop.org Desktop Entry specification 1.5).
class DesktopEntry {
  public:
    /// Longer files are no desktop entries of an application.
    static constexpr std::size_t largestSize = 256 * 1024;

    /// Absent when the text has no such group or holds a NUL. Lines that follow no rule are left
    /// out; of repeated keys the last one counts.
    static std::optional<DesktopEntry> parse(std::string_view text);

    /// That of a file; absent when the file cannot be read or holds none.
    static std::optional<DesktopEntry> read(const FileManager& files, const FileURL& file);

    /// The value with its escapes undone; absent when there is none.
    std::optional<std::string> value(std::string_view key) const;
    /// The value in the language of `locale` ("de_DE.UTF-8@euro"), else the one for all languages.
    std::optional<std::string> localized(std::string_view key, std::string_view locale) const;
    /// What "Exec" starts, unquoted, without what "env" in front of it does: a path or a bare name.
    /// Absent when it starts nothing.
    std::optional<std::string> program() const;

  private:
    /// As they stand in the file.
    std::map<std::string, std::string, std::less<>> values_;
};

}
