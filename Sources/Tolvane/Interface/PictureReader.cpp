#include <Interface/PictureReader.h>

#include <QBuffer>
#include <QImageReader>
#include <QXmlStreamReader>
#include <algorithm>

namespace tolvane::PictureReader {
namespace {

constexpr int largestSide = 4096;

/// A drawing may name other files, repeat its parts without end, and nest deeper than the stack.
bool isHarmless(const QByteArray& drawing) {
    constexpr int deepest = 64;
    constexpr int mostElements = 20'000;
    constexpr int mostReferences = 24;
    QXmlStreamReader xml(drawing);
    int depth = 0;
    int elements = 0;
    int references = 0;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            ++depth;
            ++elements;
            references += xml.name() == u"use" ? 1 : 0;
            if (depth > deepest || elements > mostElements || references > mostReferences ||
                xml.name() == u"image") {
                return false;
            }
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return !xml.hasError();
}

bool isDrawing(const QByteArray& format) {
    return format == "svg" || format == "svgz";
}

/// What is compressed tells nothing of its size.
bool isCompressed(const QByteArray& bytes) {
    return bytes.startsWith("\x1f\x8b");
}

}

QImage read(const QByteArray& bytes, int side) {
    if (bytes.size() > largestFile || isCompressed(bytes)) {
        return {};
    }
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    if (isDrawing(reader.format()) && !isHarmless(bytes)) {
        return {};
    }
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > largestSide || size.height() > largestSide) {
        return {};
    }
    const int bounded = std::clamp(side, 1, largestSide);
    reader.setScaledSize(size.scaled(bounded, bounded, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read();
}

}
