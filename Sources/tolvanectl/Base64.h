#pragma once

#include <optional>
#include <string>
#include <string_view>

/// RFC 4648, section 4.
namespace tolvane::Base64 {

std::string encoded(std::string_view bytes);
/// Absent for anything that `encoded` does not make.
std::optional<std::string> decoded(std::string_view text);

}
