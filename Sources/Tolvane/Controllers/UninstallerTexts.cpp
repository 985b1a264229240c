#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/ShownText.h>
#include <Controllers/UninstallerTexts.h>

#include <algorithm>

namespace tolvane::UninstallerTexts {
namespace {

std::string counted(std::size_t count, std::string_view noun) {
    return CountFormat::counted(static_cast<std::int64_t>(count), noun);
}

std::size_t protectedCount(const UninstallerScan::Detail& detail) {
    return static_cast<std::size_t>(
        std::count_if(detail.leftovers.begin(), detail.leftovers.end(),
                      [](const LeftoverItem& item) { return item.isProtected; }));
}

Bytes sizeOf(const std::vector<LeftoverItem>& items) {
    Bytes size = 0;
    for (const LeftoverItem& item : items) {
        add(size, item.size);
    }
    return size;
}

}

QString count(std::size_t shown, std::size_t all) {
    const std::string text = counted(all, "application");
    return shownText(shown == all
                         ? text
                         : CountFormat::grouped(static_cast<std::int64_t>(shown)) + " of " + text);
}

QString whyEmpty(std::size_t all) {
    return all == 0 ? QStringLiteral("No applications were found")
                    : QStringLiteral("No application matches the search");
}

QString progress(std::int64_t read) {
    return shownText(CountFormat::counted(read, "application") + " read");
}

QString leftovers(const UninstallerScan::Detail& detail) {
    return shownText(counted(detail.leftovers.size(), "leftover") + ", " +
                     ByteFormat::text(sizeOf(detail.leftovers)));
}

QString removable(const UninstallerScan::Detail& detail) {
    Bytes size = detail.appSize;
    for (const LeftoverItem& item : detail.leftovers) {
        add(size, item.isProtected ? 0 : item.size);
    }
    const std::size_t count = 1 + detail.leftovers.size() - protectedCount(detail);
    return shownText(ByteFormat::text(size) + " in " + counted(count, "item"));
}

QString protectedItems(const UninstallerScan::Detail& detail) {
    const std::size_t count = protectedCount(detail);
    const std::string verb = count == 1 ? " stays" : " stay";
    return count == 0 ? QString() : shownText(counted(count, "protected item") + verb);
}

QString others(const UninstallerScan::Detail& detail) {
    const auto count = static_cast<std::size_t>(
        std::count_if(detail.origins.begin(), detail.origins.end(),
                      [](const LeftoverOrigin& origin) { return !origin.otherApps.empty(); }));
    const std::string verb = count == 1 ? " also matches" : " also match";
    return count == 0 ? QString()
                      : shownText(counted(count, "item") + verb + " other applications");
}

QString removed(const std::string& name, std::size_t leftovers) {
    return QStringLiteral("Removed %1 and %2 leftover item(s)")
        .arg(shownText(name), QString::number(leftovers));
}

QString removedLeftovers(const std::string& name, std::size_t leftovers) {
    return QStringLiteral("Removed %2 leftover item(s) of %1")
        .arg(shownText(name), QString::number(leftovers));
}

QString restored(std::size_t restored, std::size_t failed) {
    return failed > 0 ? QStringLiteral("Restored with %1 failure(s)").arg(failed)
                      : QStringLiteral("Restored %1 item(s)").arg(restored);
}

}
