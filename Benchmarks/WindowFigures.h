#pragma once

#include "Harness.h"
#include "StallWatch.h"

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvane {

/// A part of a benchmark, by the argument that chooses it.
using BenchmarkPart = std::pair<std::string_view, std::function<void()>>;

/// Makes the application that windows need, on a screen that nobody sees, and runs the chosen part,
/// or all.
int runParts(int count, char** arguments, const std::vector<BenchmarkPart>& parts);

/// Prints a figure beside its limit, which its busy time must keep.
void report(std::string_view what, const Span& span, Milliseconds limit);

/// Lets the event loop run until it is so.
void awaitEvents(const std::function<bool()>& isDone);

/// From `act` until the window shows what came of it.
Span untilDrawn(QQuickWindow& window, const std::function<void()>& act);

}
