#include <Components/HistoryLine.h>

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace tolvane {
namespace {

constexpr double lineWidth = 2;

}

HistoryLine::HistoryLine(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &HistoryLine::changed, this, [this] { update(); });
}

void HistoryLine::paint(QPainter* painter) {
    const auto isKnown = [](double value) { return value >= 0; };
    auto first = std::find_if(values_.cbegin(), values_.cend(), isKnown);
    while (first != values_.cend()) {
        const auto end = std::find_if_not(first, values_.cend(), isKnown);
        paintRun(*painter, first - values_.cbegin(), end - values_.cbegin());
        first = std::find_if(end, values_.cend(), isKnown);
    }
}

/// Half the line's width stays free at the edges, so that it is drawn whole at 0 and 1.
QPointF HistoryLine::pointAt(qsizetype position) const {
    const double steps = static_cast<double>(std::max<qsizetype>(values_.size() - 1, 1));
    const double value = std::min(values_[position], 1.0);
    return {(width() - lineWidth) * static_cast<double>(position) / steps + lineWidth / 2,
            (height() - lineWidth) * (1 - value) + lineWidth / 2};
}

void HistoryLine::paintRun(QPainter& painter, qsizetype first, qsizetype end) const {
    QPainterPath line(pointAt(first));
    for (qsizetype position = first + 1; position < end; ++position) {
        line.lineTo(pointAt(position));
    }
    // A lone value would be no line.
    line.lineTo(pointAt(end - 1) + QPointF(lineWidth / 4, 0));
    QPainterPath ground = line;
    ground.lineTo(line.currentPosition().x(), height());
    ground.lineTo(pointAt(first).x(), height());
    ground.closeSubpath();
    painter.fillPath(ground, fillColor_);
    painter.strokePath(line,
                       QPen(lineColor_, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

}
