#include <HostKit/MoveRights.h>
#include <HostKit/Processes.h>
#include <UninstallerKit/RunningApp.h>

#include <Controllers/LeftoverRows.h>
#include <Controllers/UninstallerReview.h>

#include <algorithm>
#include <utility>

namespace tolvane::UninstallerReview {
namespace {

void append(std::string& text, std::string_view separator, std::string_view sentence) {
    if (!sentence.empty()) {
        text += text.empty() ? "" : separator;
        text += sentence;
    }
}

/// What is to be said of the application itself, in whole sentences.
std::string aboutApp(const InstalledApp& app, bool isImmovable, bool movesLeftovers,
                     bool isRunning) {
    std::string text;
    if (isRunning) {
        text = app.name + " is running: quit it first, or it may write its files again.";
    }
    if (isImmovable) {
        append(text, " ",
               app.name + " cannot be moved with your rights" +
                   (movesLeftovers ? "; its leftovers would go to the Trash without it." : "."));
    }
    return text;
}

}

std::vector<ReviewItem> items(const InstalledApp& app, Bytes appSize,
                              const std::vector<LeftoverItem>& leftovers) {
    std::vector<ReviewItem> items;
    items.reserve(leftovers.size() + 1);
    items.push_back({app.id(), app.name, app.url, appSize, true});
    for (const LeftoverItem& leftover : leftovers) {
        items.push_back({leftover.id(), leftover.kind, leftover.url, leftover.size, false});
    }
    return items;
}

bool isApp(const ReviewItem& item, const InstalledApp& app) {
    return item.id == app.id() && item.url == app.url;
}

Removal::Bounds bounds(const ReviewItem& item, const InstalledApp& app, const FileURL& home) {
    return isApp(item, app) ? Removal::Bounds{{app.url.deletingLastPathComponent()}, true}
                            : Removal::Bounds{{home}, false};
}

std::vector<Removal::Step> steps(const std::vector<ReviewItem>& items, const InstalledApp& app,
                                 const FileURL& home) {
    Removal::Step leftovers{{}, {home}, false};
    Removal::Step bundle{{}, {app.url.deletingLastPathComponent()}, true};
    for (const ReviewItem& item : items) {
        (isApp(item, app) ? bundle : leftovers).items.push_back(item.url);
    }
    std::vector<Removal::Step> steps;
    for (Removal::Step* const step : {&leftovers, &bundle}) {
        if (!step->items.empty()) {
            steps.push_back(std::move(*step));
        }
    }
    return steps;
}

Claims claims(const std::vector<LeftoverItem>& leftovers,
              const std::vector<LeftoverOrigin>& origins) {
    Claims claims;
    for (std::size_t i = 0; i < leftovers.size(); ++i) {
        if (!origins[i].otherApps.empty()) {
            claims[leftovers[i].id()] = LeftoverRows::othersText(origins[i]).toStdString();
        }
    }
    return claims;
}

Removal::Warnings warnings(const InstalledApp& app, const Claims& claims, const FileManager& files,
                           const HostLayout::Sources& sources, const std::vector<ReviewItem>& items,
                           const std::function<bool()>& isCancelled) {
    Removal::Warnings warnings;
    bool isAppImmovable = false;
    bool hasLeftovers = false;
    for (const ReviewItem& item : items) {
        if (isCancelled()) {
            break;
        }
        const Result<ResourceValues, SystemError> values = files.values(item.url);
        const bool isImmovable = values && !mayBeMoved(item.url);
        const auto claim = claims.find(item.id);
        std::string text = isImmovable ? "Cannot be moved with your rights" : "";
        if (isApp(item, app)) {
            isAppImmovable = isImmovable;
        } else {
            hasLeftovers = true;
            append(text, "; ", claim == claims.end() ? "" : claim->second);
        }
        if (!text.empty()) {
            warnings.rows[item.id] = std::move(text);
        }
        if (values && values->isDirectory.value_or(false)) {
            warnings.folders.insert(item.id);
        }
    }
    const bool runs = isRunning(app, files, Processes(sources).executablePaths());
    warnings.all = aboutApp(app, isAppImmovable, hasLeftovers, runs);
    return warnings;
}

}
