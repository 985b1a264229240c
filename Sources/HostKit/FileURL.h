#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace tolvane {

/// Where an item lies: a value over the bytes of its path. Nothing is decoded, resolved or looked
/// up; a path may hold any bytes but NUL and may be longer than PATH_MAX.
class FileURL {
  public:
    FileURL() = default;
    explicit FileURL(std::string path)
        : path_(std::move(path)) {}

    /// `path` as it stands when it is absolute, else below `workingDirectory`.
    static FileURL absolute(std::string_view path, std::string_view workingDirectory);

    const std::string& path() const { return path_; }
    /// The part behind the last separator, trailing separators ignored; empty for "/" and for "".
    std::string_view lastPathComponent() const;
    /// What follows the last "." of the last component; empty when nothing follows it or when that
    /// "." is the component's first character.
    std::string_view pathExtension() const;
    /// This path, one separator, `component`.
    FileURL appending(std::string_view component) const;
    /// The path up to the last component; "/" stays "/".
    FileURL deletingLastPathComponent() const;
    /// Without "." and ".." components, repeated and trailing separators. Textual: symbolic links
    /// are not resolved. ".." above "/" is dropped.
    FileURL standardized() const;

    friend bool operator==(const FileURL&, const FileURL&) = default;
    friend auto operator<=>(const FileURL&, const FileURL&) = default;

  private:
    std::string path_;
};

/// The one textual rule for "equals or lies below": `path` equals `prefix` or begins with `prefix`
/// followed by "/". So nothing but "/" itself lies within "/".
bool liesWithin(std::string_view path, std::string_view prefix);

/// Appends "/" (unless `path` ends with one) and `component`.
void appendComponent(std::string& path, std::string_view component);

}

template <>
struct std::hash<tolvane::FileURL> {
    std::size_t operator()(const tolvane::FileURL& url) const noexcept {
        return std::hash<std::string>{}(url.path());
    }
};
