#include "Json.h"

#include "Base64.h"

#include <HostKit/Identifier.h>
#include <HostKit/Text.h>

#include <optional>

namespace tolvane {
namespace {

std::optional<std::string> textAt(const JSON& object, const std::string& key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_string()
               ? std::optional(found->get_ref<const std::string&>())
               : std::nullopt;
}

/// The absolute path under `key`; absent when there is no usable one.
std::optional<FileURL> pathAt(const JSON& object, const std::string& key) {
    std::optional<std::string> path = textAt(object, key);
    if (object.contains(key + "Bytes")) {
        const std::optional<std::string> bytes = textAt(object, key + "Bytes");
        path = bytes ? Base64::decoded(*bytes) : std::nullopt;
    }
    const bool isUsable = path && path->starts_with('/') && path->find('\0') == std::string::npos;
    return isUsable ? std::optional(FileURL(*path)) : std::nullopt;
}

}

void putPath(JSON& object, const std::string& key, std::string_view bytes) {
    object[key] = displayText(bytes);
    if (!isValidUTF8(bytes)) {
        object[key + "Bytes"] = Base64::encoded(bytes);
    }
}

JSON pathElement(std::string_view bytes) {
    if (isValidUTF8(bytes)) {
        return std::string(bytes);
    }
    JSON element = JSON::object();
    putPath(element, "path", bytes);
    return element;
}

JSON toJson(const FullDiskAccessStatus& status) {
    return {{"granted", status.granted},
            {"confirmed", status.confirmed},
            {"detail", status.detail},
            {"guidance", status.guidance()}};
}

JSON toJson(const InstalledApp& app) {
    JSON object = JSON::object();
    putPath(object, "id", app.id());
    putPath(object, "name", app.name);
    putPath(object, "bundleID", app.bundleID);
    putPath(object, "version", app.version);
    putPath(object, "teamID", app.teamID);
    putPath(object, "path", app.url.path());
    object["isSystem"] = app.isSystem;
    JSON& associated = object["associatedBundleIDs"] = JSON::array();
    for (const std::string& identifier : app.associatedBundleIDs) {
        associated.push_back(pathElement(identifier));
    }
    return object;
}

JSON toJson(const LeftoverItem& item) {
    JSON object = JSON::object();
    putPath(object, "id", item.id());
    putPath(object, "path", item.url.path());
    object["kind"] = item.kind;
    object["size"] = item.size;
    object["isProtected"] = item.isProtected;
    return object;
}

JSON toJson(const PortListener& listener) {
    JSON object = {{"id", listener.id()}, {"pid", listener.pid}};
    object["processName"] = listener.processName;
    object["executablePath"] = JSON();
    if (listener.executablePath) {
        putPath(object, "executablePath", *listener.executablePath);
    }
    object["port"] = listener.port;
    object["addresses"] = listener.addresses;
    object["protocolName"] = listener.protocolName;
    return object;
}

JSON toJson(const MemoryStats& memory) {
    return {{"total", memory.total},
            {"free", memory.free},
            {"active", memory.active},
            {"inactive", memory.inactive},
            {"wired", memory.wired},
            {"compressed", memory.compressed},
            {"purgeable", memory.purgeable},
            {"speculative", memory.speculative},
            {"swapTotal", memory.swapTotal},
            {"swapUsed", memory.swapUsed},
            {"pressureLevel", memory.pressureLevel},
            {"used", memory.used()},
            {"usedFraction", memory.usedFraction()},
            {"pressureLabel", memory.pressureLabel()}};
}

JSON toJson(const VolumeStats& volume) {
    JSON object = JSON::object();
    putPath(object, "name", volume.name);
    object["total"] = volume.total;
    object["available"] = volume.available;
    object["importantAvailable"] = volume.importantAvailable;
    object["opportunisticAvailable"] = volume.opportunisticAvailable;
    object["usedFraction"] = volume.usedFraction();
    return object;
}

JSON toJson(const HeavyProcess& process) {
    JSON object{{"pid", process.pid}};
    putPath(object, "name", process.name);
    object["rssBytes"] = process.rssBytes;
    object["cpuPercent"] = process.cpuPercent;
    putPath(object, "displayName", process.displayName());
    return object;
}

JSON toJson(const StartupAgent& agent) {
    JSON object = JSON::object();
    putPath(object, "id", agent.id());
    putPath(object, "label", agent.label);
    object["program"] = JSON();
    if (agent.program) {
        putPath(object, "program", *agent.program);
    }
    object["runAtLoad"] = agent.runAtLoad;
    putPath(object, "path", agent.url.path());
    object["scope"] = agent.scope;
    return object;
}

JSON toJson(const LocalSnapshot& snapshot) {
    return {{"id", snapshot.id()},
            {"date", snapshot.date},
            {"volume", snapshot.volume},
            {"purgeable", snapshot.purgeable ? JSON(*snapshot.purgeable) : JSON()}};
}

JSON toJson(const JunkCategory& category) {
    JSON object = JSON::object();
    putPath(object, "id", category.id());
    putPath(object, "name", category.name);
    putPath(object, "path", category.url.path());
    object["bytes"] = category.bytes;
    object["exists"] = category.exists();
    return object;
}

JSON toJson(const AppLeftoverSummary& summary) {
    return {{"app", toJson(summary.app)},
            {"leftovers", listOf(summary.leftovers)},
            {"bytes", summary.bytes()}};
}

JSON toJson(const RemovalReceipt& receipt) {
    JSON object = {{"id", text(receipt.id)}};
    putPath(object, "original", receipt.original.path());
    putPath(object, "trashed", receipt.trashed.path());
    return object;
}

Result<std::vector<RemovalReceipt>, std::string> receipts(std::string_view document) {
    constexpr bool throws = false;
    const JSON parsed = JSON::parse(document, nullptr, throws);
    if (parsed.is_discarded()) {
        return tl::unexpected(std::string("The receipts are not valid JSON"));
    }
    const auto list = parsed.find("receipts");
    if (list == parsed.end() || !list->is_array()) {
        return tl::unexpected(std::string("The document holds no list of receipts"));
    }
    std::vector<RemovalReceipt> result;
    for (const JSON& element : *list) {
        const std::optional<FileURL> original = pathAt(element, "original");
        const std::optional<FileURL> trashed = pathAt(element, "trashed");
        if (!original || !trashed) {
            return tl::unexpected(
                fmt::format("Receipt {} does not name two absolute paths", result.size() + 1));
        }
        result.push_back({freshIdentifier(), *original, *trashed});
    }
    return result;
}

void print(Output& out, const JSON& document) {
    constexpr int compact = -1;
    constexpr bool escapesAll = false;
    out.append(document.dump(compact, ' ', escapesAll, JSON::error_handler_t::replace));
    out.append("\n");
}

}
