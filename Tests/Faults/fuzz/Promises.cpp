#include "Promises.h"

#include <HostKit/FileURL.h>
#include <HostKit/Text.h>
#include <HostKit/TrashInfo.h>

#include <algorithm>

namespace tolvane {
namespace {

std::string without(std::string_view bytes, std::string_view unwanted) {
    std::string rest(bytes);
    std::erase_if(rest, [&](char byte) { return unwanted.find(byte) != std::string_view::npos; });
    return rest;
}

bool isReadBack(const TrashInfo& info) {
    return TrashInfo::parse(info.text()) == info;
}

std::string brokenNamePromise(const std::string& name) {
    constexpr std::size_t longestName = 255;
    for (const unsigned number : {1U, 2U, 10U, 123456789U}) {
        const std::string inTrash = trashName(name, number);
        if (inTrash.empty() || inTrash.find('/') != std::string::npos) {
            return "a name in the Trash is a name";
        }
        if (trashInfoName(inTrash).size() > longestName) {
            return "the info file's name fits";
        }
        if (isValidUTF8(name) && !isValidUTF8(inTrash)) {
            return "a name is cut between characters";
        }
    }
    return name.size() < 200 && trashName(name, 1) != name ? "a short name is kept" : "";
}

/// Whether ".." is left where it can be done without.
bool hasNeedlessStepUp(std::string_view path) {
    bool hasName = path.starts_with('/');
    while (!path.empty()) {
        const std::size_t end = path.find('/');
        const std::string_view component = path.substr(0, end);
        path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
        if (component == ".." && hasName) {
            return true;
        }
        hasName = hasName || component != "..";
    }
    return false;
}

}

std::string brokenTrashInfoPromise(std::string_view bytes) {
    const std::optional<TrashInfo> parsed = TrashInfo::parse(bytes);
    if (parsed && (parsed->path.empty() || !isReadBack(*parsed))) {
        return "what is read is written and read back";
    }
    const std::string path = without(bytes, std::string_view("\0", 1));
    if (!path.empty() && !isReadBack({path, "2026-11-15T20:14:26"})) {
        return "any path is read back";
    }
    const std::string name = without(bytes, std::string_view("\0/", 2));
    return name.empty() ? "" : brokenNamePromise(name);
}

std::string brokenPathPromise(std::string_view bytes) {
    const FileURL url{std::string(bytes)};
    const FileURL standard = url.standardized();
    const std::string& path = standard.path();
    if (standard.standardized() != standard) {
        return "a standardised path stays as it is";
    }
    if (path.starts_with('/') != bytes.starts_with('/')) {
        return "an absolute path stays absolute";
    }
    if (path.find("//") != std::string::npos || (path.ends_with('/') && path != "/")) {
        return "separators stand alone and between names";
    }
    if (("/" + path + "/").find("/./") != std::string::npos || hasNeedlessStepUp(path)) {
        return "no component is without meaning";
    }
    if (path.empty()) {
        return "";
    }
    const FileURL below = standard.appending("name");
    if (FileURL(url.path() + "/name/..").standardized() != standard ||
        below.deletingLastPathComponent() != standard || below.lastPathComponent() != "name") {
        return "stepping down and up again leads nowhere else";
    }
    return liesWithin(below.path(), path) == (path != "/") ? "" : "what is below lies within";
}

}
