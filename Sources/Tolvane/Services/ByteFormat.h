#pragma once

#include <HostKit/Checked.h>
#include <HostKit/Result.h>

#include <string>
#include <string_view>

/// The one way in which sizes are shown and typed.
namespace tolvane::ByteFormat {

/// "1.5 MB": decimal units from KB to TB, rounded half away from zero to 0 (KB), 1 (MB) or 2 (GB,
/// TB) digits, trailing zeros dropped; what rounds to 1,000 takes the next unit. Below 1,000 bytes
/// one digit is shown ("0.5 KB"). Always a point, whatever the locale.
std::string text(Bytes bytes);

/// The size that a person typed: "1 MB", "1.5gb", "500 K", "1 MiB" (1,048,576 bytes), "2,048" or
/// "2048 bytes"; units in any case, a point before fractions of a unit. What is none, is negative
/// or beyond all disks is an error in one sentence.
Result<Bytes, std::string> parse(std::string_view text);

/// The shortest of these that `parse` takes for the very same size: "1.5 MB", "1 MiB",
/// "1,048,577 bytes".
std::string exactText(Bytes bytes);

}
