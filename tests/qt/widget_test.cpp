// What the widget does beyond the control's own behaviour: focus of the dialog, bars, painting, properties.

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <gtest/gtest.h>

#include "qt/qt_desk.h"
#include "support/fake_data_set.h"

namespace tessera::test {
namespace {

constexpr QPoint firstName{60, 30};   // row 1 of column "name"
constexpr QPoint secondName{60, 50};  // row 2

// The data set row under a place, as the grid tells it at a press there.
int rowAt(QtDesk& desk, QPoint client) {
  int row = 0;
  const auto connection = QObject::connect(&desk.grid(), &TesseraWidget::rButtonDown,
                                           [&row](int, int found, const QString&) { row = found; });
  desk.mouse(QEvent::MouseButtonPress, Qt::RightButton, client);
  desk.mouse(QEvent::MouseButtonRelease, Qt::RightButton, client);
  QObject::disconnect(connection);
  return row;
}

struct TabCase {
  const char* what;
  int row;
  const char* colid;
  bool edits;
  Qt::KeyboardModifiers held;
  bool leadsOut;
};

void PrintTo(const TabCase& row, std::ostream* out) { *out << row.what; }

class TabTest : public testing::TestWithParam<TabCase> {};

TEST_P(TabTest, LeadsOutAtTheEndsOnly) {
  const TabCase& is = GetParam();
  QtDesk desk("editors.xml");
  desk.grid().setFocus();
  desk.grid().setRowPosition(is.row);
  desk.grid().setColumnPosition(is.colid);
  if (is.edits) desk.grid().activateEdit();
  ASSERT_EQ(desk.editIsOpen() || desk.editBox().hasFocus(), is.edits);
  desk.takeEvents();
  const bool back = is.held.testFlag(Qt::ShiftModifier);
  desk.key(back ? Qt::Key_Backtab : Qt::Key_Tab, is.held);
  const std::string told = desk.takeText();
  EXPECT_EQ(desk.before().hasFocus(), is.leadsOut && back) << told;
  EXPECT_EQ(desk.after().hasFocus(), is.leadsOut && !back) << told;
  EXPECT_NE(told.find(back ? "OnKeyDown(255, 2)" : "OnKeyDown(255, 0)"), std::string::npos) << told;
  EXPECT_EQ(told.find("OnKillFocus") != std::string::npos, is.leadsOut) << told;
  EXPECT_EQ(told.find("OnExit") != std::string::npos, is.edits) << told;
}

INSTANTIATE_TEST_SUITE_P(Ends, TabTest,
                         testing::Values(TabCase{"FirstBack", 1, "name", false, Qt::ShiftModifier, true},
                                         TabCase{"FirstEditBack", 1, "name", true, Qt::ShiftModifier, true},
                                         TabCase{"FirstOn", 1, "name", true, {}, false},
                                         TabCase{"LastOn", 7, "fixed", false, {}, true},
                                         TabCase{"LastEditOn", 7, "fixed", true, {}, true},
                                         TabCase{"LastBack", 7, "fixed", true, Qt::ShiftModifier, false}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(Bars, ScrollTheGridAndFollowIt) {
  QtDesk desk("editors.xml");
  QScrollBar& bar = desk.bar(Qt::Vertical);
  ASSERT_TRUE(bar.isVisible());
  const int lowest = bar.maximum();
  ASSERT_GT(lowest, 1);
  bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(rowAt(desk, firstName), 2);
  EXPECT_EQ(bar.value(), 2);
  bar.setSliderDown(true);
  bar.setSliderPosition(lowest);
  EXPECT_EQ(rowAt(desk, firstName), lowest) << "the rows follow the thumb";
  bar.setSliderPosition(2);
  bar.setSliderDown(false);
  EXPECT_EQ(rowAt(desk, firstName), 2);
  bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(rowAt(desk, firstName), lowest);
  EXPECT_EQ(bar.value(), lowest);
  bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
  EXPECT_EQ(bar.value(), lowest) << "the grid cannot follow, so the bar stays";
  desk.wheel(firstName, 40);
  EXPECT_EQ(rowAt(desk, firstName), lowest) << "a third of a notch";
  desk.wheel(firstName, 80);
  EXPECT_EQ(rowAt(desk, firstName), 1);
}

// Rows that count how often the first cell is asked for, which is once a paint.
class CountingRows : public FakeDataSet {
 public:
  using FakeDataSet::FakeDataSet;
  void GetText(std::int32_t row, std::int32_t column, XString& text) override {
    reads += row == 1 && column == 1 ? 1 : 0;
    FakeDataSet::GetText(row, column, text);
  }
  void GetValue(std::int32_t row, std::int32_t column, XValue& value) override {
    reads += row == 1 && column == 1 ? 1 : 0;
    FakeDataSet::GetValue(row, column, value);
  }
  HResult Advise(DataSetNotifications* sink, std::int32_t) override {
    sinks.push_back(sink);
    return S_OK;
  }
  void Unadvise(DataSetNotifications* sink) override { std::erase(sinks, sink); }
  void change(std::int32_t row) {
    for (DataSetNotifications* sink : std::vector(sinks)) sink->CellChanged(row, 1);
  }

  int reads = 0;
  std::vector<DataSetNotifications*> sinks;
};

TEST(Painting, ABurstOfUpdatesIsPaintedOnce) {
  const auto rows = twoRows<CountingRows>();
  TesseraWidget grid;
  grid.setDataID("rows");
  grid.setColumnInfo(oneColumn);
  grid.addDataSet("ROWS", rows);
  grid.show();
  QApplication::processEvents();
  rows->reads = 0;
  grid.grid().put_SelectedColorRate(41);
  QApplication::processEvents();
  const int readsOfOnePaint = rows->reads;
  ASSERT_GT(readsOfOnePaint, 0);
  rows->reads = 0;
  for (int i = 0; i < 1000; ++i) rows->change(1 + i % 2);
  EXPECT_EQ(rows->reads, 0);
  QApplication::processEvents();
  EXPECT_EQ(rows->reads, readsOfOnePaint);
  rows->reads = 0;
  rows->change(2);
  const QImage shown = grid.grab().toImage();
  EXPECT_EQ(rows->reads, readsOfOnePaint) << "a picture shows what there is";
  EXPECT_FALSE(shown.isNull());
}

TEST(Page, ComponentsBindWheneverTheyCome) {
  const auto rows = twoRows<CountingRows>();
  TesseraWidget grid;
  grid.setColumnInfo(oneColumn);
  grid.setDataID("rows");
  grid.show();
  EXPECT_EQ(grid.countColumn(1), 0);
  grid.addDataSet("Rows", rows);
  EXPECT_EQ(grid.countColumn(1), 1);
  EXPECT_EQ(grid.getText("a", 2), "two");
  EXPECT_EQ(rows->sinks.size(), 1u);
  const auto others = twoRows<CountingRows>();
  others->rows[1].values[0] = XValue::ofText(u"other");
  grid.addDataSet("rows", others);
  EXPECT_EQ(grid.getText("a", 2), "other");
  EXPECT_TRUE(rows->sinks.empty());
  grid.removeDataSet("ROWS");
  EXPECT_TRUE(others->sinks.empty());
  EXPECT_EQ(others.use_count(), 1);
}

TEST(Properties, EachKeepsWhatItIsGiven) {
  const std::pair<const char*, QVariant> rows[] = {
      {"dataID", "rows"},
      {"draw", false},
      {"columnInfo", oneColumn},
      {"viewSummary", 2},
      {"selectedColor", "#123456"},
      {"selectedColorRate", 7},
      {"ime", 2},
      {"imageDataID", "pictures"},
      {"enable", false},
      {"temp", 2.5},
      {"sort", false},
      {"dragDrop", 3},
      {"resize", 0},
      {"fixVScroll", true},
      {"fixHScroll", true},
      {"focusRect", false},
      {"viewHeader", false},
      {"codePage", 949},
      {"indicatorInfo", R"(<INDICATOR width="30"/>)"},
      {"backgroundInfo", R"(<BACKGROUND bgcolor="white"/>)"},
      {"menuInfo", R"(<MENU><ITEM text="One" code="1"/></MENU>)"}};
  TesseraWidget grid;
  for (const auto& [name, value] : rows) {
    ASSERT_NE(grid.property(name), value) << name << " is that already";
    ASSERT_TRUE(grid.setProperty(name, value)) << name;
    EXPECT_EQ(grid.property(name), value) << name;
  }
}

TEST(Events, ComeAsSignalsBeforeTheirHandlers) {
  QtDesk desk("editors.xml");
  QStringList heard;
  TesseraWidget& grid = desk.grid();
  const auto hear = [&heard](const QString& text) { heard.append(text); };
  QObject::connect(&grid, &TesseraWidget::selChange, [&](const QString& colid, int row) {
    hear(QString("selChange %1 %2").arg(colid).arg(row));
  });
  QObject::connect(&grid, &TesseraWidget::lButtonDown,
                   [&](int type, int row, const QString& colid, int x, int y) {
                     hear(QString("lButtonDown %1 %2 %3 %4 %5").arg(type).arg(row).arg(colid).arg(x).arg(y));
                   });
  QObject::connect(&grid, &TesseraWidget::copy,
                   [&](bool cell, bool block) { hear(QString("copy %1 %2").arg(cell).arg(block)); });
  QObject::connect(&grid, &TesseraWidget::exit, [&](const QString& colid, int row, const QString& old) {
    hear(QString("exit %1 %2 %3").arg(colid).arg(row).arg(old));
  });
  grid.setHandler(EventId::OnSelChange, [&](const QVariantList& arguments) {
    hear("handler " + arguments[0].toString());
    return QVariant(arguments[1].toInt() != 2);
  });
  desk.click(secondName);
  EXPECT_EQ(heard.join("; "), "selChange name 2; handler name; lButtonDown 3 2 name 60 50");
  heard.clear();
  desk.click(firstName + QPoint(60, 0));
  desk.key(Qt::Key_C, Qt::ControlModifier, QString(QChar(3)));
  desk.type("x");
  desk.key(Qt::Key_Escape);
  EXPECT_EQ(heard.join("; "),
            "selChange code 1; handler code; lButtonDown 3 1 code 120 30; copy 1 0; "
            "exit code 1 ANC");
}

TEST(Menu, ReportsTheItemThatWasPicked) {
  QtDesk desk("editors.xml");
  QString picked;
  QObject::connect(&desk.grid(), &TesseraWidget::menuSelected,
                   [&](int code, const QString& text) { picked = QString("%1 %2").arg(code).arg(text); });
  const auto answerWith = [&](auto pick) {
    QTimer::singleShot(0, &desk.grid(), [pick] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      pick(*menu);
    });
    desk.grid().trackPopupMenu(10, 10);
  };
  answerWith([](QMenu& menu) {
    EXPECT_FALSE(menu.actions()[1]->isEnabled());
    EXPECT_TRUE(menu.actions()[2]->isSeparator());
    menu.close();
  });
  EXPECT_EQ(picked, "");
  answerWith([](QMenu& menu) {
    menu.setActiveAction(menu.actions()[0]);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QApplication::sendEvent(&menu, &enter);
  });
  EXPECT_EQ(picked, "1 Copy row");
}

TEST(List, ClosesAtAPressElsewhereAndFollowsThePointer) {
  QtDesk desk("editors.xml");
  desk.grid().setFocus();
  desk.grid().setColumnPosition("size");
  desk.takeEvents();
  desk.key(Qt::Key_Return);
  QListWidget* list = desk.list();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->window()->height(), 3 * list->visualItemRect(list->item(0)).height() + 2);
  const QRect third = list->visualItemRect(list->item(2));
  const QPoint at = desk.view().mapFromGlobal(list->viewport()->mapToGlobal(third.center()));
  desk.mouse(QEvent::MouseMove, Qt::NoButton, at);
  EXPECT_EQ(list->currentRow(), 2);
  list->window()->close();
  EXPECT_EQ(desk.list(), nullptr);
  EXPECT_EQ(desk.cell(1, 7), "S");
  EXPECT_TRUE(desk.view().hasFocus());
  EXPECT_EQ(desk.takeText(), "OnDropDown(\"size\", 1); OnKeyDown(13, 0); OnCloseUp(\"size\", 1); ");
  desk.key(Qt::Key_Return);
  desk.mouse(QEvent::MouseButtonPress, Qt::LeftButton, at);
  EXPECT_EQ(desk.list(), nullptr);
  EXPECT_EQ(desk.cell(1, 7), "L");
}

// While a list is shown its window gets the mouse, wherever that is. The focus comes back to the grid, and
// goes when whoever was pressed takes it.
TEST(List, HandsOnWhatIsTheGridsAndTellsOfTheFocusOnce) {
  QtDesk desk("editors.xml");
  desk.grid().setFocus();
  desk.grid().setColumnPosition("size");
  const auto send = [](QEvent::Type type, QPoint at) {
    QWidget* const window = QApplication::activePopupWidget();
    ASSERT_NE(window, nullptr);
    QCursor::setPos(at);
    QMouseEvent event(type, window->mapFromGlobal(QPointF(at)), at, Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(window, &event);
  };
  constexpr QPoint button{455, 30};
  desk.takeEvents();
  desk.mouse(QEvent::MouseButtonPress, Qt::LeftButton, button);
  send(QEvent::MouseButtonRelease, desk.view().mapToGlobal(button));
  EXPECT_EQ(desk.takeText(),
            "OnDropDown(\"size\", 1); OnLButtonDown(3, 1, \"size\", 455, 30); "
            "OnLButtonUp(3, 1, \"size\", 455, 30); ");
  send(QEvent::MouseButtonPress, desk.view().mapToGlobal(secondName));
  EXPECT_EQ(desk.takeText(),
            "OnCloseUp(\"size\", 1); OnSelChange(\"name\", 2); OnSelChanged(\"name\", 2); "
            "OnLButtonDown(3, 2, \"name\", 60, 50); OnLButtonUp(3, 2, \"name\", 60, 50); ");
  desk.grid().setColumnPosition("size");
  desk.key(Qt::Key_Return);
  desk.takeEvents();
  send(QEvent::MouseButtonPress, desk.after().mapToGlobal(QPoint(2, 2)));
  EXPECT_EQ(desk.takeText(), "OnCloseUp(\"size\", 2); ");
  desk.after().setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(desk.takeText(), "OnKillFocus(); ");
}

TEST(Accessibility, SaysWhatTheGridAndItsFocusCellAre) {
  QtDesk desk("editors.xml");
  desk.grid().setAccessibleName("Parts");
  desk.grid().setRowPosition(2);
  desk.grid().setColumnPosition("code");
  QAccessibleInterface* const grid = QAccessible::queryAccessibleInterface(&desk.grid());
  QAccessibleInterface* const cell = QAccessible::queryAccessibleInterface(&desk.view());
  EXPECT_EQ(grid->role(), QAccessible::Table);
  EXPECT_EQ(grid->text(QAccessible::Name), "Parts");
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(cell->text(QAccessible::Name), "BLT");
}

}  // namespace
}  // namespace tessera::test
