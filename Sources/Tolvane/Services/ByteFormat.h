#pragma once

#include <HostKit/Checked.h>

#include <string>

/// The one way in which sizes are shown.
namespace tolvane::ByteFormat {

/// "1.5 MB": decimal units from KB to TB, rounded half away from zero to 0 (KB), 1 (MB) or 2 (GB,
/// TB) digits, trailing zeros dropped; what rounds to 1,000 takes the next unit. Below 1,000 bytes
/// one digit is shown ("0.5 KB"). Always a point, whatever the locale.
std::string text(Bytes bytes);

}
