#pragma once

#include <functional>
#include <string>

namespace tolvane {

/// Seconds since 1970-01-01T00:00:00Z.
using Date = double;
/// A span of time in seconds.
using Seconds = double;

/// Tells the time; a test hands in its own.
using Clock = std::function<Date()>;

/// The clock of this machine.
Date now();

/// "2026-11-15T20:14:26Z": UTC, to the second (fractions are cut towards the past). A date outside
/// the years 0 to 9999 is clamped to them.
std::string iso8601(Date date);

}
