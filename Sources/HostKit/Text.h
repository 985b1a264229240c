#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane {

/// Whether the bytes are well-formed UTF-8.
bool isValidUTF8(std::string_view bytes);

/// Text for people: the bytes as UTF-8, U+FFFD in place of what is not. Only ever shown, never used
/// to find the item again.
std::string displayText(std::string_view bytes);

/// The number of code points; every byte that belongs to none counts as one.
std::size_t characterCount(std::string_view bytes);

/// The text in small letters, as comparisons take them in every language; U+FFFD in place of what
/// is not UTF-8.
std::string lowercased(std::string_view bytes);

/// Whether both are the same text (Unicode canonical equivalence). Equal bytes always are; where
/// both sides are ASCII or a side is not UTF-8 nothing but equal bytes is.
bool canonicallyEqual(std::string_view a, std::string_view b);

/// `liesWithin` up to canonical equivalence.
bool hasCanonicalPrefix(std::string_view path, std::string_view prefix);

}
