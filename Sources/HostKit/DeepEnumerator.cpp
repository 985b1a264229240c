#include <HostKit/DeepEnumerator.h>

#include <algorithm>

namespace tolvane {
namespace {

char smallLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// As file names are compared everywhere: the user's language has no part in it.
bool isSameButForCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, smallLetter, smallLetter);
}

}

DeepEnumerator::DeepEnumerator(const FileManager& files, const FileURL& root, Options options,
                               ErrorHandler onError)
    : options_(std::move(options))
    , onError_(std::move(onError))
    , path_(root.path()) {
    if (!options_.entersLinkedRoot) {
        const Result<ResourceValues, SystemError> values = files.values(root);
        if (values && values->isSymbolicLink.value_or(false)) {
            return;
        }
    }
    enter(files.openDirectory(root, listing()));
}

DeepEnumerator::~DeepEnumerator() {
    while (!levels_.empty()) {
        levels_.pop_back();
    }
}

bool DeepEnumerator::next() {
    if (mayEnter_) {
        enterCurrent();
    }
    while (!levels_.empty()) {
        Level& level = levels_.back();
        path_.resize(level.pathLength);
        if (level.next < level.directory->count()) {
            level.current = level.next++;
            mayEnter_ = true;
            return true;
        }
        levels_.pop_back();
    }
    return false;
}

std::string_view DeepEnumerator::name() const {
    return levels_.back().directory->name(levels_.back().current);
}

FileURL DeepEnumerator::url() const {
    std::string path = path_;
    appendComponent(path, name());
    return FileURL(std::move(path));
}

Result<ResourceValues, SystemError> DeepEnumerator::values() {
    Result<ResourceValues, SystemError> values =
        levels_.back().directory->values(levels_.back().current);
    if (values && !values->isDirectory.value_or(false)) {
        mayEnter_ = false;
    }
    return values;
}

void DeepEnumerator::skipDescendants() {
    mayEnter_ = false;
}

/// Enters the current item when it is a directory. Only where the listing does not tell are the
/// attributes read.
void DeepEnumerator::enterCurrent() {
    mayEnter_ = false;
    Level& level = levels_.back();
    EntryType type = level.directory->listedType(level.current);
    if (type == EntryType::unknown) {
        const Result<ResourceValues, SystemError> values = level.directory->values(level.current);
        const bool isDirectory = values && values->isDirectory.value_or(false);
        type = isDirectory ? EntryType::directory : EntryType::other;
    }
    if (type != EntryType::directory || isOpaque(name())) {
        return;
    }
    appendComponent(path_, name());
    enter(level.directory->open(level.current, listing()));
}

void DeepEnumerator::enter(Result<std::unique_ptr<Directory>, SystemError> opened) {
    if (opened) {
        levels_.push_back({std::move(*opened), 0, 0, path_.size()});
    } else if (onError_ && !opened.error().isCancelled()) {
        onError_(FileURL(path_), opened.error());
    }
}

Listing DeepEnumerator::listing() const {
    return {options_.isCancelled, options_.skipsHidden};
}

bool DeepEnumerator::isOpaque(std::string_view name) const {
    const FileURL url{std::string(name)};
    const std::string_view extension = url.pathExtension();
    return std::ranges::any_of(options_.opaqueExtensions, [&](const std::string& opaque) {
        return isSameButForCase(opaque, extension);
    });
}

}
