#include "backends/qt/qt_text.h"

#include <QDateTime>
#include <QFontInfo>

#include "backends/qt/font_height.h"
#include "shared/change_type.h"
#include "shared/screen.h"
#include "shared/utf.h"

namespace tessera {

namespace {

constexpr std::int64_t millisecondsPerDay = 86'400'000;

// The day that date numbers count from.
const QDateTime& dayZero() {
  static const QDateTime day(QDate(1899, 12, 30), QTime(0, 0));
  return day;
}

// Before day zero the fraction still counts forwards from midnight.
QDateTime dateOf(double days) {
  const double whole = std::trunc(days);
  const auto inDay = std::llround(std::abs(days - whole) * static_cast<double>(millisecondsPerDay));
  const QDate date = dayZero().date().addDays(static_cast<qint64>(whole));
  return QDateTime(date, QTime(0, 0)).addMSecs(inDay);
}

double daysOf(const QDateTime& date) {
  const auto whole = static_cast<double>(dayZero().date().daysTo(date.date()));
  const double part = date.time().msecsSinceStartOfDay() / static_cast<double>(millisecondsPerDay);
  return whole < 0 ? whole - part : whole + part;
}

}  // namespace

QVariant toVariant(const XValue& value) {
  switch (value.type()) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_BOOL:
      return value.asBool();
    case VT_BSTR:
      return toQString(value.asText());
    case VT_R4:
    case VT_R8:
      return value.asDouble();
    case VT_DATE:
      return dateOf(value.asDouble());
    case VT_I8:
    case VT_UI8:
    case VT_UI4:
      return QVariant::fromValue<qlonglong>(value.asInt64());
    default:
      return static_cast<int>(value.asInt64());
  }
}

XValue toXValue(const QVariant& variant) {
  switch (variant.typeId()) {
    case QMetaType::UnknownType:
      return {};
    case QMetaType::Bool:
      return XValue::ofBool(variant.toBool());
    case QMetaType::Int:
    case QMetaType::Short:
      return XValue::ofInt(variant.toInt());
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return XValue::ofInt64(variant.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double:
      return XValue::ofDouble(variant.toDouble());
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return XValue::ofDate(daysOf(variant.toDateTime()));
    default:
      return XValue::ofText(viewOf(QStringView(variant.toString())));
  }
}

QFont toQFont(const LogFont& font) {
  QFont made;
  if (!font.face().empty()) made.setFamily(toQString(utf16FromUtf8(font.face())));
  made.setPixelSize(std::max(1, std::abs(heightOf(font))));
  made.setBold(font.lfWeight >= 700);
  made.setItalic(font.lfItalic != 0);
  made.setUnderline(font.lfUnderline != 0);
  return made;
}

AmbientFont toAmbientFont(const QFont& font) {
  AmbientFont ambient;
  ambient.face = toXString(QFontInfo(font).family());
  ambient.points = font.pointSize() > 0 ? font.pointSize() : heightToPoints(-font.pixelSize());
  ambient.weight = font.weight();
  ambient.italic = font.italic();
  ambient.underline = font.underline();
  return ambient;
}

}  // namespace tessera
