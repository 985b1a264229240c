#include <HostKit/PropertyList.h>
#include <UninstallerKit/ApplicationFolder.h>
#include <UninstallerKit/InfoDictionary.h>

#include <set>
#include <string>
#include <utility>

namespace tolvane {
namespace {

FileURL dictionaryOf(const FileURL& bundle) {
    return bundle.appending("Contents/Info.plist");
}

std::optional<PropertyList> read(const FileManager& files, const FileURL& bundle) {
    // One more byte, so that a file that is too large does not pass as its beginning.
    const Result<std::string, SystemError> bytes =
        files.read(dictionaryOf(bundle), PropertyList::largestSize + 1);
    return bytes ? PropertyList::parse(*bytes) : std::nullopt;
}

std::optional<std::string> stringAt(const std::optional<PropertyList>& dictionary,
                                    std::string_view key) {
    const PropertyList* const value = dictionary ? dictionary->at(key) : nullptr;
    const std::string* const text = value != nullptr ? value->string() : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

/// The first of the keys that has a string.
std::optional<std::string> firstStringAt(const std::optional<PropertyList>& dictionary,
                                         std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) {
        if (std::optional<std::string> text = stringAt(dictionary, key)) {
            return text;
        }
    }
    return std::nullopt;
}

/// All members of the list, or none when one of them is no string.
std::set<std::string> declaredIdentifiers(const std::optional<PropertyList>& dictionary) {
    const PropertyList* const value =
        dictionary ? dictionary->at("AssociatedBundleIdentifiers") : nullptr;
    std::set<std::string> identifiers;
    if (value == nullptr || value->list() == nullptr) {
        return identifiers;
    }
    for (const PropertyList& member : *value->list()) {
        if (member.string() == nullptr) {
            return {};
        }
        identifiers.insert(*member.string());
    }
    return identifiers;
}

void addLoginItems(const FileManager& files, const FileURL& bundle,
                   std::set<std::string>& identifiers) {
    const FileURL folder = bundle.appending("Contents/Library/LoginItems");
    for (const FolderEntry& entry : shownEntries(files, folder)) {
        const FileURL item = folder.appending(entry.name);
        if (item.pathExtension() == "app") {
            if (auto identifier = stringAt(read(files, item), "CFBundleIdentifier")) {
                identifiers.insert(std::move(*identifier));
            }
        }
    }
}

std::string nameWithoutExtension(const FileURL& url) {
    const std::string_view name = url.lastPathComponent();
    const std::string_view extension = url.pathExtension();
    return std::string(extension.empty() ? name
                                         : name.substr(0, name.size() - extension.size() - 1));
}

}

bool InfoDictionary::isIn(const FileManager& files, const FileURL& bundle) {
    return files.exists(dictionaryOf(bundle));
}

std::optional<InstalledApp> InfoDictionary::makeApp(const FileManager& files, const FileURL& bundle,
                                                    bool isSystem) {
    if (files.targetType(bundle) != FileType::directory) {
        return std::nullopt;
    }
    const std::optional<PropertyList> dictionary = read(files, bundle);
    const std::optional<std::string> identifier = stringAt(dictionary, "CFBundleIdentifier");
    const std::string stem = nameWithoutExtension(bundle);
    std::set<std::string> associated = declaredIdentifiers(dictionary);
    addLoginItems(files, bundle, associated);
    return InstalledApp{
        .name = firstStringAt(dictionary, {"CFBundleDisplayName", "CFBundleName"}).value_or(stem),
        .bundleID = identifier.value_or(stem),
        .version = firstStringAt(dictionary, {"CFBundleShortVersionString", "CFBundleVersion"})
                       .value_or(std::string(unknownVersion)),
        .teamID = stringAt(dictionary, "TeamIdentifier").value_or(identifier.value_or("")),
        .url = bundle,
        .isSystem = isSystem,
        .associatedBundleIDs = {associated.begin(), associated.end()}};
}

std::optional<FileURL> InfoDictionary::iconFile(const FileManager& files, const FileURL& bundle) {
    const std::string name = stringAt(read(files, bundle), "CFBundleIconFile").value_or("");
    if (name.empty() || name.find('/') != std::string::npos) {
        return std::nullopt;
    }
    const FileURL resources = bundle.appending("Contents/Resources");
    for (const char* const ending : {"", ".png", ".icns"}) {
        FileURL file = resources.appending(name + ending);
        if (files.targetType(file) == FileType::regular) {
            return file;
        }
    }
    return std::nullopt;
}

}
