#pragma once

#include <QObject>

/// The choices that QML knows by name; its lint wants capitals.
// NOLINTBEGIN(readability-identifier-naming)
namespace tolvane::Ui {

Q_NAMESPACE

/// What a screen shows.
enum class Stage { Start, Working, Result };
Q_ENUM_NS(Stage)

/// The box of an item. `Included` lies inside a ticked folder, goes where that goes, and has no box
/// of its own.
enum class Tick { None, Partial, All, Included };
Q_ENUM_NS(Tick)

enum class SortKey { Name, Size, Items, Modified };
Q_ENUM_NS(SortKey)

enum class PortKey { Port, Process, Pid };
Q_ENUM_NS(PortKey)

}
// NOLINTEND(readability-identifier-naming)
