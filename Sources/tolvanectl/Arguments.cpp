#include "Arguments.h"

#include <charconv>
#include <cstdint>

namespace tolvane {
namespace {

/// The parser takes "[a,b]" for a list and "{}" and "%%" for parts of one; as paths they mean the
/// same with "./" in front.
std::string asPlainArgument(const std::string& argument) {
    const bool isList = argument.starts_with('[') && argument.ends_with(']');
    return isList || argument == "{}" || argument == "%%" ? "./" + argument : argument;
}

}

std::vector<std::string> plainArguments(int count, char** values) {
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(asPlainArgument(values[i]));
    }
    return arguments;
}

std::string pathError(const std::string& text) {
    return text.empty() ? "An empty path names nothing" : "";
}

std::string identifierError(const std::string& text) {
    return text.empty() ? "An empty identifier names nothing" : "";
}

std::string countError(const std::string& text) {
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    const bool isCount = error == std::errc() && stop == end && value >= 0;
    return isCount ? "" : "\"" + text + "\" is not a whole number from 0";
}

}
