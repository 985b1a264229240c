#pragma once

#include <string>
#include <vector>

namespace tolvane {

/// The arguments of the program, as its parser takes each for what it is.
std::vector<std::string> plainArguments(int count, char** values);

/// Checks the value of an option that counts something: what is wrong with it, empty when nothing
/// is.
std::string countError(const std::string& text);

}
