#include <Components/IconProvider.h>

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QImageReader>

namespace tolvane {

namespace {

constexpr auto folder = ":/Tolvane/Components/Icons";
constexpr int grid = 24;

QString fileOf(const QString& name) {
    return QStringLiteral("%1/%2.svg").arg(QLatin1String(folder), name);
}

QByteArray tinted(const QString& name, const QString& colour) {
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().replace("currentColor", colour.toLatin1());
}

}

QStringList IconProvider::names() {
    QStringList names = QDir(QLatin1String(folder)).entryList({QStringLiteral("*.svg")});
    names.replaceInStrings(QStringLiteral(".svg"), QString());
    return names;
}

QString IconProvider::drawing(const QString& symbol) {
    static const QHash<QString, QString> drawings = {
        {QStringLiteral("arrow.down.circle"), QStringLiteral("folder-download")},
        {QStringLiteral("books.vertical"), QStringLiteral("folder-library")},
        {QStringLiteral("circle.hexagongrid"), QStringLiteral("space-analysis")},
        {QStringLiteral("doc.on.doc"), QStringLiteral("duplicates")},
        {QStringLiteral("edit-delete"), QStringLiteral("user-trash")},
        {QStringLiteral("house"), QStringLiteral("user-home")},
        {QStringLiteral("internaldrive"), QStringLiteral("drive-harddisk")},
        {QStringLiteral("square.grid.2x2"), QStringLiteral("applications")},
        {QStringLiteral("trash"), QStringLiteral("user-trash")},
    };
    const QString name = drawings.value(symbol, symbol);
    return QFile::exists(fileOf(name)) ? name : QStringLiteral("unknown");
}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const qsizetype slash = id.lastIndexOf(u'/');
    const QColor colour(u'#' + id.mid(slash + 1));
    QByteArray drawn = tinted(drawing(id.left(slash)),
                              colour.isValid() ? colour.name() : QStringLiteral("#808080"));
    QBuffer buffer(&drawn);
    QImageReader reader(&buffer, "svg");
    // One side may be left open (0), as with `sourceSize.width` alone.
    const int side = qMax(requestedSize.width(), requestedSize.height());
    reader.setScaledSize(side > 0 ? QSize(side, side) : QSize(grid, grid));
    QImage image = reader.read();
    *size = image.size();
    return image;
}

}
