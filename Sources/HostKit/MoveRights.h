#pragma once

#include <HostKit/FileURL.h>

namespace tolvane {

/// Whether this process may take the item off its place, as far as rights tell without trying: a
/// folder that cannot be written to or that guards other owners' items holds it, and so do marks
/// that forbid any change. Links above the item are followed. False when nothing is there.
bool mayBeMoved(const FileURL& item);

}
