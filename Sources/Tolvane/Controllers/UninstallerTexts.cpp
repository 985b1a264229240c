#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <Controllers/UninstallerTexts.h>

#include <algorithm>

namespace tolvane::UninstallerTexts {
namespace {

std::int64_t protectedCount(const UninstallerScan::Detail& detail) {
    return std::count_if(detail.leftovers.begin(), detail.leftovers.end(),
                         [](const LeftoverItem& item) { return item.isProtected; });
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
    return shownPart(static_cast<std::int64_t>(shown), static_cast<std::int64_t>(all),
                     "application");
}

QString whyEmpty(std::size_t all) {
    return all == 0 ? QStringLiteral("No applications were found")
                    : QStringLiteral("No application matches the search");
}

QString lookedIn(const std::vector<std::string>& folders) {
    std::string text;
    for (const std::string& folder : folders) {
        text += (text.empty() ? "Looked in " : ", ");
        text += (folder.starts_with('/') ? "" : "~/") + folder;
    }
    return shownText(text);
}

QString progress(std::int64_t read) {
    return shownCount(read, "application") + QStringLiteral(" read");
}

QString leftovers(const UninstallerScan::Detail& detail) {
    return shownCount(std::ssize(detail.leftovers), "leftover") + QStringLiteral(", ") +
           shownSize(sizeOf(detail.leftovers));
}

QString removable(const UninstallerScan::Detail& detail) {
    Bytes size = detail.appSize;
    for (const LeftoverItem& item : detail.leftovers) {
        add(size, item.isProtected ? 0 : item.size);
    }
    const std::int64_t count = 1 + std::ssize(detail.leftovers) - protectedCount(detail);
    return shownSize(size) + QStringLiteral(" in ") + shownCount(count, "item");
}

QString protectedItems(const UninstallerScan::Detail& detail) {
    const std::int64_t count = protectedCount(detail);
    const QString verb = count == 1 ? QStringLiteral(" stays") : QStringLiteral(" stay");
    return count == 0 ? QString() : shownCount(count, "protected item") + verb;
}

QString others(const UninstallerScan::Detail& detail) {
    const std::int64_t count =
        std::count_if(detail.origins.begin(), detail.origins.end(),
                      [](const LeftoverOrigin& origin) { return !origin.otherApps.empty(); });
    const QString verb =
        count == 1 ? QStringLiteral(" also matches") : QStringLiteral(" also match");
    return count == 0 ? QString()
                      : shownCount(count, "item") + verb + QStringLiteral(" other applications");
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
