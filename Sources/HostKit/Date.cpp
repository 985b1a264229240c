#include <HostKit/Date.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace tolvane {
namespace {

constexpr std::int64_t secondsPerDay = 86400;
constexpr double yearZero = -62167219200.0;
constexpr double endOfYear9999 = 253402300799.0;

void appendPadded(std::string& text, std::int64_t value, int width) {
    const std::string digits = std::to_string(value);
    text.append(static_cast<std::size_t>(std::max(0, width - static_cast<int>(digits.size()))),
                '0');
    text += digits;
}

}

Date now() {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceEpoch).count();
}

std::string iso8601(Date date) {
    const double bounded = std::isnan(date) ? 0 : std::clamp(date, yearZero, endOfYear9999);
    const auto seconds = static_cast<std::int64_t>(std::floor(bounded));
    std::int64_t dayNumber = seconds / secondsPerDay;
    std::int64_t secondOfDay = seconds % secondsPerDay;
    if (secondOfDay < 0) {
        dayNumber -= 1;
        secondOfDay += secondsPerDay;
    }
    const std::chrono::sys_days days{std::chrono::days{dayNumber}};
    const std::chrono::year_month_day calendar{days};

    std::string text;
    text.reserve(20);
    appendPadded(text, static_cast<int>(calendar.year()), 4);
    text += '-';
    appendPadded(text, static_cast<unsigned>(calendar.month()), 2);
    text += '-';
    appendPadded(text, static_cast<unsigned>(calendar.day()), 2);
    text += 'T';
    appendPadded(text, secondOfDay / 3600, 2);
    text += ':';
    appendPadded(text, secondOfDay / 60 % 60, 2);
    text += ':';
    appendPadded(text, secondOfDay % 60, 2);
    text += 'Z';
    return text;
}

}
