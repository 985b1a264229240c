#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

using Strings = std::map<std::string, std::string>;

/// A property list in XML around what is given, which is written as it stands.
std::string xmlPropertyList(std::string_view content);
/// The same of a dictionary of strings, which must hold nothing that XML would escape.
std::string xmlPropertyList(const Strings& dictionary);

/// A binary property list of these objects, the first one its top, with references of two bytes.
std::string binaryObjects(const std::vector<std::string>& objects);
/// A binary property list of a dictionary of strings of at most 255 bytes.
std::string binaryPropertyList(const Strings& dictionary);
/// An array that refers to objects by number, for such a list.
std::string binaryArray(const std::vector<std::size_t>& references);

}
