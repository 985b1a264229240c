#include <HostKit/Collation.h>

#include <Controllers/FolderChooser.h>
#include <Controllers/ShownText.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tolvane {
namespace {

bool isHidden(const FileURL& url) {
    return url.lastPathComponent().starts_with('.');
}

QString nameOf(const FileURL& url) {
    const std::string_view name = url.lastPathComponent();
    return name.empty() ? QStringLiteral("File System") : shownText(name);
}

/// `url` and the folders it lies in, the outermost first.
std::vector<FileURL> chain(FileURL url) {
    std::vector<FileURL> folders{url};
    while (!url.lastPathComponent().empty()) {
        url = url.deletingLastPathComponent();
        folders.push_back(url);
    }
    std::reverse(folders.begin(), folders.end());
    return folders;
}

/// Whether the entry is a folder or leads to one; absent when it is none.
std::optional<EntryType> folderType(Directory& directory, std::size_t position,
                                    const FileManager& files, const FileURL& url) {
    EntryType type = directory.listedType(position);
    if (type == EntryType::unknown) {
        const Result<ResourceValues, SystemError> values = directory.values(position);
        if (values && values->isDirectory.value_or(false)) {
            type = EntryType::directory;
        } else if (values && values->isSymbolicLink.value_or(false)) {
            type = EntryType::symbolicLink;
        }
    }
    const bool isFolder =
        type == EntryType::directory ||
        (type == EntryType::symbolicLink &&
         files.targetType(url.appending(directory.name(position))) == FileType::directory);
    return isFolder ? std::optional(type) : std::nullopt;
}

bool isNothingThere(const SystemError& error) {
    return error.code == ENOENT || error.code == ENOTDIR;
}

QString notRead(const SystemError& error) {
    return QStringLiteral("This folder could not be read: %1.").arg(shownText(error.message()));
}

}

FolderChooser::FolderChooser(const Environment& environment)
    : environment_(environment)
    , crumbs_({{"name", nameOf}, {"pathText", shownPath}},
              [](const FileURL& url) { return shownPath(url); })
    , places_({{"title", [](const Place& place) { return place.title; }},
               {"iconName", [](const Place& place) { return place.iconName; }},
               {"pathText", [](const Place& place) { return shownPath(place.url); }}},
              [](const Place& place) { return shownPath(place.url); })
    , folders_({{"name", [](const SubFolder& folder) { return nameOf(folder.url); }},
                {"pathText", [](const SubFolder& folder) { return shownPath(folder.url); }},
                {"iconName",
                 [](const SubFolder& folder) {
                     return folder.isLink ? QStringLiteral("emblem-symbolic-link")
                                          : QStringLiteral("folder");
                 }}},
               [](const SubFolder& folder) { return shownPath(folder.url); })
    , listing_(environment.workers, 0, {}, [this](Listing listing) { apply(std::move(listing)); }) {
}

FolderChooser::~FolderChooser() = default;

void FolderChooser::ask(const QString& title, const FileURL& start,
                        std::function<void(const FileURL&)> onChosen) {
    onChosen_ = std::move(onChosen);
    title_ = title;
    showsHidden_ = false;
    places_.reset(existingPlaces());
    show({start.standardized(), {}, {}});
    emptyText_ = QString();
    isOpen_ = true;
    this->start(shown_.url, Purpose::show, Missing::givesWayToItsParent);
}

void FolderChooser::accept(const QString& text) {
    if (text == chosenPath_.value()) {
        answer(chosen_);
    } else if (const std::optional<FileURL> typed = place(text)) {
        start(*typed, Purpose::choose);
    }
}

void FolderChooser::reject() {
    listing_.discard();
    onChosen_ = nullptr;
    isOpen_ = false;
}

void FolderChooser::goTo(const QString& text) {
    if (const std::optional<FileURL> typed = place(text)) {
        start(*typed, Purpose::showTyped);
    }
}

void FolderChooser::goUp() {
    start(shown_.url.deletingLastPathComponent(), Purpose::showParent);
}

void FolderChooser::open(int row) {
    if (const auto* const folder = folders_.record(row)) {
        start(folder->url, Purpose::show);
    }
}

void FolderChooser::openPlace(int row) {
    if (const auto* const place = places_.record(row)) {
        start(place->url, Purpose::show);
    }
}

void FolderChooser::openCrumb(int row) {
    if (const FileURL* const folder = crumbs_.record(row)) {
        start(*folder, Purpose::show);
    }
}

void FolderChooser::select(int row) {
    const auto* const folder = folders_.record(row);
    chosen_ = folder != nullptr ? folder->url : shown_.url;
    publishChosen();
}

void FolderChooser::setShowsHidden(bool showsHidden) {
    const FileURL before = chosen_;
    showsHidden_ = showsHidden;
    showRows();
    Q_EMIT listed(rowOf(before));
}

int FolderChooser::rowBeginningWith(const QString& text, int row) const {
    const int count = folders_.rowCount();
    for (int step = 0; step < count; ++step) {
        const int candidate = (std::max(row, 0) + step) % count;
        const FileURL& url = folders_.records()[static_cast<std::size_t>(candidate)].url;
        if (nameOf(url).startsWith(text, Qt::CaseInsensitive)) {
            return candidate;
        }
    }
    return -1;
}

FolderChooser::Listing FolderChooser::list(const FileManager& files, FileURL url, Missing missing,
                                           const std::function<bool()>& isCancelled) {
    auto directory = files.openDirectory(url, {.isCancelled = isCancelled});
    while (!directory && missing == Missing::givesWayToItsParent &&
           isNothingThere(directory.error()) && !url.lastPathComponent().empty()) {
        url = url.deletingLastPathComponent();
        directory = files.openDirectory(url, {.isCancelled = isCancelled});
    }
    if (!directory) {
        return {std::move(url), {}, directory.error()};
    }
    std::vector<std::pair<std::string, SubFolder>> found;
    const Collation order;
    for (std::size_t position = 0; position < (*directory)->count() && !isCancelled(); ++position) {
        if (const auto type = folderType(**directory, position, files, url)) {
            const std::string_view name = (*directory)->name(position);
            found.emplace_back(order.sortKey(name),
                               SubFolder{url.appending(name), *type == EntryType::symbolicLink});
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    Listing listing{std::move(url), {}, {}};
    listing.folders.reserve(found.size());
    for (auto& [key, folder] : found) {
        listing.folders.push_back(std::move(folder));
    }
    return listing;
}

void FolderChooser::start(const FileURL& url, Purpose purpose, Missing missing) {
    purpose_ = purpose;
    trouble_ = QString();
    listing_.start(
        [files = environment_.files, url, missing](const auto&, const auto& isCancelled) {
            return list(*files, url, missing, isCancelled);
        });
}

void FolderChooser::apply(Listing listing) {
    const bool isTyped = purpose_ == Purpose::showTyped || purpose_ == Purpose::choose;
    if (listing.error && isTyped) {
        trouble_ = isNothingThere(*listing.error) ? QStringLiteral("There is no such folder.")
                                                  : notRead(*listing.error);
    } else if (purpose_ == Purpose::choose) {
        answer(listing.url);
    } else {
        const FileURL before = shown_.url;
        show(std::move(listing));
        // Who goes up finds the folder they come from.
        Q_EMIT listed(purpose_ == Purpose::showParent ? rowOf(before) : -1);
    }
}

void FolderChooser::show(Listing listing) {
    shown_ = std::move(listing);
    crumbs_.reset(chain(shown_.url));
    canGoUp_ = crumbs_.rowCount() > 1;
    showRows();
}

void FolderChooser::showRows() {
    std::vector<SubFolder> rows = shown_.folders;
    if (!showsHidden_.value()) {
        std::erase_if(rows, [](const SubFolder& folder) { return isHidden(folder.url); });
    }
    const bool isAllHidden = rows.empty() && !shown_.folders.empty();
    folders_.reset(std::move(rows));
    emptyText_ = shown_.error               ? notRead(*shown_.error)
                 : isAllHidden              ? QStringLiteral("All folders in here are hidden.")
                 : folders_.rowCount() == 0 ? QStringLiteral("There is no folder in here.")
                                            : QString();
    select(-1);
}

int FolderChooser::rowOf(const FileURL& url) const {
    const std::vector<SubFolder>& rows = folders_.records();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const SubFolder& row) { return row.url == url; });
    return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

void FolderChooser::answer(const FileURL& url) {
    const std::function<void(const FileURL&)> onChosen = std::exchange(onChosen_, nullptr);
    listing_.discard();
    isOpen_ = false;
    if (onChosen) {
        onChosen(url);
    }
}

void FolderChooser::publishChosen() {
    trouble_ = QString();
    chosenPath_ = shownPath(chosen_);
}

std::vector<FolderChooser::Place> FolderChooser::existingPlaces() const {
    std::vector<Place> places;
    for (const HostLayout::QuickPlace& place : environment_.layout.quickLocations) {
        if (environment_.files->exists(place.url)) {
            places.push_back({shownText(place.title), shownText(place.symbol), place.url});
        }
    }
    const MountTable mounts = environment_.files->mounts();
    for (const Mount& mount : mounts.mounts()) {
        if (mount.isRemovable) {
            const FileURL url(mount.mountPoint);
            places.push_back({nameOf(url), QStringLiteral("drive-harddisk"), url});
        }
    }
    return places;
}

std::optional<FileURL> FolderChooser::place(const QString& text) const {
    if (text.isEmpty()) {
        return std::nullopt;
    }
    if (text == chosenPath_.value()) {
        return chosen_;
    }
    const std::string& home = environment_.layout.locations.home.path();
    const std::string typed = text.toStdString();
    const bool isFromHome = typed == "~" || typed.starts_with("~/");
    return FileURL::absolute(isFromHome ? home + typed.substr(1) : typed, shown_.url.path())
        .standardized();
}

}
