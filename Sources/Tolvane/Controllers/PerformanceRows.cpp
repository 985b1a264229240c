#include <Controllers/PerformanceRows.h>
#include <Controllers/PerformanceTexts.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <QStringList>
#include <algorithm>
#include <string_view>

namespace tolvane::PerformanceRows {
namespace {

QString spoken(const QStringList& texts) {
    return texts.join(QStringLiteral(", "));
}

QString cpu(const ListedProcess& listed) {
    return shownText(fmt::format("{:.1f} %", listed.process.cpuPercent));
}

FigureRow part(const char* title, Bytes bytes, Bytes total) {
    return {.title = QString::fromUtf8(title),
            .figure = shownSize(bytes),
            .share = total > 0 ? static_cast<double>(bytes) / static_cast<double>(total) : 0};
}

FigureRow figure(const char* title, Bytes bytes) {
    return part(title, bytes, 0);
}

}

std::vector<RecordModel<FigureRow>::Role> figureRoles() {
    using Row = const FigureRow&;
    return {{"title", [](Row row) { return row.title; }},
            {"figure", [](Row row) { return row.figure; }},
            {"share", [](Row row) { return row.share; }},
            {"isAlarming", [](Row row) { return row.isAlarming; }}};
}

std::vector<RecordModel<ListedProcess>::Role> processRoles() {
    using Row = const ListedProcess&;
    const auto name = [](Row row) { return shownText(row.process.displayName()); };
    const auto pid = [](Row row) { return QString::number(row.process.pid); };
    const auto size = [](Row row) { return shownSize(row.process.rssBytes); };
    return {{"processID", [](Row row) { return idOf(row); }},
            {"nameText", name},
            {"fullName", [](Row row) { return shownText(row.process.name); }},
            {"pidText", pid},
            {"sizeText", size},
            {"share", [](Row row) { return row.share; }},
            {"cpuText", cpu},
            {"accessibleText", [=](Row row) {
                 return spoken({name(row), "PID " + pid(row), size(row), cpu(row) + " CPU"});
             }}};
}

std::vector<RecordModel<StartupAgent>::Role> agentRoles() {
    using Row = const StartupAgent&;
    return {{"labelText", [](Row row) { return shownText(row.label); }},
            {"startText", PerformanceTexts::start},
            {"isAtOnce", [](Row row) { return row.runAtLoad; }},
            {"scopeText", PerformanceTexts::scope},
            {"programText", [](Row row) { return shownText(row.program.value_or(std::string())); }},
            {"pathText", [](Row row) { return shownPath(row.url); }},
            {"accessibleText", [](Row row) {
                 return spoken({shownText(row.label), PerformanceTexts::start(row),
                                PerformanceTexts::scope(row), shownPath(row.url)});
             }}};
}

std::vector<RecordModel<LocalSnapshot>::Role> snapshotRoles() {
    using Row = const LocalSnapshot&;
    const auto volume = [](Row row) { return shownText(row.volume); };
    const auto purgeable = [](Row row) {
        return row.purgeable.value_or(false) ? QStringLiteral("Purgeable") : QStringLiteral("Kept");
    };
    return {{"dateText", PerformanceTexts::date},
            {"volumeText", volume},
            {"purgeableText", purgeable},
            {"accessibleText", [=](Row row) {
                 return spoken({PerformanceTexts::date(row), volume(row), purgeable(row)});
             }}};
}

std::vector<RecordModel<MaintenanceRow>::Role> maintenanceRoles() {
    using Row = const MaintenanceRow&;
    return {{"actionKey", [](Row row) { return row.key; }},
            {"title", [](Row row) { return row.title; }},
            {"note", [](Row row) { return row.note; }},
            {"actionText", [](Row row) { return row.actionText; }},
            {"statusText", [](Row row) { return row.statusText; }},
            {"isRunning", [](Row row) { return row.isRunning; }},
            {"hasFailed", [](Row row) { return row.hasFailed; }},
            {"isAvailable", [](Row row) { return row.isAvailable; }}};
}

QString idOf(const ListedProcess& listed) {
    return QString::number(listed.process.pid) + "-" +
           QString::number(listed.startTime.value_or(StartTime{0}));
}

std::vector<FigureRow> memoryParts(const std::optional<MemoryStats>& memory) {
    if (!memory) {
        return {};
    }
    // The counters are taken one after the other, and some of them count the same page.
    const Bytes used = memory->used();
    const Bytes wired = std::clamp<Bytes>(memory->wired, 0, used);
    const Bytes compressed = std::clamp<Bytes>(memory->compressed, 0, difference(used, wired));
    const Bytes programs = difference(used, sum(wired, compressed));
    const Bytes reclaimable =
        std::clamp<Bytes>(sum(memory->inactive, memory->speculative), 0,
                          std::max<Bytes>(difference(memory->total, used), 0));
    return {part("Programs", programs, memory->total), part("Wired", wired, memory->total),
            part("Compressed", compressed, memory->total),
            part("Reclaimable", reclaimable, memory->total)};
}

std::vector<FigureRow> memoryFigures(const std::optional<MemoryStats>& memory) {
    if (!memory) {
        return {};
    }
    constexpr std::int32_t warning = 2;
    return {{.title = QStringLiteral("Pressure"),
             .figure = shownText(memory->pressureLabel()),
             .isAlarming = memory->pressureLevel >= warning},
            figure("Available", memory->available()),
            figure("Free", memory->free),
            figure("Active", memory->active),
            figure("Purgeable", memory->purgeable),
            {.title = QStringLiteral("Swap used"), .figure = PerformanceTexts::swap(*memory)}};
}

std::vector<MaintenanceRow> maintenance(const std::map<std::string, std::string>& statuses,
                                        const std::set<std::string>& failed,
                                        const std::string& running) {
    std::vector<MaintenanceRow> rows{
        {"purge", "Free memory", "Empties the disk buffers. Asks for an administrator's password.",
         "Free memory"},
        {"own", "Release Tolvane's own memory",
         "Gives what this program holds free back to the system.", "Release"},
        {"dns", "Flush the resolver cache",
         "Forgets the addresses of host names, so that they are looked up anew.", "Flush"},
        {"ls", "Rebuild Launch Services",
         "Makes the table anew that tells which application opens which file.", "Rebuild"},
        {"spotlight", "Rebuild the search index",
         "Starts the index of file contents over, which keeps the disk busy for a while.",
         "Reindex"},
        {"snapshots", "Thin local snapshots",
         "Lets the system delete snapshots. Asks for an administrator's password.", "Thin"}};
    for (MaintenanceRow& row : rows) {
        const auto status = statuses.find(row.key.toStdString());
        row.isRunning = row.key.toStdString() == running;
        row.hasFailed = failed.contains(row.key.toStdString());
        row.isAvailable = running.empty() || row.key == "own";
        row.statusText = status != statuses.end() ? shownLines(status->second)
                         : row.isRunning          ? QString::fromUtf8(PerformanceTexts::running)
                                                  : QString();
    }
    return rows;
}

}
