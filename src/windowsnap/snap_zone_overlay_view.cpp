// SPDX-License-Identifier: MIT
#include "windowsnap/snap_zone_overlay_view.h"

#include "platform/panels/panels.h"

#include <QPainter>

namespace pimloft {

namespace {

constexpr QColor blue(0, 122, 255);
constexpr double fillOpacity = 0.15;
constexpr double strokeOpacity = 0.4;
constexpr double strokeWidth = 2.0;
constexpr double cornerSize = 10;

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(float(opacity));
    return color;
}

void paintTranslucent(QPainter &painter, const QRectF &area) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(withOpacity(blue, strokeOpacity), strokeWidth));
    painter.setBrush(withOpacity(blue, fillOpacity));
    // Half of the line lies outside of the path; the inset keeps it in the window.
    const double inset = strokeWidth / 2;
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), cornerSize, cornerSize);
}

void paintOutline(QPainter &painter, const QRectF &area) {
    const double inset = PanelService::outlineWidth / 2;
    painter.setPen(QPen(blue, PanelService::outlineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(inset, inset, -inset, -inset));
}

}  // namespace

SnapZoneOverlayView::SnapZoneOverlayView(const PanelService &panels) : panels_(panels) {
    QSurfaceFormat translucent = format();
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
}

void SnapZoneOverlayView::paint(QPainter &painter, QSizeF size, bool blends) {
    const QRectF area(QPointF(), size);
    if (blends)
        paintTranslucent(painter, area);
    else
        paintOutline(painter, area);
}

void SnapZoneOverlayView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paint(painter, size(), panels_.blends());
}

}  // namespace pimloft
