#pragma once

#include "Output.h"

#include <CleanupKit/RemovalReceipt.h>
#include <HostKit/FileURL.h>
#include <HostKit/Result.h>
#include <PortKit/PortListener.h>
#include <ScanKit/FullDiskAccess.h>
#include <UninstallerKit/InstalledApp.h>
#include <UninstallerKit/LeftoverItem.h>

#include <nlohmann/json.hpp>

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
JSON toJson(const RemovalReceipt& receipt);

/// The receipts of a document that `trash` printed, or what is wrong with it. Bytes go before text.
Result<std::vector<RemovalReceipt>, std::string> receipts(std::string_view document);

/// Prints the one document of a command.
void print(Output& out, const JSON& document);

}
