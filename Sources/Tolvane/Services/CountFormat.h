#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The one way in which numbers of things are shown, whatever the locale.
namespace tolvane::CountFormat {

/// "1,204".
std::string grouped(std::int64_t count);

/// "1 folder", "1,204 folders".
std::string counted(std::int64_t count, std::string_view noun);

/// "57 %" of 0.57.
std::string percent(double fraction);

}
