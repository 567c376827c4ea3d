#include "taskbar/view/Glyphs.h"

#include <QPainter>

#include <cmath>

namespace tolv {

namespace {

QPointF at(const QRectF& box, double fx, double fy) {
  return {box.left() + fx * box.width(), box.top() + fy * box.height()};
}

QPainterPath polyline(const QRectF& box, std::initializer_list<std::pair<double, double>> points) {
  QPainterPath path;
  bool first = true;
  for (const auto& [fx, fy] : points) {
    if (first) {
      path.moveTo(at(box, fx, fy));
      first = false;
    } else {
      path.lineTo(at(box, fx, fy));
    }
  }
  return path;
}

}  // namespace

QPainterPath glyphPath(Glyph glyph, const QRectF& box) {
  switch (glyph) {
    case Glyph::ChevronUp:
      return polyline(box, {{0, 0.75}, {0.5, 0.25}, {1, 0.75}});
    case Glyph::ChevronDown:
      return polyline(box, {{0, 0.25}, {0.5, 0.75}, {1, 0.25}});
    case Glyph::XMark: {
      QPainterPath path = polyline(box, {{0, 0}, {1, 1}});
      path.addPath(polyline(box, {{1, 0}, {0, 1}}));
      return path;
    }
    case Glyph::Checkmark:
      return polyline(box, {{0, 0.55}, {0.38, 0.9}, {1, 0.1}});
    case Glyph::ArrowDown: {
      QPainterPath path = polyline(box, {{0.5, 0}, {0.5, 1}});
      path.addPath(polyline(box, {{0.1, 0.6}, {0.5, 1}, {0.9, 0.6}}));
      return path;
    }
    case Glyph::Exclamation: {
      QPainterPath path;
      double w = box.width() * 0.28;
      path.addRoundedRect(QRectF(box.center().x() - w / 2, box.top(), w, box.height() * 0.62),
                          w / 2, w / 2);
      path.addEllipse(QPointF(box.center().x(), box.bottom() - w / 2), w / 2, w / 2);
      return path;
    }
    case Glyph::Lock: {
      QPainterPath path;
      QRectF body(at(box, 0.1, 0.45), at(box, 0.9, 1));
      path.addRoundedRect(body, box.width() * 0.1, box.width() * 0.1);
      QRectF shackle(at(box, 0.25, 0), at(box, 0.75, 0.6));
      QPainterPath ring;
      ring.addEllipse(shackle);
      QPainterPath hole;
      hole.addEllipse(shackle.adjusted(box.width() * 0.1, box.width() * 0.1, -box.width() * 0.1,
                                       -box.width() * 0.1));
      path.addPath(ring.subtracted(hole));
      return path.simplified();
    }
    case Glyph::Speaker: {
      QPainterPath path = polyline(
          box, {{0, 0.32}, {0.3, 0.32}, {0.62, 0}, {0.62, 1}, {0.3, 0.68}, {0, 0.68}, {0, 0.32}});
      path.closeSubpath();
      return path;
    }
    case Glyph::Sun: {
      QPainterPath path;
      QPointF centre = box.center();
      double r = box.width() * 0.22;
      path.addEllipse(centre, r, r);
      for (int ray = 0; ray < 8; ++ray) {
        double angle = ray * 3.14159265358979 / 4;
        QPointF dir(std::cos(angle), std::sin(angle));
        path.moveTo(centre + dir * box.width() * 0.34);
        path.lineTo(centre + dir * box.width() * 0.5);
      }
      return path;
    }
    case Glyph::ArrowClockwise: {
      QPainterPath path;
      QRectF ring = box.adjusted(box.width() * 0.1, box.height() * 0.1, -box.width() * 0.1,
                                 -box.height() * 0.1);
      path.arcMoveTo(ring, 60);
      path.arcTo(ring, 60, -300);
      QPointF tip = path.currentPosition();
      path.moveTo(tip + QPointF(-box.width() * 0.3, -box.height() * 0.05));
      path.lineTo(tip);
      path.lineTo(tip + QPointF(0, box.height() * 0.3));
      return path;
    }
    case Glyph::Bell: {
      QPainterPath path;
      path.moveTo(at(box, 0.5, 0.05));
      path.cubicTo(at(box, 0.15, 0.05), at(box, 0.2, 0.55), at(box, 0.05, 0.78));
      path.lineTo(at(box, 0.95, 0.78));
      path.cubicTo(at(box, 0.8, 0.55), at(box, 0.85, 0.05), at(box, 0.5, 0.05));
      path.addEllipse(at(box, 0.5, 0.88), box.width() * 0.12, box.width() * 0.12);
      return path;
    }
  }
  return {};
}

bool glyphIsFilled(Glyph glyph) {
  return glyph == Glyph::Exclamation || glyph == Glyph::Lock || glyph == Glyph::Speaker ||
         glyph == Glyph::Bell;
}

void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& box, const QColor& color,
               double weight) {
  painter.save();
  QPainterPath path = glyphPath(glyph, box);
  if (glyphIsFilled(glyph)) {
    painter.fillPath(path, color);
  } else {
    painter.setPen(QPen(color, weight, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
  }
  painter.restore();
}

}  // namespace tolv
