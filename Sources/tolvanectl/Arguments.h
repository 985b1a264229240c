#pragma once

#include <string>
#include <vector>

namespace tolvane {

/// The arguments of the program, as its parser takes each for what it is.
std::vector<std::string> plainArguments(int count, char** values);

/// Checks a path: a variable that is not set must not stand for the working directory. What is
/// wrong with it, empty when nothing is.
std::string pathError(const std::string& text);

/// Checks the identifier of an application in the same way.
std::string identifierError(const std::string& text);

/// Checks the value of an option that counts something: what is wrong with it, empty when nothing
/// is.
std::string countError(const std::string& text);

}
