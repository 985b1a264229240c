#include "PerformanceReport.h"

#include "Json.h"
#include "ShownText.h"
#include "Table.h"

#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

namespace tolvane {
namespace {

using enum Alignment;

void printSection(Console& console, const std::string& title) {
    console.out().format("\n{}\n", console.styled(Style::strong, title));
}

void printMemory(Console& console, const std::optional<MemoryStats>& memory) {
    if (!memory) {
        console.out().append("Memory   unknown\n");
        return;
    }
    console.out().format("Memory   {} of {} used ({}), pressure: {}\n",
                         ByteFormat::text(memory->used()), ByteFormat::text(memory->total),
                         CountFormat::percent(memory->usedFraction()), memory->pressureLabel());
    console.out().format("         free {}, active {}, inactive {}, wired {}, compressed {}, "
                         "purgeable {}\n",
                         ByteFormat::text(memory->free), ByteFormat::text(memory->active),
                         ByteFormat::text(memory->inactive), ByteFormat::text(memory->wired),
                         ByteFormat::text(memory->compressed), ByteFormat::text(memory->purgeable));
    if (memory->swapTotal > 0) {
        console.out().format("Swap     {} of {} used\n", ByteFormat::text(memory->swapUsed),
                             ByteFormat::text(memory->swapTotal));
    }
}

void printVolume(Console& console, const std::optional<VolumeStats>& volume) {
    if (!volume) {
        console.out().append("Volume   unknown\n");
        return;
    }
    console.out().format("Volume   {}: {} of {} available ({} used)\n", shownText(volume->name),
                         ByteFormat::text(volume->available), ByteFormat::text(volume->total),
                         CountFormat::percent(volume->usedFraction()));
}

void printProcesses(Console& console, const std::vector<HeavyProcess>& processes) {
    printSection(console, "Processes that take the most memory");
    Table table({right, right, right, left});
    table.add({"MEMORY", "CPU", "PID", "PROCESS"});
    for (const HeavyProcess& process : processes) {
        table.add({ByteFormat::text(process.rssBytes), fmt::format("{:.1f} %", process.cpuPercent),
                   std::to_string(process.pid), shownText(process.displayName())});
    }
    console.out().append(table.text());
}

void printAgents(Console& console, const std::vector<StartupAgent>& agents) {
    printSection(console, "Started by itself: " + CountFormat::counted(std::ssize(agents), "item"));
    Table table({left, left, left, left});
    for (const StartupAgent& agent : agents) {
        table.add({agent.runAtLoad ? "at once" : "on demand", agent.scope, shownText(agent.label),
                   shownText(agent.program.value_or("-"))});
    }
    console.out().append(table.text());
}

void printSnapshots(Console& console, const SnapshotInventory& snapshots) {
    printSection(console, "Local snapshots: " + std::to_string(snapshots.count()));
    Table table({left, left, left});
    for (const LocalSnapshot& snapshot : snapshots.all()) {
        table.add({snapshot.date, shownText(snapshot.volume),
                   snapshot.purgeable.value_or(false) ? "may be deleted" : "kept"});
    }
    console.out().append(table.text());
}

}

void printAsJson(Output& out, const PerformanceReport& report) {
    print(out, JSON{{"memory", orNull(report.memory)},
                    {"volume", orNull(report.volume)},
                    {"processes", listOf(report.processes)},
                    {"agents", listOf(report.agents)},
                    {"snapshots",
                     {{"system", listOf(report.snapshots.system)},
                      {"data", listOf(report.snapshots.data)}}}});
}

void printAsText(Console& console, const PerformanceReport& report) {
    printMemory(console, report.memory);
    printVolume(console, report.volume);
    printProcesses(console, report.processes);
    printAgents(console, report.agents);
    printSnapshots(console, report.snapshots);
}

}
