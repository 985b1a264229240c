#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/PerformanceTexts.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <algorithm>

namespace tolvane::PerformanceTexts {
QString used(const MemoryStats& memory) {
    return shownText(fmt::format("{} of {} used ({})", ByteFormat::text(memory.used()),
                                 ByteFormat::text(memory.total),
                                 CountFormat::percent(memory.usedFraction())));
}

QString available(const VolumeStats& volume) {
    return shownText(fmt::format("{} of {} available ({} used)", ByteFormat::text(volume.available),
                                 ByteFormat::text(volume.total),
                                 CountFormat::percent(volume.usedFraction())));
}

QString availableNote(const VolumeStats& volume) {
    return volume.importantAvailable > volume.available
               ? shownSize(volume.importantAvailable) + QStringLiteral(" when it is important")
               : QStringLiteral("What is kept for the system counts as used");
}

QString swap(const MemoryStats& memory) {
    return memory.swapTotal == 0
               ? QStringLiteral("None")
               : shownSize(memory.swapUsed) + QStringLiteral(" of ") + shownSize(memory.swapTotal);
}

QString history(const MemoryHistory& history) {
    const auto least = history.least();
    const auto most = history.most();
    if (!least || !most) {
        return QStringLiteral("The use of memory is not known");
    }
    const std::string from = CountFormat::percent(*least);
    const std::string to = CountFormat::percent(*most);
    return shownText(from == to
                         ? fmt::format("{} of the memory was used over the last five minutes", to)
                         : fmt::format("Between {} and {} of the memory was used over the last "
                                       "five minutes",
                                       from, to));
}

QString quitQuestion(const HeavyProcess& process) {
    return shownText(fmt::format("{} (PID {}) is using {}. Unsaved work may be lost.",
                                 process.displayName(), process.pid,
                                 ByteFormat::text(process.rssBytes)));
}

QString agents(const std::vector<StartupAgent>& agents) {
    if (agents.empty()) {
        return QStringLiteral("Nothing starts by itself");
    }
    const auto atOnce = std::count_if(agents.begin(), agents.end(),
                                      [](const auto& agent) { return agent.runAtLoad; });
    return QStringLiteral("%1, %2 of them started at log-in or boot")
        .arg(shownCount(std::ssize(agents), "item"), shownNumber(atOnce));
}

QString start(const StartupAgent& agent) {
    return !agent.runAtLoad          ? QStringLiteral("On demand")
           : agent.scope == "daemon" ? QStringLiteral("At boot")
                                     : QStringLiteral("At log-in");
}

QString scope(const StartupAgent& agent) {
    return agent.scope == "user"     ? QStringLiteral("This user")
           : agent.scope == "system" ? QStringLiteral("Every user")
                                     : QStringLiteral("System");
}

QString snapshots(const SnapshotInventory& inventory) {
    const std::vector<LocalSnapshot> all = inventory.all();
    if (all.empty()) {
        return QStringLiteral("None are kept on this disk");
    }
    const auto purgeable = std::count_if(all.begin(), all.end(), [](const auto& snapshot) {
        return snapshot.purgeable.value_or(false);
    });
    return QStringLiteral("%1, %2 of them purgeable")
        .arg(shownCount(std::ssize(all), "snapshot"), shownNumber(purgeable));
}

QString date(const LocalSnapshot& snapshot) {
    constexpr std::size_t stampLength = 17;
    const std::string& stamp = snapshot.date;
    return shownText(stamp.size() != stampLength ? stamp
                                                 : stamp.substr(0, 10) + " " + stamp.substr(11, 2) +
                                                       ":" + stamp.substr(13, 2));
}

std::string released(Bytes released, Bytes gained) {
    return "Released " + ByteFormat::text(released) +
           " from Tolvane's allocator · system available " +
           ByteFormat::text(std::max<Bytes>(gained, 0));
}

}
