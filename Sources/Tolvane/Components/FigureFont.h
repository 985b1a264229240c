#pragma once

#include <QByteArray>
#include <QString>

namespace tolvane {

/// Inter with figures of one width, so that numbers in columns stand digit under digit. The font
/// has them as an OpenType feature ("tnum"), which this version of Qt cannot ask for: the family
/// made here maps the characters to those figures outright. It lives in memory only.
namespace figureFont {

/// What QML calls it; where the interface font is not installed, the name stands for the desktop's.
QString family();
/// Makes the family known to the program; a second call does nothing.
void install();
/// The font file of one weight (as QFont has it), empty where it cannot be made.
QByteArray made(int weight);

}

}
