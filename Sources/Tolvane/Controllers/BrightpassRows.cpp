#include <Controllers/BrightpassRows.h>
#include <Controllers/ScanTexts.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>

namespace tolvane::BrightpassRows {
namespace {

constexpr std::size_t mostGroups = 200;

double shareOf(Bytes bytes, Bytes total) {
    return total > 0 ? static_cast<double>(bytes) / static_cast<double>(total) : 0;
}

BrightpassRow part(const char* name, Bytes bytes, Bytes total) {
    return {.name = QString::fromUtf8(name),
            .note = {},
            .sizeText = shownSize(bytes),
            .share = shareOf(bytes, total)};
}

}

std::vector<RecordModel<BrightpassRow>::Role> roles() {
    using Row = BrightpassRow;
    return {{"name", [](const Row& row) { return row.name; }},
            {"note", [](const Row& row) { return row.note; }},
            {"sizeText", [](const Row& row) { return row.sizeText; }},
            {"share", [](const Row& row) { return row.share; }},
            {"isThere", [](const Row& row) { return row.isThere; }},
            {"accessibleText",
             [](const Row& row) {
                 return QStringList{row.name, row.sizeText, row.note}.join(QStringLiteral(", "));
             }},
            {"title", [](const Row& row) { return row.name; }},
            {"figure", [](const Row& row) { return row.sizeText; }}};
}

QString key(const BrightpassRow& row) {
    return row.name;
}

std::vector<BrightpassRow> junk(const BrightpassReport& report) {
    const Bytes total = report.junkBytes();
    std::vector<BrightpassRow> rows;
    rows.reserve(report.junk.size());
    for (const JunkCategory& category : report.junk) {
        rows.push_back(
            {.name = shownText(category.name),
             .note = shownPath(category.url),
             .sizeText = category.exists() ? shownSize(category.bytes) : QStringLiteral("Nothing"),
             .share = shareOf(category.bytes, total),
             .isThere = category.exists()});
    }
    return rows;
}

std::vector<BrightpassRow> apps(const BrightpassReport& report) {
    const Bytes total = report.leftoverBytes();
    std::vector<BrightpassRow> rows;
    rows.reserve(report.apps.size());
    for (const AppLeftoverSummary& summary : report.apps) {
        rows.push_back({.name = shownText(summary.app.name),
                        .note = shownCount(std::ssize(summary.leftovers), "item"),
                        .sizeText = shownSize(summary.bytes()),
                        .share = shareOf(summary.bytes(), total)});
    }
    return rows;
}

std::vector<BrightpassRow> duplicates(const BrightpassReport& report) {
    std::vector<BrightpassRow> rows;
    if (!report.duplicates) {
        return rows;
    }
    const Bytes total = report.duplicateBytes();
    const std::vector<DuplicateGroup>& groups = report.duplicates->groups;
    for (std::size_t i = 0; i < std::min(groups.size(), mostGroups); ++i) {
        rows.push_back({.name = shownText(groups[i].files.front().url.lastPathComponent()),
                        .note = shownCount(std::ssize(groups[i].files), "file") +
                                QStringLiteral(" of ") + shownSize(groups[i].size),
                        .sizeText = shownSize(groups[i].wastedBytes()),
                        .share = shareOf(groups[i].wastedBytes(), total)});
    }
    return rows;
}

std::vector<BrightpassRow> parts(const BrightpassReport& report) {
    const Bytes total = report.reclaimableBytes();
    return {part("Junk", report.junkBytes(), total),
            part("Leftovers", report.leftoverBytes(), total),
            part("Duplicates", report.duplicateBytes(), total)};
}

QString headline(const BrightpassReport& report) {
    return QStringLiteral("Up to %1 can be reclaimed").arg(shownSize(report.reclaimableBytes()));
}

QString elapsed(const BrightpassReport& report, bool isPartial) {
    const QString verb =
        isPartial ? QStringLiteral("Stopped after ") : QStringLiteral("Checked in ");
    return verb + spanText(report.duration);
}

QString appsSummary(const BrightpassReport& report, bool isPartial) {
    return report.apps.empty()
               ? isPartial ? QStringLiteral("None so far") : QStringLiteral("Nothing was found")
               : shownCount(std::ssize(report.apps), "application");
}

QString duplicatesSummary(const BrightpassReport& report, bool isPartial) {
    if (!report.duplicates) {
        return QStringLiteral("Not looked for");
    }
    const QString place = ScanTexts::name(report.duplicates->root);
    const QString none = isPartial ? QStringLiteral("None so far in ") : QStringLiteral("None in ");
    return report.duplicates->groups.empty()
               ? none + place
               : shownCount(std::ssize(report.duplicates->groups), "group") +
                     QStringLiteral(" in ") + place;
}

}
