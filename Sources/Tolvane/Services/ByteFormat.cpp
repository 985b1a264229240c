#include <HostKit/Lines.h>
#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
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

struct TypedUnit {
    std::string_view name;
    Bytes bytes;
};

constexpr std::array<TypedUnit, 16> typedUnits{{{"", 1},
                                                {"B", 1},
                                                {"BYTE", 1},
                                                {"BYTES", 1},
                                                {"K", 1'000},
                                                {"KB", 1'000},
                                                {"KIB", 1LL << 10},
                                                {"M", 1'000'000},
                                                {"MB", 1'000'000},
                                                {"MIB", 1LL << 20},
                                                {"G", 1'000'000'000},
                                                {"GB", 1'000'000'000},
                                                {"GIB", 1LL << 30},
                                                {"T", 1'000'000'000'000},
                                                {"TB", 1'000'000'000'000},
                                                {"TIB", 1LL << 40}}};
/// Names as they are written, the largest first.
constexpr std::array<TypedUnit, 4> binaryUnits{
    {{"TiB", 1LL << 40}, {"GiB", 1LL << 30}, {"MiB", 1LL << 20}, {"KiB", 1LL << 10}}};

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Takes the digits that `text` begins with off it.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

/// Takes a whole number off `text`, commas between its thousands or none; empty when there is none.
std::string takeWhole(std::string_view& text) {
    constexpr std::size_t groupSize = 3;
    std::string whole(takeDigits(text));
    const bool mayBeGrouped = !whole.empty() && whole.size() <= groupSize;
    while (mayBeGrouped && text.starts_with(',')) {
        std::string_view rest = text.substr(1);
        const std::string_view group = takeDigits(rest);
        if (group.size() != groupSize) {
            return {};
        }
        whole += group;
        text = rest;
    }
    return whole;
}

std::optional<Bytes> unitNamed(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    const auto found = std::find_if(typedUnits.begin(), typedUnits.end(),
                                    [&](const TypedUnit& unit) { return unit.name == upper; });
    return found == typedUnits.end() ? std::nullopt : std::optional(found->bytes);
}

/// `whole` in `unit`; absent when that is beyond what can be counted.
std::optional<Bytes> inUnit(std::string_view whole, Bytes unit) {
    Bytes value = 0;
    for (const char digit : whole) {
        if (__builtin_mul_overflow(value, Bytes{10}, &value) ||
            __builtin_add_overflow(value, Bytes{digit - '0'}, &value)) {
            return std::nullopt;
        }
    }
    return __builtin_mul_overflow(value, unit, &value) ? std::nullopt : std::optional(value);
}

/// Of digits behind the point; those beyond the precision of all units are not looked at.
Bytes fractionOf(std::string_view digits, Bytes unit) {
    constexpr std::size_t most = 15;
    double fraction = 0;
    double place = 1;
    for (const char digit : digits.substr(0, most)) {
        place *= 10;
        fraction = fraction * 10 + (digit - '0');
    }
    return std::llround(fraction / place * static_cast<double>(unit));
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

Result<Bytes, std::string> parse(std::string_view text) {
    std::string_view rest = trimmed(text);
    const std::string whole = takeWhole(rest);
    std::string_view fraction;
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        fraction = takeDigits(rest);
    }
    const std::optional<Bytes> unit = unitNamed(trimmed(rest));
    if (!unit || (whole.empty() && fraction.empty())) {
        return tl::unexpected<std::string>(
            "This is no size. Write a number and KB, MB, GB or TB, such as \"500 KB\".");
    }
    const std::optional<Bytes> value = inUnit(whole, *unit);
    Bytes result = fractionOf(fraction, *unit);
    if (!value || __builtin_add_overflow(result, *value, &result)) {
        return tl::unexpected<std::string>("No file is that large.");
    }
    return result;
}

std::string exactText(Bytes bytes) {
    std::string rounded = text(bytes);
    if (parse(rounded) == bytes) {
        return rounded;
    }
    for (const TypedUnit& unit : binaryUnits) {
        if (bytes % unit.bytes == 0) {
            return std::to_string(bytes / unit.bytes) + ' ' + std::string(unit.name);
        }
    }
    return CountFormat::counted(bytes, "byte");
}

}
