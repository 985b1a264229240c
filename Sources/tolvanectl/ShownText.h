#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane {

/// Text for a terminal: `displayText` with "?" in place of control characters and of marks that
/// turn the direction of text, so that no file name gives orders to the terminal, breaks a line or
/// passes for another.
std::string shownText(std::string_view bytes);

/// How many columns the text takes at most: two for what is not ASCII, for some of it does.
std::size_t columnsOf(std::string_view text);

/// The text with its middle left out so that it takes at most so many columns.
std::string elidedInTheMiddle(std::string_view text, std::size_t columns);

}
