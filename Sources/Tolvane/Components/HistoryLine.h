#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>

namespace tolvane {

/// A line through values of equal distance, the ground beneath it filled. Needs no graphics
/// processor.
class HistoryLine : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    /// From 0 to 1, the newest at the right edge; a negative one is a gap.
    Q_PROPERTY(QList<double> values MEMBER values_ NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor lineColor MEMBER lineColor_ NOTIFY changed REQUIRED)
    Q_PROPERTY(QColor fillColor MEMBER fillColor_ NOTIFY changed REQUIRED)

  public:
    explicit HistoryLine(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

  Q_SIGNALS:
    void changed();

  private:
    QPointF pointAt(qsizetype position) const;
    void paintRun(QPainter& painter, qsizetype first, qsizetype end) const;

    QList<double> values_;
    QColor lineColor_;
    QColor fillColor_;
};

}
