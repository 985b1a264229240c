#pragma once

#include <HostKit/Checked.h>

#include <QString>
#include <cstdint>
#include <string_view>

namespace tolvane {

/// "1.2 GB"
QString shownSize(Bytes size);
/// "1,204"
QString shownNumber(std::int64_t number);
/// "1 folder", "1,204 folders"
QString shownCount(std::int64_t count, std::string_view noun);
/// "3 of 12 folders"; "12 folders" when that is all.
QString shownPart(std::int64_t shown, std::int64_t all, std::string_view noun);

}
