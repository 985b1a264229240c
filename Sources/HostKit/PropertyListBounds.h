#pragma once

#include <string_view>

/// What a property list must keep to before it may reach the library that reads it. That one
/// follows every reference of a binary list anew, walks nested values on the stack and ends the
/// program where a key holds a NUL: a few hundred bytes could take all memory, or all of us down.
namespace tolvane::PropertyListBounds {

/// Whether reading the bytes costs little, whatever they say. Most bytes that are no property list
/// are refused as well; the rest is the library's business.
bool holdFor(std::string_view bytes);

}
