// The properties of the control: what each setter does beyond storing its value.

#include "config/background_flags.h"
#include "config/background_info.h"
#include "config/color_words.h"
#include "config/indicator_info.h"
#include "config/menu_info.h"
#include "control/refresh.h"
#include "control/tessera.h"
#include "interaction/focused_child.h"
#include "shared/compare.h"

namespace tessera {

namespace {

HResult give(bool flag, VariantBool& value) {
  value = flag ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

template <class T>
HResult give(const T& stored, T& value) {
  value = stored;
  return S_OK;
}

template <class Stored, class T>
HResult take(Stored& stored, const T& value) {
  stored = static_cast<Stored>(value);
  return S_OK;
}

// The head of every text setter: false when the text is the old one but for its ASCII case.
bool changes(XString& stored, const XString& value) {
  if (equalNoCase(stored, value)) return false;
  stored = value;
  return true;
}

}  // namespace

HResult Tessera::get_DataID(XString& value) { return give(parts_.settings.DataID, value); }

HResult Tessera::put_DataID(const XString& value) {
  if (equalNoCase(parts_.settings.DataID, value)) return S_OK;
  controllers_.editors.settle();
  if (!changes(parts_.settings.DataID, value)) return S_OK;
  controllers_.editors.forgetRows();
  const HResult status = parts_.link.bindDataSet(notifications_, site_, value);
  if (succeeded(status) && parts_.window) Refresh();
  return S_OK;
}

HResult Tessera::get_ImageDataID(XString& value) { return give(parts_.settings.ImageDataID, value); }

HResult Tessera::put_ImageDataID(const XString& value) {
  if (!changes(parts_.settings.ImageDataID, value)) return S_OK;
  const HResult status = parts_.link.bindImageSet(notifications_, site_, value);
  parts_.images.clear();  // the pictures were the old image set's
  if (!succeeded(status) || !parts_.window) return S_OK;
  parts_.images.ReloadImages(parts_.link);
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_ColumnInfo(XString& value) { return give(parts_.settings.ColumnInfo, value); }

HResult Tessera::put_ColumnInfo(const XString& value) {
  if (equalNoCase(parts_.settings.ColumnInfo, value)) return S_OK;
  controllers_.editors.settle();
  if (!changes(parts_.settings.ColumnInfo, value)) return S_OK;
  FocusModel& focus = parts_.focus;
  if (focus.CellMode && focus.FocusColumn) focus.FocusColumnName = focus.FocusColumn->value().refColumnId;
  if (parts_.window) Refresh();
  return S_OK;
}

HResult Tessera::get_IndicatorInfo(XString& value) { return give(parts_.settings.IndicatorInfo, value); }

HResult Tessera::put_IndicatorInfo(const XString& value) {
  if (!changes(parts_.settings.IndicatorInfo, value)) return S_OK;
  IndicatorRecord indicator = parts_.config.indicator;
  const std::uint64_t structure = parts_.structure;
  const bool ok = parseIndicatorInfo(info_, value, indicator);
  if (parts_.settings.IndicatorInfo != value) return S_OK;  // a listener has set another one
  if (parts_.structure != structure) recompileKept(indicator, parts_.expressions);
  parts_.config.indicator = std::move(indicator);
  if (!ok) {
    ReportError(ErrorCode::IndicatorInfo);
    return S_OK;
  }
  controllers_.editors.list().close(false);
  parts_.makeRoomForIndicator();
  parts_.updateBars(bar_bit::horizontal);
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_BackgroundInfo(XString& value) { return give(parts_.settings.BackgroundInfo, value); }

HResult Tessera::put_BackgroundInfo(const XString& value) {
  if (!changes(parts_.settings.BackgroundInfo, value)) return S_OK;
  BackgroundRecord background = parts_.config.background;
  const std::uint64_t structure = parts_.structure;
  std::int32_t border = parts_.config.borderStyle;
  const BackgroundInfoResult result = parseBackgroundInfo(info_, value, background, border);
  if (parts_.settings.BackgroundInfo != value) return S_OK;  // a listener has set another one
  if (parts_.structure != structure) recompileKept(background, parts_.expressions);
  parts_.config.background = std::move(background);
  parts_.config.borderStyle = border;
  if (result.borderNamed && parts_.window) {
    parts_.applyBorder();
    if (focusedChild(parts_) == FocusState::Outside) parts_.window->setFocus();
  }
  if (!result.ok) {
    ReportError(ErrorCode::BackgroundInfo);
    return S_OK;
  }
  if (parts_.window) applyBackgroundFlags(parts_.config);
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_MenuInfo(XString& value) { return give(parts_.settings.MenuInfo, value); }

HResult Tessera::put_MenuInfo(const XString& value) {
  if (!changes(parts_.settings.MenuInfo, value)) return S_OK;
  parts_.config.menu.removeAll();
  if (!parseMenuInfo(info_, value, parts_.config.menu)) ReportError(ErrorCode::MenuInfo);
  return S_OK;
}

HResult Tessera::get_Draw(VariantBool& value) { return give(parts_.settings.Draw, value); }

HResult Tessera::put_Draw(VariantBool value) {
  parts_.settings.Draw = value != VARIANT_FALSE;
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_ViewSummary(std::int32_t& value) {
  return give(static_cast<std::int32_t>(parts_.settings.ViewSummary), value);
}

HResult Tessera::put_ViewSummary(std::int32_t value) {
  const auto band = static_cast<SummaryBand>(value);
  if (value < 0 || value > 2 || band == parts_.settings.ViewSummary) return S_OK;
  parts_.settings.ViewSummary = band;
  refillPage();
  return S_OK;
}

HResult Tessera::get_SelectedColor(XString& value) {
  return give(colorToText(parts_.settings.SelectedColor), value);
}

HResult Tessera::put_SelectedColor(const XString& value) {
  const ColorRef color = parseColor(value);
  if (color == parts_.settings.SelectedColor) return S_OK;
  parts_.settings.SelectedColor = color;
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_SelectedColorRate(std::int32_t& value) {
  return give(parts_.settings.SelectedColorRate, value);
}

HResult Tessera::put_SelectedColorRate(std::int32_t value) {
  if (value < 0 || value > 100 || value == parts_.settings.SelectedColorRate) return S_OK;
  parts_.settings.SelectedColorRate = value;
  Repaint(nullptr);
  return S_OK;
}

HResult Tessera::get_IME(std::int32_t& value) { return give(parts_.settings.IME, value); }

HResult Tessera::put_IME(std::int32_t value) {
  parts_.settings.IME = value;
  controllers_.focus.applyImeMode();
  return S_OK;
}

HResult Tessera::get_Enable(VariantBool& value) { return give(parts_.settings.Enable, value); }

HResult Tessera::put_Enable(VariantBool value) {
  const bool enable = value != VARIANT_FALSE;
  if (enable == parts_.settings.Enable) return S_OK;
  parts_.settings.Enable = enable;
  if (!parts_.window) return S_OK;
  if (!enable) controllers_.editors.settle();
  if (!parts_.window) return S_OK;
  parts_.window->setEnabled(parts_.settings.Enable);
  Repaint(nullptr);
  propertySinks_.forEach([](PropertyNotifySink& sink) { sink.OnChanged(DISPID_ENABLED); });
  return S_OK;
}

HResult Tessera::get_Sort(VariantBool& value) { return give(parts_.settings.Sort, value); }
HResult Tessera::put_Sort(VariantBool value) { return take(parts_.settings.Sort, value); }

HResult Tessera::get_DragDrop(std::int32_t& value) { return give(parts_.settings.DragDrop, value); }
HResult Tessera::put_DragDrop(std::int32_t value) { return take(parts_.settings.DragDrop, value); }

HResult Tessera::get_Resize(std::int32_t& value) { return give(parts_.settings.Resize, value); }
HResult Tessera::put_Resize(std::int32_t value) { return take(parts_.settings.Resize, value); }

HResult Tessera::get_FixVScroll(VariantBool& value) { return give(parts_.settings.FixVScroll, value); }

HResult Tessera::put_FixVScroll(VariantBool value) {
  parts_.settings.FixVScroll = value == VARIANT_TRUE;
  parts_.updateBars(bar_bit::both);
  return S_OK;
}

HResult Tessera::get_FixHScroll(VariantBool& value) { return give(parts_.settings.FixHScroll, value); }

HResult Tessera::put_FixHScroll(VariantBool value) {
  parts_.settings.FixHScroll = value == VARIANT_TRUE;
  parts_.updateBars(bar_bit::both);
  return S_OK;
}

HResult Tessera::get_FocusRect(VariantBool& value) { return give(parts_.settings.FocusRect, value); }
HResult Tessera::put_FocusRect(VariantBool value) { return take(parts_.settings.FocusRect, value); }

HResult Tessera::get_ViewHeader(VariantBool& value) { return give(parts_.settings.ViewHeader, value); }

HResult Tessera::put_ViewHeader(VariantBool value) {
  const bool view = value != VARIANT_FALSE;
  if (view == parts_.settings.ViewHeader) return S_OK;
  parts_.settings.ViewHeader = view;
  refillPage();
  return S_OK;
}

// Another number of rows fits on the page, and the rows stand elsewhere: an open list, which does not move
// with its cell, closes without a choice.
void Tessera::refillPage() {
  controllers_.editors.list().close(false);
  if (!parts_.window) return;
  const std::int32_t capacity = parts_.frame().rowCapacity();
  if (const Row top = parts_.page.VisibleAt(0)) parts_.page.RefillFrom(parts_.rows, capacity, top);
  parts_.updateBars(bar_bit::vertical);
  Repaint(nullptr);
}

HResult Tessera::get_Temp(XValue& value) { return give(parts_.settings.Temp, value); }
HResult Tessera::put_Temp(const XValue& value) { return take(parts_.settings.Temp, value); }

}  // namespace tessera
