#pragma once

#include <ArborviewKit/Treemap.h>

#include <Controllers/ScanViewModel.h>

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <QString>
#include <optional>
#include <vector>

namespace tolvane {

/// A treemap of what a controller offers. A click inspects, a double click opens; arrows move from
/// cell to cell, Space inspects and Return opens.
class TreemapItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tolvane::ScanViewModel* controller READ controller WRITE setController NOTIFY
                   controllerChanged REQUIRED)
    /// Grounds of the cells, by their colour index; the first again after the last.
    Q_PROPERTY(QList<QColor> cellColors MEMBER cellColors_ NOTIFY colorsChanged REQUIRED)
    Q_PROPERTY(QColor labelColor MEMBER labelColor_ NOTIFY colorsChanged REQUIRED)
    /// Of the frame around the cell that is pointed at.
    Q_PROPERTY(QColor highlightColor MEMBER highlightColor_ NOTIFY colorsChanged REQUIRED)
    Q_PROPERTY(int labelPixelSize MEMBER labelPixelSize_ NOTIFY colorsChanged REQUIRED)
    /// Name and size of the highlighted cell; empty when there is none.
    PUBLISHED(TreemapItem, QString, highlightedText)
    /// Where that cell lies.
    PUBLISHED(TreemapItem, QRectF, highlightedPlace)
    PUBLISHED(TreemapItem, bool, isEmpty)

  public:
    explicit TreemapItem(QQuickItem* parent = nullptr);

    ScanViewModel* controller() const { return controller_; }
    void setController(ScanViewModel* controller);

    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void controllerChanged();
    void colorsChanged();

  protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void load();
    void arrange();
    void paintCell(QPainter& painter, std::size_t position) const;
    void paintLabel(QPainter& painter, std::size_t position, const QRectF& place) const;
    std::optional<std::size_t> cellAt(const QPointF& point) const;
    std::optional<std::size_t> neighbour(Qt::Key key) const;
    void highlight(std::optional<std::size_t> position);
    QString idOf(std::optional<std::size_t> position) const;
    QColor colorOf(std::size_t position) const;

    /// Outlives this, as controllers outlive screens.
    ScanViewModel* controller_ = nullptr;
    std::vector<TreemapEntry> entries_;
    std::vector<TreemapCell> cells_;
    std::optional<std::size_t> highlighted_;
    /// What the first click of a double click met, whatever is shown since.
    QString pressedID_;
    QList<QColor> cellColors_;
    QColor labelColor_;
    QColor highlightColor_;
    int labelPixelSize_ = 12;
};

}
