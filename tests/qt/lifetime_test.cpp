// Grids that come and go, also from inside their own events.

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "backends/qt/qt_dispatcher.h"
#include "qt/qt_desk.h"
#include "support/fake_data_set.h"

namespace tessera::test {
namespace {

struct Destruction {
  EventId event;
  void (*script)(QtDesk& desk);
};

constexpr QPoint secondName{60, 50}, headCheck{541, 10};

void enterOn(QtDesk& desk, const char* colid) {
  desk.grid().setFocus();
  desk.grid().setColumnPosition(colid);
  if (desk.hasGrid()) desk.key(Qt::Key_Return);
}

const Destruction destructions[] = {
    {EventId::OnLButtonDown, [](QtDesk& desk) { desk.click(secondName); }},
    {EventId::OnLButtonDblClk,
     [](QtDesk& desk) {
       desk.click(secondName);
       desk.mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, secondName);
     }},
    {EventId::OnRButtonDown,
     [](QtDesk& desk) { desk.mouse(QEvent::MouseButtonPress, Qt::RightButton, secondName); }},
    {EventId::OnSelChange, [](QtDesk& desk) { desk.click(secondName); }},
    {EventId::OnSelChanged, [](QtDesk& desk) { desk.key(Qt::Key_Down); }},
    {EventId::OnSetFocus, [](QtDesk& desk) { desk.grid().focusGrid(); }},
    {EventId::OnKillFocus,
     [](QtDesk& desk) {
       enterOn(desk, "name");
       desk.after().setFocus();
     }},
    {EventId::OnEnter, [](QtDesk& desk) { enterOn(desk, "name"); }},
    {EventId::OnExit,
     [](QtDesk& desk) {
       enterOn(desk, "name");
       desk.key(Qt::Key_Return);
     }},
    {EventId::OnChar,
     [](QtDesk& desk) {
       enterOn(desk, "name");
       desk.type("ab");
     }},
    {EventId::OnKeyDown, [](QtDesk& desk) { desk.key(Qt::Key_F5); }},
    {EventId::OnPopup, [](QtDesk& desk) { enterOn(desk, "file"); }},
    {EventId::OnDropDown, [](QtDesk& desk) { enterOn(desk, "size"); }},
    {EventId::OnCloseUp,
     [](QtDesk& desk) {
       enterOn(desk, "size");
       desk.key(Qt::Key_Return);
     }},
    {EventId::OnLastDown,
     [](QtDesk& desk) {
       desk.grid().setRowPosition(7);
       desk.key(Qt::Key_Down);
     }},
    {EventId::OnHeadCheckClick, [](QtDesk& desk) { desk.click(headCheck); }},
    {EventId::OnMenuSelected,
     [](QtDesk& desk) {
       QTimer::singleShot(0, [] {
         auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
         menu->setActiveAction(menu->actions()[0]);
         QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
         QApplication::sendEvent(menu, &enter);
       });
       desk.grid().trackPopupMenu(5, 5);
     }},
    {EventId::OnError, [](QtDesk& desk) { desk.grid().setMenuInfo("no menu"); }},
};

class DestructionTest : public testing::TestWithParam<Destruction> {};

TEST_P(DestructionTest, EndsInPeace) {
  QtDesk desk("editors.xml");
  if (GetParam().event != EventId::OnSetFocus) desk.grid().setFocus();
  desk.runInside(GetParam().event, [&desk] { desk.destroyGrid(); });
  desk.takeEvents();
  GetParam().script(desk);
  const std::vector<std::string> told = desk.takeEvents();
  ASSERT_FALSE(desk.hasGrid());
  ASSERT_FALSE(told.empty());
  EXPECT_TRUE(told.back().starts_with(eventName(GetParam().event))) << told.back();
  desk.settle();
}

INSTANTIATE_TEST_SUITE_P(Events, DestructionTest, testing::ValuesIn(destructions),
                         [](const auto& row) { return std::string(eventName(row.param.event)); });

// The menu's own loop is under way, inside a call of the grid.
TEST(Lifetime, AGridTakesItsOpenMenuAlong) {
  QtDesk desk("editors.xml");
  bool picked = false;
  desk.runInside(EventId::OnMenuSelected, [&picked] { picked = true; });
  QTimer::singleShot(0, [&desk] {
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    desk.destroyGrid();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  });
  desk.grid().trackPopupMenu(5, 5);
  EXPECT_FALSE(desk.hasGrid());
  EXPECT_FALSE(picked);
}

// A dialog of the program that an event of the grid has opened: its loop comes to destroy what was put off,
// but the grid's calls are still under way below.
TEST(Lifetime, AGridMayGoInALoopInsideItsEvents) {
  for (const EventId event : {EventId::OnExit, EventId::OnSelChanged}) {
    QtDesk desk("editors.xml");
    enterOn(desk, "name");
    const QPointer<QWidget> view = &desk.view();
    desk.runInside(event, [&] {
      QEventLoop loop;
      QTimer::singleShot(0, [&desk] { desk.destroyGrid(); });
      QTimer::singleShot(20, &loop, &QEventLoop::quit);
      loop.exec();
      EXPECT_FALSE(view.isNull());
    });
    desk.key(Qt::Key_Down);
    EXPECT_FALSE(desk.hasGrid());
    desk.settle();
    EXPECT_TRUE(view.isNull());
  }
}

// An edit that is open at the end is kept, also when a change of the font is what ends it.
TEST(Lifetime, TheEndSavesAnOpenEdit) {
  for (const bool byFont : {false, true}) {
    QtDesk desk("editors.xml");
    enterOn(desk, "name");
    desk.type("Ankh");
    desk.runInside(EventId::OnExit, [&] { byFont ? desk.destroyGrid() : void(); });
    QFont font = desk.grid().font();
    font.setBold(true);
    byFont ? desk.grid().setFont(font) : desk.destroyGrid();
    desk.settle();
    EXPECT_FALSE(desk.hasGrid());
    EXPECT_EQ(desk.cell(1, 1), "Ankh");
  }
}

// Qt is at work on the widget, so that the program puts it off.
TEST(Lifetime, AGridMayBePutAwayWhileQtShowsOrResizesIt) {
  QPointer<TesseraWidget> grid = new TesseraWidget;
  int told = 0;
  QObject::connect(grid, &TesseraWidget::error, grid, [&] {
    ++told;
    grid->deleteLater();
  });
  const auto rows = std::make_shared<FakeDataSet>(std::vector<XString>{u"A"},
                                                  std::vector<std::vector<const char16_t*>>{{u"one"}});
  grid->addDataSet("rows", rows);
  grid->setDataID("rows");
  grid->setColumnInfo("no columns");
  EXPECT_EQ(told, 0);
  grid->show();
  EXPECT_EQ(told, 1);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(grid.isNull());
  EXPECT_EQ(rows.use_count(), 1);

  QtDesk desk("editors.xml");
  enterOn(desk, "size");
  ASSERT_NE(desk.list(), nullptr);
  desk.runInside(EventId::OnCloseUp, [&desk] { desk.grid().deleteLater(); });
  desk.grid().resize(desk.grid().width() - 20, desk.grid().height());
  EXPECT_TRUE(desk.hasGrid());
  desk.settle();
  EXPECT_FALSE(desk.hasGrid());
}

// From any thread, in the event loop of the grid's, and not at all when the dispatcher has gone.
TEST(Dispatcher, RunsPostedWorkInTheEventLoop) {
  std::vector<std::thread::id> ran;
  {
    QtDispatcher dispatcher;
    const auto post = [&] { dispatcher.post([&ran] { ran.push_back(std::this_thread::get_id()); }); };
    std::thread(post).join();
    EXPECT_TRUE(ran.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(ran, std::vector{std::this_thread::get_id()});
    post();
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(ran.size(), 1u);
}

}  // namespace
}  // namespace tessera::test
