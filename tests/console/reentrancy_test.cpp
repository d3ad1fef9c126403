// Whatever the host does inside an event, and whatever a data set's other subscriber does inside a
// notification, the grid goes on working.

#include "console/scratch_folder.h"
#include "console/session.h"

namespace tessera {
namespace {

// Provokes one event; without a name it is the first notification of the data set that counts.
struct Provocation {
  std::string event;
  std::string prepare;
  std::string act;
};

const std::string box = "key Enter; char \"new\"";
const std::string list = "put ColumnPosition size; key Enter";
const std::string rowMode = "put ColumnPosition \"\"";
const std::string rows = "mouse down 10 30; mouse down 10 70 ctrl";

const Provocation provocations[] = {
    {"OnSelChange", "", "key Down"},
    {"OnSelChange", "", "key End ctrl"},
    {"OnSelChange", "", "key PageDown"},
    {"OnSelChange", "", "key Tab"},
    {"OnSelChange", "", "put RowPosition 7"},
    {"OnSelChange", "", "put ColumnPosition qty"},
    {"OnSelChange", "", rowMode},
    {"OnSelChange", "", "mouse down 120 50"},
    {"OnSelChange", "", "mouse down 10 50"},
    {"OnSelChange", rowMode, "key Down"},
    {"OnSelChange", rowMode, "key End ctrl"},
    {"OnSelChange", rowMode, "put ColumnPosition name"},
    {"OnSelChange", rows, "mouse down 10 90 shift"},
    {"OnSelChange", rows, "mouse down 10 30 ctrl"},
    {"OnSelChange", box, "mouse down 120 50"},
    {"OnSelChanged", "", "key Down"},
    {"OnSelChanged", "", "key Tab"},
    {"OnSelChanged", "", "mouse down 120 50"},
    {"OnSelChanged", "", "put RowPosition 4"},
    {"OnSelChanged", rows, "key PageDown"},
    {"OnSelChanged", rows, "mouse down 10 90 shift"},
    {"OnFirstUp", "", "key Up"},
    {"OnLastDown", "key End ctrl", "key Down"},
    {"OnKeyDown", "", "key Right"},
    {"OnKeyDown", box, "key Left"},
    {"OnKeyDown", box, "key Enter"},
    {"OnKeyDown", list, "key Down"},
    {"OnEnter", "", "key Enter"},
    {"OnEnter", "", "type \"xy\""},
    {"OnEnter", "", "call ActivateEdit"},
    {"OnEnter", "", "mouse double 60 30"},
    {"OnExit", box, "key Enter"},
    {"OnExit", box, "key Escape"},
    {"OnExit", box, "key Down"},
    {"OnExit", box, "key Tab"},
    {"OnExit", box, "focus out"},
    {"OnExit", box, "mouse down 120 50"},
    {"OnExit", box, "mouse down 120 10"},
    {"OnExit", box, "mouse rdown 120 50"},
    {"OnExit", box, "data parts SetCurrentRow 3"},
    {"OnExit", "put RowPosition 2; " + box, "data parts DeleteRow 1"},
    {"OnExit", box, "put ColumnInfo @orders.columns.xml"},
    {"OnExit", box, "put DataID cities"},
    {"OnExit", box, "put Enable false"},
    {"OnChar", box, "char \"z\""},
    {"OnPopup", "put ColumnPosition file", "key Enter"},
    {"OnPopup", "put ColumnPosition file", "mouse down 390 30"},
    {"OnPopup", "put ColumnPosition note; " + box, "key Enter"},
    {"OnDropDown", "put ColumnPosition size", "key Enter"},
    {"OnDropDown", "put ColumnPosition city", "mouse down 525 30"},
    {"OnCloseUp", list, "key Enter"},
    {"OnCloseUp", list, "focus out"},
    {"OnCloseUp", list, "mouse down 400 70"},
    {"OnCloseUp", list, "put RowPosition 3"},
    {"OnCloseUp", list, "message 277 1 0"},
    {"OnCloseUp", list, "size 680 141"},
    {"OnKillFocus", "", "focus out"},
    {"OnKillFocus", box, "focus out"},
    {"OnKillFocus", "", "put Enable false"},
    {"OnSetFocus", "focus out", "focus in"},
    {"OnSetFocus", "focus out", "type \"x\""},
    {"OnSetFocus", "focus out", "mouse down 60 50"},
    {"OnCopy", "", "key C ctrl"},
    {"OnPaste", "", "key V ctrl"},
    {"OnLButtonDown", "", "mouse down 60 10"},
    {"OnLButtonDown", "", "mouse down 95 10"},
    {"OnLButtonUp", "mouse down 60 10", "mouse up 60 10"},
    {"OnLButtonUp", "mouse down 95 10; mouse move 120 10", "mouse up 120 10"},
    {"OnLButtonDblClk", "mouse down 60 50; mouse up 60 50", "mouse double 60 50"},
    {"OnRButtonDown", "focus out", "mouse rdown 60 50"},
    {"OnHeadCheckClick", "", "mouse down 540 10"},
    {"OnMenuSelected", "answer menu 1", "call TrackPopupMenu 1 1"},
    {"OnError", "", "put ColumnInfo \"<GRID\""},
    {"OnError", "",
     "put ColumnInfo \"<GRID><COLUMN id='a' refcolid='NAME'><VIEW color='@('/></COLUMN></GRID>\""},
    {"OnError", "", "put IndicatorInfo \"<I width='30' color='@(' bgcolor='red'/>\""},
    {"OnError", "", "put BackgroundInfo \"<B bordercolor='@('/>\""},
    {"OnError", "", "put DataID cities"},
    {"OnError", "window destroy; put ColumnInfo \"<GRID\"", "window create"},
    {"", box, "key Enter"},
    {"", box, "key Down"},
    {"", box, "key Tab"},
    {"", box, "focus out"},
    {"", box, "mouse down 120 50"},
    {"", list + "; key Down", "key Enter"},
    {"", "put ColumnPosition paid", "key Space"},
    {"", "put ColumnPosition main; put RowPosition 4", "key Enter"},
    {"", "", "mouse down 548 50"},
    {"", "", "mouse down 608 70"},
    {"", "", "key Down"},
    {"", rows, "mouse down 10 90"},
    {"", "", "data parts SetCurrentRow 4"},
    {"", box, "data parts InsertRow 1"},
    {"", box, "data parts DeleteRow 1"},
    {"", "mouse down 60 10", "mouse up 60 10"},
};

const std::string deeds[] = {
    "refresh",
    "put DataID \"\"",
    "put DataID cities",
    "put ColumnInfo @orders.columns.xml",
    "data parts DeleteRow 1",
    "data parts DeleteRow 7; data parts DeleteRow 6; data parts DeleteRow 5; data parts DeleteRow 4",
    "data parts DeleteRow 1; data parts DeleteRow 1; data parts DeleteRow 1; data parts DeleteRow 1; "
    "data parts DeleteRow 1; data parts DeleteRow 1; data parts DeleteRow 1",
    "data parts InsertRow 1",
    "data parts SetSortExpr \"-NAME\"; data parts ApplySort",
    "close",
    "put RowPosition 5",
    rowMode,
    "put ColumnPosition code",
    "refresh; call ActivateEdit",
    "key Enter",
    "mouse down 60 90",
    "focus out",
    "put Enable false",
    "size 300 81; message 277 1 0",
    "window destroy",
    "window destroy; window create",
};

// Does something in the middle of the first notification, and is heard once.
class Meddler : public DataSetNotifications {
 public:
  explicit Meddler(std::function<void()> act) : act_(std::move(act)) {}
  HResult SortReset() override { return meddle(); }
  HResult StructureChanged(std::int32_t) override { return meddle(); }
  HResult RowsAdded(std::int32_t) override { return meddle(); }
  HResult DataChanged(std::int32_t) override { return meddle(); }
  HResult CanChange(std::int32_t, VariantBool&) override { return meddle(); }
  HResult CurrentRowChanged(std::int32_t) override { return meddle(); }
  HResult RowsReset() override { return meddle(); }
  HResult Reserved(std::int32_t) override { return meddle(); }
  HResult RowInserted(std::int32_t) override { return meddle(); }
  HResult RowDeleted(std::int32_t) override { return meddle(); }
  HResult CellChanged(std::int32_t, std::int32_t) override { return meddle(); }
  HResult SourceClosing(VariantBool) override { return S_OK; }

 private:
  HResult meddle() {
    if (const auto act = std::exchange(act_, nullptr)) act();
    return S_OK;
  }
  std::function<void()> act_;
};

// What `show` says is of this grid and this data set.
void expectSound(Session& session, const std::string& deed) {
  const std::string state = session.run("show");
  int focusRow = 0, focusState = 0, shown = 0, all = 0, top = 0;
  char column[32] = {};
  if (std::sscanf(state.c_str(), "focus %d %31s state %d", &focusRow, column, &focusState) != 3) {
    ASSERT_EQ(std::sscanf(state.c_str(), "focus - %31s state %d", column, &focusState), 2) << state;
  }
  ASSERT_EQ(std::sscanf(state.c_str() + state.find('\n'), " rows %d of %d top %d", &shown, &all, &top), 3);
  EXPECT_LE(shown, all) << state;
  EXPECT_LE(focusRow, all) << state;
  EXPECT_TRUE(*column == '-' ||
              session.run("columns").find(column + std::string(" header")) != std::string::npos);
  if (session.host().window() && session.value("get DataID") == "\"parts\"" && deed != "close") {
    EXPECT_EQ(session.value("data parts GetRowCount"), std::to_string(all)) << state;
  }
  EXPECT_TRUE(session.value("edit") == "\"closed\"" || session.host().window()) << "a box without a window";
  EXPECT_TRUE(focusState != 3 || session.run("edit").starts_with("open")) << state;
  EXPECT_TRUE(focusState != 4 || session.run("list").starts_with("open")) << state;
}

// The grid takes other data, paints it, follows it and is written to.
void expectAlive(Session& session) {
  if (!session.host().window()) session.run("window create");
  session.run(
      "put Enable true; put DataID cities; put ColumnInfo \"<GRID><COLUMN id='t' refcolid='TITLE'>"
      "<HEADER right='70' bottom='20'/><VIEW right='70' bottom='20'/><CHILD type='edit'/></COLUMN></GRID>\"; "
      "size 680 121; focus out; focus in; data cities SetCurrentRow 1");
  session.run("put ColumnPosition t; data cities SetCurrentRow 3");
  EXPECT_EQ(
      session.run("show"),
      "focus 3 t state 2\nrows 3 of 3 top 1\nrow 1 level 0 state 1\nrow 2 level 0 state 1\nrow 3 level 0 "
      "state 1\n");
  EXPECT_EQ(session.run("key Up"), "! OnSelChange(\"t\", 2)\n! OnSelChanged(\"t\", 2)\n! OnKeyDown(38, 0)\n");
  session.run("type \"alive\"; key Down");
  EXPECT_EQ(session.value("data cities GetText 2 2"), "\"alive\"");
  EXPECT_EQ(session.value("edit"), "\"closed\"");
  session.run("paint");
  EXPECT_NE(session.value("pixel 90 15"), "\"#ffffff\"") << "painting is held";
}

TEST(InsideEvents, TheGridGoesOnWorking) {
  const ScratchFolder folder;
  for (const Provocation& provocation : provocations) {
    for (const std::string& deed : deeds) {
      SCOPED_TRACE(provocation.event + ": " + provocation.prepare + " - " + provocation.act + " - " + deed);
      Session session("editors.xml");
      session.run("focus in; " + provocation.prepare);
      bool ran = false;
      session.act = [&] {
        if (std::exchange(ran, true)) return;
        if (deed == "close") {
          session.data()->close();
        } else {
          session.obey(deed);
        }
      };
      Meddler meddler(session.act);
      if (provocation.event.empty()) {
        session.data()->Advise(&meddler, 1);
      } else {
        session.run("on " + provocation.event + " do act");
      }
      session.run(provocation.act);
      session.data()->Unadvise(&meddler);
      if (!provocation.event.empty()) session.run("on " + provocation.event + " none");
      EXPECT_TRUE(ran);
      expectSound(session, deed);
      expectAlive(session);
      ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
  }
}

}  // namespace
}  // namespace tessera
