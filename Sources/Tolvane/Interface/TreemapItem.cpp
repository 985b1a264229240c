#include <Services/ByteFormat.h>

#include <Controllers/ShownText.h>
#include <Interface/TreemapItem.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tolvane {
namespace {

constexpr double gap = 2;
constexpr double cornerRadius = 3;
constexpr double labelMargin = 6;
/// Labels of narrower cells would be all ellipsis.
constexpr double smallestLabelWidth = 36;
constexpr double highlightWidth = 2;

QRectF placeOf(const TreemapCell& cell) {
    const QRectF whole(cell.rect.x, cell.rect.y, cell.rect.width, cell.rect.height);
    return whole.adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2);
}

QString labelOf(const TreemapCell& cell) {
    return shownText(cell.label);
}

QString sizeOf(const TreemapCell& cell) {
    return QString::fromStdString(ByteFormat::text(static_cast<Bytes>(cell.weight)));
}

/// How far `to` lies from `from` in the direction of the key; negative when it lies elsewhere.
double distance(const QPointF& from, const QPointF& to, Qt::Key key) {
    const QPointF way = to - from;
    const bool isSideways = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isBackwards = key == Qt::Key_Left || key == Qt::Key_Up;
    const double along = (isSideways ? way.x() : way.y()) * (isBackwards ? -1 : 1);
    const double across = std::abs(isSideways ? way.y() : way.x());
    return along > 0 && across <= along ? along + across : -1;
}

}

TreemapItem::TreemapItem(QQuickItem* parent)
    : QQuickPaintedItem(parent)
    , isEmpty_(true) {
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
    connect(this, &TreemapItem::colorsChanged, this, [this] { update(); });
}

void TreemapItem::setController(ScanViewModel* controller) {
    if (controller_ == controller) {
        return;
    }
    if (controller_ != nullptr) {
        controller_->disconnect(this);
    }
    controller_ = controller;
    if (controller_ != nullptr) {
        connect(controller_, &ScanViewModel::treemapChanged, this, &TreemapItem::load);
    }
    load();
    Q_EMIT controllerChanged();
}

void TreemapItem::load() {
    entries_ = controller_ != nullptr ? controller_->treemapEntries() : std::vector<TreemapEntry>();
    arrange();
}

void TreemapItem::arrange() {
    cells_ = TreemapLayout::squarified(entries_, {0, 0, width(), height()});
    isEmpty_ = entries_.empty();
    highlight(std::nullopt);
    update();
}

void TreemapItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size()) {
        arrange();
    }
}

void TreemapItem::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    for (std::size_t position = 0; position < cells_.size(); ++position) {
        paintCell(*painter, position);
    }
}

void TreemapItem::paintCell(QPainter& painter, std::size_t position) const {
    const QRectF place = placeOf(cells_[position]);
    if (place.width() <= 0 || place.height() <= 0) {
        return;
    }
    const double radius = std::min({cornerRadius, place.width() / 2, place.height() / 2});
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOf(position));
    painter.drawRoundedRect(place, radius, radius);
    paintLabel(painter, position, place);
    if (highlighted_ == position) {
        const double inset = highlightWidth / 2;
        painter.setPen(QPen(highlightColor_, highlightWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), radius, radius);
    }
}

void TreemapItem::paintLabel(QPainter& painter, std::size_t position, const QRectF& place) const {
    QFont font = QGuiApplication::font();
    font.setPixelSize(labelPixelSize_);
    const QFontMetricsF metrics(font);
    const double lineHeight = metrics.height();
    const QRectF room =
        place.adjusted(labelMargin, labelMargin / 2, -labelMargin, -labelMargin / 2);
    if (room.width() < smallestLabelWidth || room.height() < lineHeight) {
        return;
    }
    painter.setFont(font);
    painter.setPen(labelColor_);
    const auto drawLine = [&](const QString& text, double y) {
        painter.drawText(QRectF(room.x(), y, room.width(), lineHeight),
                         static_cast<int>(Qt::AlignLeft) | static_cast<int>(Qt::AlignVCenter) |
                             static_cast<int>(Qt::TextSingleLine),
                         metrics.elidedText(text, Qt::ElideMiddle, room.width()));
    };
    drawLine(labelOf(cells_[position]), room.y());
    const QString size = sizeOf(cells_[position]);
    if (room.height() >= 2 * lineHeight && metrics.horizontalAdvance(size) <= room.width()) {
        drawLine(size, room.y() + lineHeight);
    }
}

QColor TreemapItem::colorOf(std::size_t position) const {
    const qsizetype count = cellColors_.size();
    return count == 0 ? QColor() : cellColors_[cells_[position].colorIndex % count];
}

std::optional<std::size_t> TreemapItem::cellAt(const QPointF& point) const {
    const auto found =
        std::find_if(cells_.begin(), cells_.end(),
                     [&point](const TreemapCell& cell) { return placeOf(cell).contains(point); });
    return found == cells_.end() ? std::nullopt
                                 : std::optional(static_cast<std::size_t>(found - cells_.begin()));
}

std::optional<std::size_t> TreemapItem::neighbour(Qt::Key key) const {
    if (!highlighted_) {
        return cells_.empty() ? std::nullopt : std::optional<std::size_t>(0);
    }
    const QPointF from = placeOf(cells_[*highlighted_]).center();
    std::size_t nearest = *highlighted_;
    double least = -1;
    for (std::size_t position = 0; position < cells_.size(); ++position) {
        const double way = distance(from, placeOf(cells_[position]).center(), key);
        if (way > 0 && (least < 0 || way < least)) {
            nearest = position;
            least = way;
        }
    }
    return nearest;
}

void TreemapItem::highlight(std::optional<std::size_t> position) {
    if (highlighted_ == position) {
        return;
    }
    highlighted_ = position;
    highlightedPlace_ = position ? placeOf(cells_[*position]) : QRectF();
    highlightedText_ =
        position ? labelOf(cells_[*position]) + ", " + sizeOf(cells_[*position]) : QString();
    update();
}

QString TreemapItem::idOf(std::optional<std::size_t> position) const {
    return position ? QString::fromStdString(text(cells_[*position].id)) : QString();
}

void TreemapItem::hoverEnterEvent(QHoverEvent* event) {
    highlight(cellAt(event->position()));
}

void TreemapItem::hoverMoveEvent(QHoverEvent* event) {
    highlight(cellAt(event->position()));
}

void TreemapItem::hoverLeaveEvent(QHoverEvent*) {
    highlight(std::nullopt);
}

void TreemapItem::mousePressEvent(QMouseEvent* event) {
    forceActiveFocus(Qt::MouseFocusReason);
    pressedID_ = idOf(cellAt(event->position()));
}

void TreemapItem::mouseReleaseEvent(QMouseEvent*) {
    if (controller_ != nullptr && !pressedID_.isEmpty()) {
        controller_->inspect(pressedID_);
    }
}

void TreemapItem::mouseDoubleClickEvent(QMouseEvent*) {
    const QString opened = std::exchange(pressedID_, QString());
    if (controller_ != nullptr && !opened.isEmpty()) {
        controller_->open(opened);
    }
}

void TreemapItem::keyPressEvent(QKeyEvent* event) {
    const auto key = static_cast<Qt::Key>(event->key());
    const QString id = idOf(highlighted_);
    if (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down) {
        highlight(neighbour(key));
    } else if (key == Qt::Key_Space && controller_ != nullptr && !id.isEmpty()) {
        controller_->inspect(id);
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && controller_ != nullptr &&
               !id.isEmpty()) {
        controller_->open(id);
    } else {
        event->ignore();
    }
}

void TreemapItem::focusInEvent(QFocusEvent* event) {
    QQuickPaintedItem::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && !highlighted_ && !cells_.empty()) {
        highlight(0);
    }
}

void TreemapItem::focusOutEvent(QFocusEvent* event) {
    QQuickPaintedItem::focusOutEvent(event);
    highlight(std::nullopt);
}

}
