#include <HostKit/Number.h>

#include <cmath>
#include <locale>
#include <sstream>
#include <string>

namespace tolvane {

std::optional<double> decimalNumber(std::string_view text) {
    // Streams skip white space in front of a number, which is no part of one.
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string_view::npos) {
        return std::nullopt;
    }
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double number = 0;
    stream >> number;
    const bool isWhole = !stream.fail() && stream.peek() == std::istringstream::traits_type::eof();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}
