#pragma once

#include <QQuickImageProvider>
#include <QStringList>

namespace tolvane {

/// Draws the window's icons in any colour and size: "image://icon/NAME/RRGGBB". The drawings are
/// ours; the names are those of the freedesktop Icon Naming Specification where it has one. An
/// unknown name draws "unknown".
class IconProvider : public QQuickImageProvider {
  public:
    IconProvider()
        : QQuickImageProvider(Image) {}

    /// Every drawing, by name.
    static QStringList names();
    /// The drawing that stands for `symbol`: of a quick location or a module ("internaldrive"), or
    /// a second freedesktop name for the same thing; `symbol` itself when it names a drawing.
    static QString drawing(const QString& symbol);

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}
