#include "backends/qt/border_rings.h"

#include <QPainter>

#include "backends/qt/qt_text.h"

namespace tessera {

// The corners where both colours meet are the bottom's and the right side's.
void paintRings(QPainter& painter, const QRect& area, std::span<const BorderRing> rings) {
  QRect at = area;
  for (const BorderRing& ring : rings) {
    const QColor topLeft = toQColor(screen().*ring.topLeft);
    const QColor bottomRight = toQColor(screen().*ring.bottomRight);
    painter.fillRect(at.left(), at.top(), at.width(), 1, topLeft);
    painter.fillRect(at.left(), at.top(), 1, at.height(), topLeft);
    painter.fillRect(at.left(), at.bottom(), at.width(), 1, bottomRight);
    painter.fillRect(at.right(), at.top(), 1, at.height(), bottomRight);
    at.adjust(1, 1, -1, -1);
  }
}

}  // namespace tessera
