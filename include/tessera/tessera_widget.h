// The grid control as a Qt widget.

#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>

#include <tessera/data_set_control.h>
#include <tessera/events.h>
#include <tessera/image_set_control.h>
#include <tessera/itessera.h>
#include <tessera/persistence.h>

namespace tessera {

// Shows the rows of a data set in a window. Configured by properties of type text, flag and number; the
// components that these name by id are given with addDataSet() and addImageSet(), in any order:
//
//   tessera::TesseraWidget grid;
//   grid.addDataSet("ORDERS", orders);
//   grid.setDataID("ORDERS");
//   grid.setColumnInfo("<COLUMN id=...>...");
//   grid.show();
//
// Lifetime. The grid's window comes into being when the widget is first shown, grabbed or polished, and goes
// with the widget; until then setters only store their values, and members that need a window do nothing.
// Slots and handlers may destroy the widget, also by a plain delete from inside any of its events: the rest
// of the operation under way finds no window and ends. Only while Qt is at work on the widget itself, which
// is its first show or grab (OnError) and a change of its size, place in the tree, visibility or
// isEnabled() (OnCloseUp, OnExit, OnKillFocus), deleteLater() has to do it. Data sets and image sets are
// shared: the grid lets go of them at its end or when they close.
//
// Painting. What changes is drawn when the input that changed it has been dealt with; changes that the
// program or a data set makes by themselves are drawn once when the program returns to the event loop,
// however many they are.
//
// Units are logical pixels; on a screen of another device pixel ratio, whole or not, texts and edges are
// drawn on its device pixels.
//
// Looks. The face and the size of text that names none is that of font(); when it changes, the grid is built
// anew as by refresh(), after an open edit was saved, when the program returns to the event loop. System
// colours come from the application's palette as it is when the grid is made. When it changes later, they are
// taken again and every grid is built anew: columns take the new colours where they name none, indicator and
// background keep what they have. Configured colours stay.
//
// Everything happens on the thread of the application.
class TesseraWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString dataID READ dataID WRITE setDataID)
  Q_PROPERTY(bool draw READ draw WRITE setDraw)
  Q_PROPERTY(QString columnInfo READ columnInfo WRITE setColumnInfo)
  Q_PROPERTY(QString indicatorInfo READ indicatorInfo WRITE setIndicatorInfo)
  Q_PROPERTY(QString backgroundInfo READ backgroundInfo WRITE setBackgroundInfo)
  Q_PROPERTY(int viewSummary READ viewSummary WRITE setViewSummary)
  Q_PROPERTY(QString selectedColor READ selectedColor WRITE setSelectedColor)
  Q_PROPERTY(int selectedColorRate READ selectedColorRate WRITE setSelectedColorRate)
  Q_PROPERTY(int ime READ ime WRITE setIme)
  Q_PROPERTY(QString imageDataID READ imageDataID WRITE setImageDataID)
  Q_PROPERTY(QString menuInfo READ menuInfo WRITE setMenuInfo)
  Q_PROPERTY(QString version READ version STORED false)
  Q_PROPERTY(bool enable READ enable WRITE setEnable)
  Q_PROPERTY(QString editText READ editText STORED false)
  Q_PROPERTY(int rowPosition READ rowPosition WRITE setRowPosition STORED false)
  Q_PROPERTY(QString columnPosition READ columnPosition WRITE setColumnPosition STORED false)
  Q_PROPERTY(QVariant temp READ temp WRITE setTemp STORED false)
  Q_PROPERTY(bool sort READ sort WRITE setSort)
  Q_PROPERTY(int dragDrop READ dragDrop WRITE setDragDrop)
  Q_PROPERTY(int resize READ resizeFlags WRITE setResizeFlags)
  Q_PROPERTY(QString selectedRows READ selectedRows STORED false)
  Q_PROPERTY(bool fixVScroll READ fixVScroll WRITE setFixVScroll)
  Q_PROPERTY(bool fixHScroll READ fixHScroll WRITE setFixHScroll)
  Q_PROPERTY(bool focusRect READ focusRect WRITE setFocusRect)
  Q_PROPERTY(bool viewHeader READ viewHeader WRITE setViewHeader)
  Q_PROPERTY(int codePage READ codePage WRITE setCodePage)

 public:
  // Answers an event; the arguments are those of the event's signal, in their order. An invalid QVariant is
  // no answer.
  using Handler = std::function<QVariant(const QVariantList& arguments)>;

  explicit TesseraWidget(QWidget* parent = nullptr);
  ~TesseraWidget() override;
  TesseraWidget(const TesseraWidget&) = delete;
  TesseraWidget& operator=(const TesseraWidget&) = delete;

  // The whole interface of the control; valid as long as the widget.
  ITessera& grid();

  // The page around the grid. Ids compare without ASCII case; a component given under a known id takes the
  // place of the old one. A grid whose dataID or imageDataID names the id binds itself anew, and lets go of
  // the component when it is removed.
  void addDataSet(const QString& id, std::shared_ptr<DataSetControl> dataSet);
  void removeDataSet(const QString& id);
  void addImageSet(const QString& id, std::shared_ptr<ImageSetControl> imageSet);
  void removeImageSet(const QString& id);

  // The answer to an event that asks: a bool for OnSelChange, OnExpanding, OnCollapsing, OnDrag and
  // OnDragging, where false refuses; an int for OnExit (1 stay open, 3 close without saving). Every other
  // event can have one too. It is called after the event's signal; an empty handler takes it away.
  void setHandler(EventId event, Handler handler);

  // Reads the stored properties under their names in the interface ("ColumnInfo", "ViewSummary").
  HResult load(PropertyBag& bag);

  QString dataID() const;
  void setDataID(const QString& id);
  bool draw() const;
  void setDraw(bool draw);
  QString columnInfo() const;
  void setColumnInfo(const QString& text);
  QString indicatorInfo() const;
  void setIndicatorInfo(const QString& text);
  QString backgroundInfo() const;
  void setBackgroundInfo(const QString& text);
  int viewSummary() const;
  void setViewSummary(int band);
  QString selectedColor() const;
  void setSelectedColor(const QString& color);
  int selectedColorRate() const;
  void setSelectedColorRate(int percent);
  int ime() const;
  void setIme(int mode);
  QString imageDataID() const;
  void setImageDataID(const QString& id);
  QString menuInfo() const;
  void setMenuInfo(const QString& text);
  QString version() const;
  // The grid's own switch; a grid takes input when this and QWidget::isEnabled() are on.
  bool enable() const;
  void setEnable(bool enable);
  QString editText() const;
  int rowPosition() const;
  void setRowPosition(int row);
  QString columnPosition() const;
  void setColumnPosition(const QString& colid);
  QVariant temp() const;
  void setTemp(const QVariant& value);
  bool sort() const;
  void setSort(bool sort);
  int dragDrop() const;
  void setDragDrop(int flags);
  int resizeFlags() const;
  void setResizeFlags(int flags);
  QString selectedRows() const;
  bool fixVScroll() const;
  void setFixVScroll(bool fix);
  bool fixHScroll() const;
  void setFixHScroll(bool fix);
  bool focusRect() const;
  void setFocusRect(bool show);
  bool viewHeader() const;
  void setViewHeader(bool view);
  // Of narrow texts, as Windows numbers; 65001 is UTF-8.
  int codePage() const;
  void setCodePage(int codePage);

  Q_INVOKABLE QString getText(const QString& colid, int index, int type = 3) const;
  Q_INVOKABLE QString refColumnID(const QString& colid) const;
  Q_INVOKABLE QString columnID(int index) const;
  Q_INVOKABLE int countColumn(int type) const;
  Q_INVOKABLE QVariant layoutInfo(const QString& infoType, const QString& item) const;
  Q_INVOKABLE void setLayoutInfo(const QString& infoType, const QString& item, const QVariant& value);
  Q_INVOKABLE QVariant blockSelect(const QString& subProperty) const;
  Q_INVOKABLE void setBlockSelect(const QString& subProperty, const QVariant& value);

  QSize sizeHint() const override;

 public Q_SLOTS:
  // The methods of the interface. Those whose names C++ or QWidget have taken bear a longer one.
  void focusGrid();                   // Focus
  void trackPopupMenu(int x, int y);  // client pixels of the grid
  void activateEdit();
  void fitArrange();
  void expand(int row);
  void expandAll();
  void collapse(int row);
  void collapseAll();
  void insertRow(int index, int option = 0, const QString& value = {});  // Insert
  void deleteRow(int index);                                             // Delete
  void moveRow(int sourceIndex, int targetIndex, int option = 0);        // Move
  void exportTitle(int option, const QString& value = {});
  void exportFooter(int option, const QString& value = {});
  void gridToExcel(const QString& sheetName, const QString& path, int option = 0);
  void gridToHtml(const QString& path, int option = 0);
  void updateImageSet(const QString& refColID, int startRow, int endRow);
  // Builds columns, rows and page anew from the configuration and the data set.
  void refresh();

 Q_SIGNALS:
  // The events of the interface, without their "On". Mouse: `type` is the region (1 indicator, 2 header, 3
  // data row, 4 summary row, 5 summary band, 6 nothing), `row` a data set row or below 1, (x, y) client
  // pixels of the grid. `state` of keys: 1 Ctrl plus 2 Shift.
  void lButtonDown(int type, int row, const QString& colid, int x, int y);
  void lButtonUp(int type, int row, const QString& colid, int x, int y);
  void lButtonDblClk(int type, int row, const QString& colid, int x, int y);
  void rButtonDown(int type, int row, const QString& colid, int x, int y);
  void rButtonUp(int type, int row, const QString& colid, int x, int y);
  void rButtonDblClk(int type, int row, const QString& colid, int x, int y);
  void menuSelected(int code, const QString& itemText);
  void charTyped();                                 // OnChar
  void selChange(const QString& colid, int index);  // a handler may refuse
  void selChanged(const QString& colid, int index);
  void focusGained();  // OnSetFocus
  void focusLost();    // OnKillFocus
  void popup(const QString& colid, int index, int flag);
  void enter(const QString& colid, int index);
  void exit(const QString& colid, int index, const QString& oldData);  // a handler decides
  void closeUp(const QString& colid, int index);
  void dropDown(const QString& colid, int index);
  void firstUp();
  void lastDown();
  void keyDown(int key, int state);
  void error(int code, const QString& text);
  void expanding(int index);  // a handler may refuse
  void expanded(int index);
  void collapsing(int index);  // a handler may refuse
  void collapsed(int index);
  void drag(const QString& colid, int index);      // a handler may refuse
  void dragging(const QString& colid, int index);  // a handler may refuse
  void drop(const QString& colid, int index, const QVariant& data);
  void paste(const QString& colid, int index);
  void copy(bool cellSelected, bool blockSelected);
  void headCheckClick(int col, const QString& colid, bool checked);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace tessera
