#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <utility>

#include <tessera/tessera_widget.h>

#include "backends/qt/grid_accessible.h"
#include "backends/qt/grid_pane.h"
#include "backends/qt/qt_screen.h"
#include "backends/qt/qt_text.h"
#include "backends/qt/widget_core.h"
#include "hosting/persistence.h"
#include "shared/compare.h"

namespace tessera {

namespace {

// A text property of the grid names a component that came or went: the same id binds anew.
using GetText = HResult (ITessera::*)(XString&);
using PutText = HResult (ITessera::*)(const XString&);

bool names(ITessera& grid, GetText get, const XString& id) {
  XString bound;
  (grid.*get)(bound);
  return equalNoCase(bound, id);
}

void bindAnew(ITessera& grid, GetText get, PutText put, const XString& id) {
  if (!names(grid, get, id)) return;
  (grid.*put)(XString());
  (grid.*put)(id);
}

template <auto get>
QString textOf(ITessera& grid) {
  XString text;
  (grid.*get)(text);
  return toQString(text);
}

template <auto get>
bool flagOf(ITessera& grid) {
  VariantBool flag = VARIANT_FALSE;
  (grid.*get)(flag);
  return flag != VARIANT_FALSE;
}

template <auto get>
int numberOf(ITessera& grid) {
  std::int32_t number = 0;
  (grid.*get)(number);
  return number;
}

QEvent::Type rebuildRequest() {
  static const int type = QEvent::registerEventType();
  return static_cast<QEvent::Type>(type);
}

VariantBool flag(bool on) { return on ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

// Owns the core until the widget's end, then hands it to whoever is still in the midst of it.
class TesseraWidget::Impl {
 public:
  explicit Impl(TesseraWidget& widget)
      : pane_(new GridPane(&widget)), core_(std::make_shared<WidgetCore>(widget)) {
    widget.setFocusProxy(&pane_->view());
  }
  ~Impl() {
    core_->closeWindow();
    if (core_->calls().underWay()) outlive();
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  std::shared_ptr<WidgetCore> core() const { return core_; }
  ITessera& grid() const { return core_->control(); }
  GridPane& pane() const { return *pane_; }
  void openWindow(const QRect& area) {
    if (core_->hasWindow()) return;
    pane_->setGeometry(area);
    pane_->arrange();
    core_->openWindow(*pane_);
  }
  // When the program is back in the event loop: the events of it may destroy the widget.
  void requestRebuild(TesseraWidget& widget) {
    if (!core_->hasWindow() || std::exchange(rebuilding_, true)) return;
    QCoreApplication::postEvent(&widget, new QEvent(rebuildRequest()));
  }
  void rebuild() {
    rebuilding_ = false;
    const auto core = core_;
    core->rebuild();
  }
  void takeColors(TesseraWidget& widget) {
    const int before = std::exchange(screen_, takeDesktopScreen());
    if (screen_ != before) requestRebuild(widget);
  }

 private:
  void outlive() {
    pane_->hide();
    pane_->setParent(nullptr);
    core_->calls().whenOver([core = core_, pane = pane_] {
      pane->deleteLater();
      auto* const keeper = new QObject;
      QObject::connect(keeper, &QObject::destroyed, [core] {});
      keeper->deleteLater();
    });
  }

  int screen_ = takeDesktopScreen();  // the one that the core takes its colours from
  GridPane* pane_;                    // the widget's child
  std::shared_ptr<WidgetCore> core_;
  bool rebuilding_ = false;
};

// The records of the control take the system colours from the moment they are made.
TesseraWidget::TesseraWidget(QWidget* parent) : QWidget(parent) {
  installGridAccessibility();
  impl_ = std::make_unique<Impl>(*this);
  connect(this, &TesseraWidget::selChanged, this, [this] { announceCell(impl_->pane().view()); });
}

TesseraWidget::~TesseraWidget() = default;

ITessera& TesseraWidget::grid() { return impl_->grid(); }

QSize TesseraWidget::sizeHint() const { return {400, 240}; }

void TesseraWidget::addDataSet(const QString& id, std::shared_ptr<DataSetControl> dataSet) {
  const auto core = impl_->core();
  core->page().put(toXString(id), std::move(dataSet));
  bindAnew(core->control(), &ITessera::get_DataID, &ITessera::put_DataID, toXString(id));
}

void TesseraWidget::removeDataSet(const QString& id) {
  const auto core = impl_->core();
  core->page().remove(toXString(id));
  if (names(core->control(), &ITessera::get_DataID, toXString(id))) core->control().put_DataID({});
}

void TesseraWidget::addImageSet(const QString& id, std::shared_ptr<ImageSetControl> imageSet) {
  const auto core = impl_->core();
  core->page().put(toXString(id), std::move(imageSet));
  bindAnew(core->control(), &ITessera::get_ImageDataID, &ITessera::put_ImageDataID, toXString(id));
}

void TesseraWidget::removeImageSet(const QString& id) {
  const auto core = impl_->core();
  core->page().remove(toXString(id));
  if (names(core->control(), &ITessera::get_ImageDataID, toXString(id))) core->control().put_ImageDataID({});
}

void TesseraWidget::setHandler(EventId event, Handler handler) {
  impl_->core()->setHandler(event, std::move(handler));
}

HResult TesseraWidget::load(PropertyBag& bag) {
  const auto core = impl_->core();
  return loadFromBag(core->control().properties(), bag);
}

bool TesseraWidget::event(QEvent* event) {
  const QPointer<TesseraWidget> self(this);
  if (event->type() == rebuildRequest()) return impl_->rebuild(), true;
  if (event->type() == QEvent::Polish) impl_->openWindow(rect());
  return !self || QWidget::event(event);
}

void TesseraWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) impl_->requestRebuild(*this);
  if (event->type() == QEvent::PaletteChange) impl_->takeColors(*this);
}

void TesseraWidget::resizeEvent(QResizeEvent*) { impl_->pane().setGeometry(rect()); }

QString TesseraWidget::dataID() const { return textOf<&ITessera::get_DataID>(impl_->grid()); }
void TesseraWidget::setDataID(const QString& id) { impl_->grid().put_DataID(toXString(id)); }
bool TesseraWidget::draw() const { return flagOf<&ITessera::get_Draw>(impl_->grid()); }
void TesseraWidget::setDraw(bool draw) { impl_->grid().put_Draw(flag(draw)); }
QString TesseraWidget::columnInfo() const { return textOf<&ITessera::get_ColumnInfo>(impl_->grid()); }
void TesseraWidget::setColumnInfo(const QString& text) { impl_->grid().put_ColumnInfo(toXString(text)); }
QString TesseraWidget::indicatorInfo() const { return textOf<&ITessera::get_IndicatorInfo>(impl_->grid()); }
void TesseraWidget::setIndicatorInfo(const QString& text) {
  impl_->grid().put_IndicatorInfo(toXString(text));
}
QString TesseraWidget::backgroundInfo() const { return textOf<&ITessera::get_BackgroundInfo>(impl_->grid()); }
void TesseraWidget::setBackgroundInfo(const QString& text) {
  impl_->grid().put_BackgroundInfo(toXString(text));
}
int TesseraWidget::viewSummary() const { return numberOf<&ITessera::get_ViewSummary>(impl_->grid()); }
void TesseraWidget::setViewSummary(int band) { impl_->grid().put_ViewSummary(band); }
QString TesseraWidget::selectedColor() const { return textOf<&ITessera::get_SelectedColor>(impl_->grid()); }
void TesseraWidget::setSelectedColor(const QString& color) {
  impl_->grid().put_SelectedColor(toXString(color));
}
int TesseraWidget::selectedColorRate() const {
  return numberOf<&ITessera::get_SelectedColorRate>(impl_->grid());
}
void TesseraWidget::setSelectedColorRate(int percent) { impl_->grid().put_SelectedColorRate(percent); }
int TesseraWidget::ime() const { return numberOf<&ITessera::get_IME>(impl_->grid()); }
void TesseraWidget::setIme(int mode) { impl_->grid().put_IME(mode); }
QString TesseraWidget::imageDataID() const { return textOf<&ITessera::get_ImageDataID>(impl_->grid()); }
void TesseraWidget::setImageDataID(const QString& id) { impl_->grid().put_ImageDataID(toXString(id)); }
QString TesseraWidget::menuInfo() const { return textOf<&ITessera::get_MenuInfo>(impl_->grid()); }
void TesseraWidget::setMenuInfo(const QString& text) { impl_->grid().put_MenuInfo(toXString(text)); }
QString TesseraWidget::version() const { return textOf<&ITessera::get_Version>(impl_->grid()); }
bool TesseraWidget::enable() const { return flagOf<&ITessera::get_Enable>(impl_->grid()); }
void TesseraWidget::setEnable(bool enable) { impl_->grid().put_Enable(flag(enable)); }
QString TesseraWidget::editText() const { return textOf<&ITessera::get_GetEditText>(impl_->grid()); }
int TesseraWidget::rowPosition() const { return numberOf<&ITessera::get_RowPosition>(impl_->grid()); }
void TesseraWidget::setRowPosition(int row) { impl_->grid().put_RowPosition(row); }
QString TesseraWidget::columnPosition() const { return textOf<&ITessera::get_ColumnPosition>(impl_->grid()); }
void TesseraWidget::setColumnPosition(const QString& colid) {
  impl_->grid().put_ColumnPosition(toXString(colid));
}
QVariant TesseraWidget::temp() const {
  XValue value;
  impl_->grid().get_Temp(value);
  return toVariant(value);
}
void TesseraWidget::setTemp(const QVariant& value) { impl_->grid().put_Temp(toXValue(value)); }
bool TesseraWidget::sort() const { return flagOf<&ITessera::get_Sort>(impl_->grid()); }
void TesseraWidget::setSort(bool sort) { impl_->grid().put_Sort(flag(sort)); }
int TesseraWidget::dragDrop() const { return numberOf<&ITessera::get_DragDrop>(impl_->grid()); }
void TesseraWidget::setDragDrop(int flags) { impl_->grid().put_DragDrop(flags); }
int TesseraWidget::resizeFlags() const { return numberOf<&ITessera::get_Resize>(impl_->grid()); }
void TesseraWidget::setResizeFlags(int flags) { impl_->grid().put_Resize(flags); }
QString TesseraWidget::selectedRows() const { return textOf<&ITessera::get_SelectedRows>(impl_->grid()); }
bool TesseraWidget::fixVScroll() const { return flagOf<&ITessera::get_FixVScroll>(impl_->grid()); }
void TesseraWidget::setFixVScroll(bool fix) { impl_->grid().put_FixVScroll(flag(fix)); }
bool TesseraWidget::fixHScroll() const { return flagOf<&ITessera::get_FixHScroll>(impl_->grid()); }
void TesseraWidget::setFixHScroll(bool fix) { impl_->grid().put_FixHScroll(flag(fix)); }
bool TesseraWidget::focusRect() const { return flagOf<&ITessera::get_FocusRect>(impl_->grid()); }
void TesseraWidget::setFocusRect(bool show) { impl_->grid().put_FocusRect(flag(show)); }
bool TesseraWidget::viewHeader() const { return flagOf<&ITessera::get_ViewHeader>(impl_->grid()); }
void TesseraWidget::setViewHeader(bool view) { impl_->grid().put_ViewHeader(flag(view)); }
int TesseraWidget::codePage() const { return static_cast<int>(impl_->core()->page().codePage); }
void TesseraWidget::setCodePage(int codePage) {
  const auto core = impl_->core();
  core->page().codePage = static_cast<std::uint32_t>(codePage);
  core->control().quickActivate();
}

QString TesseraWidget::getText(const QString& colid, int index, int type) const {
  XString text;
  impl_->grid().get_GetText(toXString(colid), index, type, text);
  return toQString(text);
}

QString TesseraWidget::refColumnID(const QString& colid) const {
  XString name;
  impl_->grid().get_GetRefColumnID(toXString(colid), name);
  return toQString(name);
}

QString TesseraWidget::columnID(int index) const {
  XString colid;
  impl_->grid().get_GetColumnID(index, colid);
  return toQString(colid);
}

int TesseraWidget::countColumn(int type) const {
  std::int32_t count = 0;
  impl_->grid().get_CountColumn(type, count);
  return count;
}

QVariant TesseraWidget::layoutInfo(const QString& infoType, const QString& item) const {
  XValue value;
  impl_->grid().get_LayoutInfo(toXString(infoType), toXString(item), value);
  return toVariant(value);
}

void TesseraWidget::setLayoutInfo(const QString& infoType, const QString& item, const QVariant& value) {
  impl_->grid().put_LayoutInfo(toXString(infoType), toXString(item), toXValue(value));
}

QVariant TesseraWidget::blockSelect(const QString& subProperty) const {
  XValue value;
  impl_->grid().get_BlockSelect(toXString(subProperty), value);
  return toVariant(value);
}

void TesseraWidget::setBlockSelect(const QString& subProperty, const QVariant& value) {
  impl_->grid().put_BlockSelect(toXString(subProperty), toXValue(value));
}

void TesseraWidget::focusGrid() { impl_->grid().Focus(); }
void TesseraWidget::trackPopupMenu(int x, int y) { impl_->grid().TrackPopupMenu(x, y); }
void TesseraWidget::activateEdit() { impl_->grid().ActivateEdit(); }
void TesseraWidget::fitArrange() { impl_->grid().FitArrange(); }
void TesseraWidget::expand(int row) { impl_->grid().Expand(row); }
void TesseraWidget::expandAll() { impl_->grid().ExpandAll(); }
void TesseraWidget::collapse(int row) { impl_->grid().Collapse(row); }
void TesseraWidget::collapseAll() { impl_->grid().CollapseAll(); }
void TesseraWidget::insertRow(int index, int option, const QString& value) {
  impl_->grid().Insert(index, option, toXString(value));
}
void TesseraWidget::deleteRow(int index) { impl_->grid().Delete(index); }
void TesseraWidget::moveRow(int sourceIndex, int targetIndex, int option) {
  impl_->grid().Move(sourceIndex, targetIndex, option);
}
void TesseraWidget::exportTitle(int option, const QString& value) {
  impl_->grid().ExportTitle(option, toXString(value));
}
void TesseraWidget::exportFooter(int option, const QString& value) {
  impl_->grid().ExportFooter(option, toXString(value));
}
void TesseraWidget::gridToExcel(const QString& sheetName, const QString& path, int option) {
  impl_->grid().GridToExcel(toXString(sheetName), toXString(path), option);
}
void TesseraWidget::gridToHtml(const QString& path, int option) {
  impl_->grid().GridToHtml(toXString(path), option);
}
void TesseraWidget::updateImageSet(const QString& refColID, int startRow, int endRow) {
  impl_->grid().UpdateImageSet(toXString(refColID), startRow, endRow);
}
void TesseraWidget::refresh() { impl_->core()->control().Refresh(); }

}  // namespace tessera
