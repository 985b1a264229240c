#include <Services/ByteFormat.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace tolvane::ByteFormat {
namespace {

struct Unit {
    std::string_view name;
    std::uint64_t bytes;
    int digits;
};

constexpr std::array<Unit, 4> units{{{"KB", 1'000, 0},
                                     {"MB", 1'000'000, 1},
                                     {"GB", 1'000'000'000, 2},
                                     {"TB", 1'000'000'000'000, 2}}};
constexpr Unit fractionOfKilobyte{"KB", 1'000, 1};

constexpr std::uint64_t powerOfTen(int exponent) {
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

/// `magnitude` in steps of the unit's last digit, a half rounded up.
std::uint64_t steps(std::uint64_t magnitude, const Unit& unit) {
    const std::uint64_t step = unit.bytes / powerOfTen(unit.digits);
    return magnitude / step + (magnitude % step >= step / 2 ? 1 : 0);
}

const Unit& unitFor(std::uint64_t magnitude) {
    if (magnitude < units.front().bytes) {
        return fractionOfKilobyte;
    }
    for (const Unit& unit : units) {
        if (steps(magnitude, unit) < 1'000 * powerOfTen(unit.digits)) {
            return unit;
        }
    }
    return units.back();
}

std::string decimal(std::uint64_t value, int digits) {
    const std::uint64_t scale = powerOfTen(digits);
    std::string text = std::to_string(value / scale);
    std::uint64_t rest = value % scale;
    if (rest == 0) {
        return text;
    }
    std::string fraction = std::to_string(rest);
    fraction.insert(0, static_cast<std::size_t>(digits) - fraction.size(), '0');
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return text + '.' + fraction;
}

}

std::string text(Bytes bytes) {
    // Negated as unsigned: the smallest value has no positive twin.
    const auto unsignedBytes = static_cast<std::uint64_t>(bytes);
    const std::uint64_t magnitude = bytes < 0 ? 0 - unsignedBytes : unsignedBytes;
    const Unit& unit = unitFor(magnitude);
    const std::uint64_t value = steps(magnitude, unit);

    std::string result = bytes < 0 && value > 0 ? "-" : "";
    result += decimal(value, unit.digits);
    result += ' ';
    result += unit.name;
    return result;
}

}
