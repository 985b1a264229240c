#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace tolvane {

/// The whole number that the text is, in base 10 and with an optional sign; absent when anything
/// else stands in it, when it is empty or when the number does not fit.
template <class Integer>
std::optional<Integer> wholeNumber(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    Integer number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// The finite number that the text is, with a point in every country; absent when anything else
/// stands in it or when the number does not fit.
std::optional<double> decimalNumber(std::string_view text);

}
