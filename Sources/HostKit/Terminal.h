#pragma once

#include <cstddef>
#include <optional>

namespace tolvane {

/// The number of columns of the terminal behind this descriptor; absent when there is none or it
/// does not say.
std::optional<std::size_t> terminalWidth(int descriptor);

}
