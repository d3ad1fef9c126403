// Texts, values, fonts and colours between the grid and Qt.

#pragma once

#include <QColor>
#include <QFont>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QVariant>
#include <cstdlib>

#include <tessera/hosting.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

#include "shared/color.h"
#include "shared/log_font.h"
#include "shared/rect.h"

namespace tessera {

inline std::u16string_view viewOf(QStringView text) {
  return {text.utf16(), static_cast<std::size_t>(text.size())};
}
inline XString toXString(const QString& text) { return XString(viewOf(QStringView(text))); }
inline QString toQString(std::u16string_view text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

// A date becomes a QDateTime, an empty or null value an invalid QVariant.
QVariant toVariant(const XValue& value);
// What has no counterpart comes as its text.
XValue toXValue(const QVariant& variant);

QFont toQFont(const LogFont& font);
AmbientFont toAmbientFont(const QFont& font);

inline QColor toQColor(ColorRef color) { return {redOf(color), greenOf(color), blueOf(color)}; }
inline ColorRef toColorRef(const QColor& color) {
  return rgb(static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
             static_cast<std::uint8_t>(color.blue()));
}
inline QRect toQRect(const Rect& rect) { return {rect.left, rect.top, rect.width(), rect.height()}; }
inline Point toPoint(QPoint point) { return {point.x(), point.y()}; }

}  // namespace tessera
