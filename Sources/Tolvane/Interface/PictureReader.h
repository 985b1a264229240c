#pragma once

#include <QByteArray>
#include <QImage>

namespace tolvane {

/// Reads pictures that anybody may have made. Callable from any thread.
namespace PictureReader {

/// Larger files are no icons.
inline constexpr qsizetype largestFile = 4'000'000;

/// The picture, scaled so that its longer side measures `side` pixels; null when the bytes are
/// none, and when reading or drawing them could take long, much memory, or other files.
QImage read(const QByteArray& bytes, int side);

}
}
