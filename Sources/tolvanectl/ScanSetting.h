#pragma once

#include <HostKit/Result.h>
#include <ScanKit/ScanOptions.h>

#include <string>
#include <string_view>

namespace tolvane {

/// Carries `FIELD=VALUE` out on the field of that name; the error says what is wrong with it.
/// Prefixes are taken as they stand, separated by commas.
Result<void, std::string> applySetting(ScanOptions& options, std::string_view setting);

}
