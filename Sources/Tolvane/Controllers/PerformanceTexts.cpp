#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/PerformanceTexts.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <algorithm>

namespace tolvane::PerformanceTexts {
namespace {

QString usedOf(Bytes used, Bytes total, double fraction) {
    return shownText(fmt::format("{} of {} used ({})", ByteFormat::text(used),
                                 ByteFormat::text(total), percent(fraction)));
}

std::string counted(std::size_t count, std::string_view noun) {
    return CountFormat::counted(static_cast<std::int64_t>(count), noun);
}

}

std::string percent(double fraction) {
    return fmt::format("{:.0f} %", 100 * fraction);
}

QString size(Bytes bytes) {
    return shownText(ByteFormat::text(bytes));
}

QString used(const MemoryStats& memory) {
    return usedOf(memory.used(), memory.total, memory.usedFraction());
}

QString used(const VolumeStats& volume) {
    return usedOf(std::max<Bytes>(difference(volume.total, volume.available), 0), volume.total,
                  volume.usedFraction());
}

QString available(const VolumeStats& volume) {
    std::string text = ByteFormat::text(volume.available) + " available";
    if (volume.importantAvailable > volume.available) {
        text += ", " + ByteFormat::text(volume.importantAvailable) + " when it is important";
    }
    return shownText(text);
}

QString swap(const MemoryStats& memory) {
    return memory.swapTotal == 0 ? QStringLiteral("None")
                                 : shownText(ByteFormat::text(memory.swapUsed) + " of " +
                                             ByteFormat::text(memory.swapTotal));
}

QString history(const MemoryHistory& history) {
    const auto least = history.least();
    const auto most = history.most();
    if (!least || !most) {
        return QStringLiteral("The use of memory is not known");
    }
    const std::string from = percent(*least);
    const std::string to = percent(*most);
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
    const auto atOnce = static_cast<std::size_t>(std::count_if(
        agents.begin(), agents.end(), [](const auto& agent) { return agent.runAtLoad; }));
    if (agents.empty()) {
        return QStringLiteral("Nothing starts by itself");
    }
    return shownText(counted(agents.size(), "item") + ", " +
                     CountFormat::grouped(static_cast<std::int64_t>(atOnce)) +
                     " of them started at log-in or boot");
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
    const auto purgeable =
        static_cast<std::int64_t>(std::count_if(all.begin(), all.end(), [](const auto& snapshot) {
            return snapshot.purgeable.value_or(false);
        }));
    return shownText(counted(all.size(), "snapshot") + ", " + CountFormat::grouped(purgeable) +
                     " of them purgeable");
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
