#pragma once

#include "Output.h"

#include <CleanupKit/RemovalReceipt.h>
#include <HostKit/FileURL.h>
#include <HostKit/Result.h>
#include <PerformanceKit/HeavyProcess.h>
#include <PerformanceKit/LocalSnapshot.h>
#include <PerformanceKit/MemoryStats.h>
#include <PerformanceKit/StartupAgent.h>
#include <PerformanceKit/VolumeStats.h>
#include <PortKit/PortListener.h>
#include <ScanKit/FullDiskAccess.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>

#include <BrightpassKit/BrightpassReport.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Keys stay in the order in which they were put.
using JSON = nlohmann::ordered_json;

/// Puts a path or a name: as text, and beside it as Base64 under `key` + "Bytes" where the text
/// does not tell the bytes.
void putPath(JSON& object, const std::string& key, std::string_view bytes);
/// A path as an element of a plain list: its text, or an object of both forms.
JSON pathElement(std::string_view bytes);

JSON toJson(const FullDiskAccessStatus& status);
JSON toJson(const InstalledApp& app);
JSON toJson(const LeftoverItem& item);
JSON toJson(const PortListener& listener);
JSON toJson(const MemoryStats& memory);
JSON toJson(const VolumeStats& volume);
JSON toJson(const HeavyProcess& process);
JSON toJson(const StartupAgent& agent);
JSON toJson(const LocalSnapshot& snapshot);
JSON toJson(const JunkCategory& category);
JSON toJson(const AppLeftoverSummary& summary);
JSON toJson(const RemovalReceipt& receipt);

/// What `toJson` makes of each.
template <class Record>
JSON listOf(const std::vector<Record>& records) {
    JSON list = JSON::array();
    for (const Record& record : records) {
        list.push_back(toJson(record));
    }
    return list;
}

template <class Record>
JSON orNull(const std::optional<Record>& record) {
    return record ? toJson(*record) : JSON();
}

/// The receipts of a document that `trash` printed, or what is wrong with it. Bytes go before text.
Result<std::vector<RemovalReceipt>, std::string> receipts(std::string_view document);

/// Prints the one document of a command.
void print(Output& out, const JSON& document);

}
