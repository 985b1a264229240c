#include <Services/CountFormat.h>

#include <cmath>

namespace tolvane::CountFormat {

std::string grouped(std::int64_t count) {
    std::string digits = std::to_string(count);
    constexpr std::size_t groupSize = 3;
    const std::size_t first = digits.front() == '-' ? 1 : 0;
    for (std::size_t i = digits.size(); i > first + groupSize;) {
        i -= groupSize;
        digits.insert(i, 1, ',');
    }
    return digits;
}

std::string counted(std::int64_t count, std::string_view noun) {
    return grouped(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

std::string percent(double fraction) {
    return std::to_string(std::lround(100 * fraction)) + " %";
}

}
