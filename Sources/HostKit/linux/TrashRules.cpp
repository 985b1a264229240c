#include <HostKit/linux/Directories.h>
#include <HostKit/linux/TrashRules.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace tolvane {
namespace {

enum class Relation { outside, isTrash, inside };

/// One of the paths by which an item is reached, and the mount that this path lies on.
struct Alias {
    const Mount* mount;
    std::string path;
};

bool isNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Of a path to the Trash folders that a volume may have, of any user.
Relation relationToVolumeTrash(const Alias& alias) {
    constexpr std::string_view shared = "/.Trash";
    constexpr std::string_view personal = "/.Trash-";
    const std::string below = pathBelow(alias.path, alias.mount->mountPoint).value_or("");
    const std::size_t secondSeparator = below.find('/', 1);
    const std::string_view first = std::string_view(below).substr(0, secondSeparator);
    if (first.starts_with(personal) && isNumber(first.substr(personal.size()))) {
        return first.size() == below.size() ? Relation::isTrash : Relation::inside;
    }
    if (first != shared) {
        return Relation::outside;
    }
    if (secondSeparator == std::string::npos) {
        return Relation::isTrash;
    }
    const std::size_t thirdSeparator = below.find('/', secondSeparator + 1);
    const std::string_view user =
        std::string_view(below).substr(secondSeparator + 1, thirdSeparator - secondSeparator - 1);
    if (!isNumber(user)) {
        return Relation::outside;
    }
    return thirdSeparator == std::string::npos ? Relation::isTrash : Relation::inside;
}

std::string joined(const std::string& ancestor, const std::string& below) {
    return ancestor == "/" && !below.empty() ? below : ancestor + below;
}

/// Every path to the item: bind mounts and subvolumes show one folder in several places.
std::vector<Alias> aliasesOf(const TrashItem& item, const MountTable& mounts) {
    if (item.mount == nullptr) {
        return {};
    }
    const Mount& own = *item.mount;
    std::vector<Alias> found = {{&own, item.linklessPath}};
    const std::optional<std::string> below = pathBelow(item.linklessPath, own.mountPoint);
    for (const Mount& other : mounts.mounts()) {
        const bool isSameSystem = other.major == own.major && other.minor == own.minor;
        if (&other == &own || !isSameSystem || !below) {
            continue;
        }
        const std::optional<std::string> there = pathBelow(joined(own.root, *below), other.root);
        if (!there) {
            continue;
        }
        std::string path = joined(other.mountPoint, *there);
        const bool isShown = mounts.covering(path) == &other;
        if (isShown) {
            found.push_back({&other, std::move(path)});
        }
    }
    return found;
}

using Paths = std::vector<std::string>;

/// A place as the layout names it and without links: removing a link on the way would cut the place
/// off as well.
Paths bothPaths(const FileURL& place, const HostLayout& layout) {
    const std::string path = place.standardized().path();
    return {path, linklessPath(path, layout.sources.proc)};
}

template <class Predicate>
bool anyPair(const Paths& paths, const Paths& places, Predicate holds) {
    return std::any_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return std::any_of(places.begin(), places.end(),
                           [&](const std::string& place) { return holds(path, place); });
    });
}

bool liesStrictlyWithin(const std::string& path, const std::string& place) {
    return !pathBelow(path, place).value_or("").empty();
}

bool isOrHolds(const std::string& path, const std::string& place) {
    return pathBelow(place, path).has_value();
}

}

std::optional<std::string> reasonToStay(const TrashItem& item, const MountTable& mounts,
                                        const HostLayout& layout) {
    const std::vector<Alias> aliases = aliasesOf(item, mounts);
    Paths paths = {item.path, item.linklessPath};
    for (const Alias& alias : aliases) {
        paths.push_back(alias.path);
    }
    const Paths trashes = bothPaths(layout.locations.homeTrash, layout);
    const auto isRelatedAs = [&](Relation relation) {
        return std::any_of(aliases.begin(), aliases.end(), [&](const Alias& alias) {
            return relationToVolumeTrash(alias) == relation;
        });
    };
    const auto holdsMount = [&](const std::string& path) { return mounts.hasMountBelow(path); };

    if (anyPair(paths, trashes, liesStrictlyWithin) || isRelatedAs(Relation::inside)) {
        return "The item is already in the Trash";
    }
    if (item.isMountPoint || mounts.isMountPoint(item.linklessPath)) {
        return "The item is a mount point";
    }
    if (item.isDirectory && std::any_of(paths.begin(), paths.end(), holdsMount)) {
        return "The folder contains a mount point";
    }
    if (item.isDirectory && !mounts.isReadable()) {
        return "The mount table cannot be read";
    }
    if (anyPair(paths, bothPaths(layout.locations.home, layout), isOrHolds)) {
        return "The home folder cannot be moved to the Trash";
    }
    if (anyPair(paths, trashes, isOrHolds) ||
        (item.isDirectory && isRelatedAs(Relation::isTrash))) {
        return "The folder contains the Trash";
    }
    return std::nullopt;
}

}
