#pragma once

#include <functional>
#include <string>

namespace tolvane {

/// The text that `work` gives in a process of its own without root's rights; run by root, that
/// process is the user "nobody". Permissions mean nothing to root, so what is refused to others is
/// tested this way.
std::string asOrdinaryUser(const std::function<std::string()>& work);

/// Hands a folder and all in it to the user that `asOrdinaryUser` becomes.
void giveToOrdinaryUser(const std::string& folder);

}
