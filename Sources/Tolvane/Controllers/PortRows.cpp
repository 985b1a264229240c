#include <HostKit/Collation.h>

#include <Controllers/PortRows.h>
#include <Controllers/ShownText.h>
#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>

namespace tolvane::PortRows {
namespace {

QString accessibleText(const PortListener& listener) {
    const std::string text = fmt::format("{}, PID {}, port {}, {}", listener.processName,
                                         listener.pid, listener.port, listener.addressSummary());
    return shownText(listener.isReachableFromNetwork() ? text + ", reachable from the network"
                                                       : text);
}

/// The key of each row is made once.
template <class Key>
void sortBy(std::vector<PortListener>& rows, bool isDescending, const Key& key) {
    std::vector<std::pair<decltype(key(rows.front())), PortListener>> keyed;
    keyed.reserve(rows.size());
    for (PortListener& row : rows) {
        auto rank = key(row);
        keyed.emplace_back(std::move(rank), std::move(row));
    }
    std::stable_sort(keyed.begin(), keyed.end(), [isDescending](const auto& a, const auto& b) {
        return isDescending ? b.first < a.first : a.first < b.first;
    });
    std::transform(keyed.begin(), keyed.end(), rows.begin(),
                   [](auto& pair) { return std::move(pair.second); });
}

}

std::vector<RecordModel<PortListener>::Role> roles() {
    using Row = const PortListener&;
    return {{"portID", [](Row row) { return idOf(row); }},
            {"portText", [](Row row) { return QString::number(row.port); }},
            {"processText", [](Row row) { return shownText(row.processName); }},
            {"pidText", [](Row row) { return QString::number(row.pid); }},
            {"addressesText", [](Row row) { return shownText(row.addressSummary()); }},
            {"executableText",
             [](Row row) { return shownText(row.executablePath.value_or(std::string())); }},
            {"hasExecutable", [](Row row) { return row.executablePath.has_value(); }},
            {"isReachable", [](Row row) { return row.isReachableFromNetwork(); }},
            {"accessibleText", [](Row row) { return accessibleText(row); }}};
}

QString idOf(const PortListener& listener) {
    return QString::fromStdString(listener.id());
}

void sort(std::vector<PortListener>& rows, Ui::PortKey key, bool isDescending) {
    switch (key) {
    case Ui::PortKey::Port:
        sortBy(rows, isDescending, [](const PortListener& row) { return row.port; });
        break;
    case Ui::PortKey::Process:
        sortBy(rows, isDescending, [order = Collation()](const PortListener& row) {
            return order.sortKey(row.processName);
        });
        break;
    case Ui::PortKey::Pid:
        sortBy(rows, isDescending, [](const PortListener& row) { return row.pid; });
        break;
    }
}

std::set<std::int32_t> processes(const std::vector<PortListener>& listeners) {
    std::set<std::int32_t> pids;
    for (const PortListener& listener : listeners) {
        pids.insert(listener.pid);
    }
    return pids;
}

}
