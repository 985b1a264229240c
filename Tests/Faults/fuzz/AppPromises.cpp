#include "Promises.h"

#include <HostKit/DesktopEntry.h>
#include <HostKit/PropertyList.h>

#include <algorithm>

namespace tolvane {
namespace {

/// How deep the values nest, or more where a string holds a NUL; adds up how many there are.
std::size_t depthOf(const PropertyList& list, std::size_t& values) {
    constexpr std::size_t forbidden = 1'000'000;
    std::size_t deepest = 0;
    ++values;
    if (list.string() != nullptr && list.string()->find('\0') != std::string::npos) {
        return forbidden;
    }
    if (list.list() != nullptr) {
        for (const PropertyList& member : *list.list()) {
            deepest = std::max(deepest, depthOf(member, values));
        }
    }
    if (list.dictionary() != nullptr) {
        for (const PropertyList::Entry& entry : *list.dictionary()) {
            deepest = std::max(deepest, depthOf(entry.value, values));
        }
    }
    return deepest + 1;
}

}

std::string brokenPropertyListPromise(std::string_view bytes) {
    const std::optional<PropertyList> list = PropertyList::parse(bytes);
    std::size_t values = 0;
    if (list && (depthOf(*list, values) > 66 || values > 50'000)) {
        return "what is read is neither deep nor large, and no string holds a NUL";
    }
    return "";
}

std::string brokenDesktopEntryPromise(std::string_view bytes) {
    const std::optional<DesktopEntry> entry = DesktopEntry::parse(bytes);
    if (!entry) {
        return "";
    }
    if (entry->program() == "") {
        return "a program has a name";
    }
    const bool hasName = entry->value("Name").has_value();
    return hasName && !entry->localized("Name", "de_AT.UTF-8@euro")
               ? "the name for all languages is one for each"
               : "";
}

}
