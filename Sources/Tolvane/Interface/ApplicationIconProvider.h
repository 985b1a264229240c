#pragma once

#include <HostKit/FileManager.h>

#include <QColor>
#include <QQuickImageProvider>
#include <memory>

namespace tolvane {

/// Draws the icons of applications: "image://application/RRGGBB/KEY", where the key is that of
/// `AppRows::iconKey`. Without a key, and for a file that cannot be drawn, it is a neutral drawing
/// in the colour. Files are read by a thread of the engine, so the window never waits for them.
class ApplicationIconProvider : public QQuickImageProvider {
  public:
    explicit ApplicationIconProvider(std::shared_ptr<const FileManager> files);

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

  private:
    QImage icon(const QString& key, int side) const;

    const std::shared_ptr<const FileManager> files_;
};

}
