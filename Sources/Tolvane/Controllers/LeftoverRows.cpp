#include <Controllers/LeftoverRows.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace tolvane::LeftoverRows {
namespace {

/// All leftovers of one kind.
struct Group {
    std::vector<std::size_t> positions;
    Bytes size = 0;
};

QString certaintyText(const ShownLeftover& leftover) {
    return leftover.origin.certainty == LeftoverOrigin::Certainty::exact
               ? QStringLiteral("Exact name")
               : QStringLiteral("By name");
}

QString protectedText(const ShownLeftover& leftover) {
    return leftover.item.isProtected
               ? QStringLiteral("Protected: belongs to the system and stays where it is")
               : QString();
}

/// Whether it could be removed but may be another application's.
bool isDoubtful(const ShownLeftover& leftover) {
    return !leftover.item.isProtected && !leftover.origin.otherApps.empty();
}

QString remark(const ShownLeftover& leftover) {
    return leftover.item.isProtected ? protectedText(leftover)
           : isDoubtful(leftover)    ? othersText(leftover.origin)
                                     : certaintyText(leftover);
}

QString remarkIcon(const ShownLeftover& leftover) {
    return leftover.item.isProtected ? QStringLiteral("changes-prevent")
           : isDoubtful(leftover)    ? QStringLiteral("dialog-warning")
                                     : QString();
}

QString accessibleText(const ShownLeftover& leftover) {
    QStringList parts{shownText(leftover.item.kind), shownPath(leftover.item.url),
                      shownSize(leftover.item.size), certaintyText(leftover)};
    for (const QString& part : {othersText(leftover.origin), protectedText(leftover)}) {
        if (!part.isEmpty()) {
            parts.append(part);
        }
    }
    return parts.join(QStringLiteral(", "));
}

QString groupText(const std::string& kind, const Group& group) {
    return QStringLiteral("%1: %2, %3")
        .arg(shownText(kind), shownCount(std::ssize(group.positions), "item"),
             shownSize(group.size));
}

}

std::vector<RecordModel<ShownLeftover>::Role> roles() {
    using Row = const ShownLeftover&;
    return {{"kind", [](Row row) { return shownText(row.item.kind); }},
            {"groupText", [](Row row) { return row.groupText; }},
            {"name", [](Row row) { return shownText(row.item.url.lastPathComponent()); }},
            {"pathText", [](Row row) { return shownPath(row.item.url); }},
            {"sizeText", [](Row row) { return shownSize(row.item.size); }},
            {"remark", remark},
            {"remarkIcon", remarkIcon},
            {"isDoubtful", isDoubtful},
            {"isProtected", [](Row row) { return row.item.isProtected; }},
            {"accessibleText", accessibleText}};
}

std::vector<ShownLeftover> grouped(const std::vector<LeftoverItem>& items,
                                   const std::vector<LeftoverOrigin>& origins) {
    std::map<std::string, Group> byKind;
    for (std::size_t i = 0; i < items.size(); ++i) {
        Group& group = byKind[items[i].kind];
        group.positions.push_back(i);
        add(group.size, items[i].size);
    }
    std::vector<std::pair<std::string, Group>> groups(byKind.begin(), byKind.end());
    std::stable_sort(groups.begin(), groups.end(),
                     [](const auto& a, const auto& b) { return a.second.size > b.second.size; });
    std::vector<ShownLeftover> rows;
    rows.reserve(items.size());
    for (const auto& [kind, group] : groups) {
        for (const std::size_t position : group.positions) {
            rows.push_back({items[position], origins[position], groupText(kind, group)});
        }
    }
    return rows;
}

QString othersText(const LeftoverOrigin& origin) {
    constexpr qsizetype named = 3;
    QStringList names;
    for (const std::string& name : origin.otherApps) {
        if (names.size() == named) {
            break;
        }
        names.append(shownText(name));
    }
    if (names.empty()) {
        return {};
    }
    const auto more = static_cast<std::int64_t>(origin.otherApps.size()) - names.size();
    const QString rest =
        more > 0 ? QStringLiteral(" and %1 more").arg(shownNumber(more)) : QString();
    return QStringLiteral("Also matches ") + names.join(QStringLiteral(", ")) + rest;
}

QString keyOf(const ShownLeftover& leftover) {
    return QString::fromLatin1(leftover.item.id());
}

}
