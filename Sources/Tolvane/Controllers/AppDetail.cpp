#include <UninstallerKit/LeftoverFinder.h>

#include <Controllers/AppDetail.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <Controllers/UninstallerTexts.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolvane {

AppDetail::AppDetail(const Environment& environment, std::function<void()> onFound)
    : environment_(environment)
    , onFound_(std::move(onFound))
    , rows_(LeftoverRows::roles(), LeftoverRows::keyOf)
    , job_(
          environment.workers, 0, {},
          [this](UninstallerScan::Detail found) { apply(std::move(found)); },
          [this](const std::string& reason) {
              isLoading_ = false;
              emptyText_ = QStringLiteral("The search for leftovers failed: ") + shownText(reason);
          }) {}

std::vector<LeftoverItem> AppDetail::removableLeftovers() const {
    std::vector<LeftoverItem> items;
    std::copy_if(leftovers().begin(), leftovers().end(), std::back_inserter(items),
                 [](const LeftoverItem& item) { return !item.isProtected; });
    return items;
}

Bytes AppDetail::leftoverBytes() const {
    return LeftoverFinder::totalSize(leftovers());
}

const LeftoverItem* AppDetail::leftoverAt(int row) const {
    const ShownLeftover* const leftover = rows_.record(row);
    return leftover == nullptr ? nullptr : &leftover->item;
}

void AppDetail::show(const InstalledApp& app, const InstalledApps& installed,
                     const QString& iconKey) {
    // A copy: `app` may be the one that is shown.
    app_ = InstalledApp(app);
    forget();
    appID_ = AppRows::idOf(*app_);
    iconKey_ = iconKey;
    isLoading_ = true;
    hasApp_ = true;
    publish();
    job_.start([layout = environment_.layout, files = environment_.files, app = *app_,
                installed](const auto&, const std::function<bool()>& isCancelled) {
        return UninstallerScan::detail(layout, files, app, installed, isCancelled);
    });
}

void AppDetail::apply(UninstallerScan::Detail found) {
    found_ = std::move(found);
    rows_.reset(LeftoverRows::grouped(found_.leftovers, found_.origins));
    isLoading_ = false;
    sizeText_ = shownSize(found_.appSize);
    leftoversText_ = UninstallerTexts::leftovers(found_);
    removableText_ = UninstallerTexts::removable(found_);
    protectedText_ = UninstallerTexts::protectedItems(found_);
    othersText_ = UninstallerTexts::others(found_);
    emptyText_ = found_.leftovers.empty() ? QStringLiteral("Nothing was found besides the "
                                                           "application itself")
                                          : QString();
    onFound_();
}

void AppDetail::clear() {
    job_.discard();
    app_.reset();
    forget();
    appID_ = QString();
    iconKey_ = QString();
    isLoading_ = false;
    hasApp_ = false;
    publish();
}

void AppDetail::forget() {
    found_ = {};
    rows_.reset({});
    sizeText_ = QString();
    leftoversText_ = QString();
    removableText_ = QString();
    protectedText_ = QString();
    othersText_ = QString();
    emptyText_ = QString();
}

void AppDetail::publish() {
    const InstalledApp none;
    const InstalledApp& app = app_ ? *app_ : none;
    name_ = shownText(app.name);
    identityText_ =
        shownText(app.version.empty() ? app.bundleID : app.version + " · " + app.bundleID);
    pathText_ = shownPath(app.url);
}

}
