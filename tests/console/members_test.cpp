// The control's members and the variables of its expressions, where rows of a table say it shorter than a
// transcript.

#include "console/scratch_folder.h"
#include "console/session.h"
#include "control/dispatch_table.h"
#include "control/error_table.h"
#include "interaction/keys.h"
#include "shared/utf.h"

namespace tessera {
namespace {

// With arguments that mean nothing, with data and without.
TEST(Members, AllSucceed) {
  const ScratchFolder folder;
  Session session("rows.xml");
  Tessera& control = session.host().control();
  for (const char* data : {"rows", "nowhere"}) {
    for (const MemberRow& member : memberTable()) {
      const std::u16string name = utf16FromUtf8(member.name);
      std::vector<XValue> arguments(static_cast<std::size_t>(member.arguments), XValue::ofInt(-1));
      XValue result;
      const auto succeeds = [&](MemberInvoker invoker, MemberUse use) {
        return !invoker || invokeMember(control, name, use, arguments, result) == S_OK;
      };
      session.run(std::string("put DataID ") + data);
      EXPECT_TRUE(succeeds(member.get, MemberUse::Get)) << member.name;
      EXPECT_TRUE(succeeds(member.call, MemberUse::Call)) << member.name;
      arguments.push_back(XValue::ofInt(0));
      EXPECT_TRUE(succeeds(member.put, MemberUse::Put)) << member.name;
    }
  }
  EXPECT_EQ(errorText(ErrorCode::TreeLevelValue), u"Tree Level Value is not Proper");
}

TEST(Members, EnableTellsTheHostOnlyWithAWindowAndOnlyVariantTrueKeepsABar) {
  struct Sink : PropertyNotifySink {
    void OnChanged(std::int32_t dispid) override { dispids.push_back(dispid); }
    std::vector<std::int32_t> dispids;
  } sink;
  const ScratchFolder folder;
  Session session("rows.xml");
  Tessera& control = session.host().control();
  for (const VariantBool put : {VariantBool{1}, VARIANT_TRUE, VariantBool{2}}) {
    control.put_FixHScroll(put);
    control.put_FixVScroll(put);
    const std::string kept = session.run("get FixHScroll; get FixVScroll");
    EXPECT_EQ(kept, put == VARIANT_TRUE ? "= true\n= true\n" : "= false\n= false\n") << put;
  }
  control.propertyNotifySinks().connect(&sink);
  session.run("window destroy; put Enable false; window create");
  EXPECT_FALSE(session.host().window()->enabled());
  EXPECT_TRUE(sink.dispids.empty());
  session.run("put Enable true; put Enable true");
  EXPECT_TRUE(session.host().window()->enabled());
  EXPECT_EQ(sink.dispids, std::vector<std::int32_t>{-514});
}

TEST(Members, AmbientCodePage) {
  struct Site : ClientSite {
    Container* container() override { return nullptr; }
    std::optional<AmbientFont> ambientFont() override { return std::nullopt; }
    XValue ambientCodePage() override { return codePage; }
    XValue codePage;
  } site;
  using Row = std::tuple<VarType, std::int32_t, std::int32_t>;
  XmlDocumentReader documents;
  Tessera control{Ports{documents}};
  control.setClientSite(&site);
  for (const auto& [type, ambient, stored] :
       {Row{VT_UI4, 51949, 949}, Row{VT_UI4, 932, 932}, Row{VT_UI4, 50001, 0}, Row{VT_I4, 932, 0}}) {
    site.codePage.setInteger(type, ambient);
    control.quickActivate();
    EXPECT_EQ(control.codePage(), stored);
  }
}

// Who gets a key first. Behind `Host` stands a page that may use it otherwise.
TEST(Members, RoutesOfKeys) {
  const ScratchFolder folder;
  Session session("rows.xml");
  struct Row {
    std::int32_t key;
    bool control;
    KeyRoute route;
  };
  const auto routes = [&session](bool allToHost) {
    for (const Row& row : {Row{key::left, false, KeyRoute::Window}, Row{key::pageUp, false, KeyRoute::Window},
                           Row{key::home, true, KeyRoute::Window}, Row{key::enter, false, KeyRoute::Host},
                           Row{key::space, false, KeyRoute::Host}, Row{key::c, false, KeyRoute::Host},
                           Row{key::c, true, KeyRoute::Done}, Row{key::v, true, KeyRoute::Done},
                           Row{88, true, KeyRoute::Host}}) {
      session.host().desktop().modifiers = {row.control, false};
      std::int32_t key = row.key;
      EXPECT_EQ(session.host().control().translateKey(key), allToHost ? KeyRoute::Host : row.route)
          << row.key;
      EXPECT_EQ(key, row.key);
    }
  };
  session.run("focus in");
  routes(false);
  session.run("put Enable false");
  routes(true);
  session.run("put Enable true; put DataID \"\"");
  routes(true);
}

TEST(Members, VariablesAndSumsOfExpressions) {
  const ScratchFolder folder;
  Session session("rows.xml");
  session.run("data rows SetText 2 2 changed; data rows InsertRow 5");
  using Row = std::pair<std::string, const char*>;
  for (const auto& [expression, value] :
       {Row{"3 ROW/2", "1.5"}, Row{"2 TEXT", "\"changed\""}, Row{"99 ROW", "empty"}, Row{"1 CURLEVEL", "0.0"},
        Row{"3 CURREC*10+FIRSTREC", "31.0"}, Row{"3 LASTREC*10+RECCOUNT", "55.0"},
        Row{"3 REALCOUNT*10+NEXTREC", "54.0"}, Row{"5 NEXTREC", "0.0"}, Row{"3 PREVREC", "2.0"},
        Row{"1 PREVREC", "0.0"}, Row{"1 STATUS", "\"N\""}, Row{"5 STATUS", "\"I\""},
        Row{"2 SYSSTATUS", "\"U\""}, Row{"1 COLVAL(1,4)", "4.0"}, Row{"1 COLVAL(2,)", "\"1\""},
        Row{"1 GFMAX(ROW)*10+GFSUM(ROW)", "50.0"}, Row{"1 GFMIN(\"ROW\")", "1.0"},
        Row{"1 GFSUBSUM(ROW,2)", "10.0"}, Row{"1 GFSUM(TEXT)", "0.0"}})
    EXPECT_EQ(session.value("eval " + expression), value) << expression;
  for (int row = 5; row > 0; --row) session.run("data rows DeleteRow 1");
  EXPECT_EQ(session.value("eval 0 FIRSTREC"), "0.0");
  EXPECT_EQ(session.value("eval 0 LASTREC"), "0.0");
}

// An expression that the present data cannot compile is told of once, however often the grid refreshes.
TEST(Members, AKeptExpressionThatFailsIsReportedOnce) {
  const ScratchFolder folder;
  const std::string error = "! OnError(4, \"Expression Error\")\n";
  for (const char* text : {"put BackgroundInfo \"<B bgcolor='@IIF(QTY>2,1,2)'/>\"",
                           "put IndicatorInfo \"<I bgcolor='@IIF(QTY>2,1,2)'/>\""}) {
    Session session("editors.xml");
    session.run("put ColumnInfo @orders.columns.xml");
    EXPECT_EQ(session.run(text), "");
    EXPECT_EQ(session.run("put DataID cities"), error);
    EXPECT_EQ(session.run("refresh"), "");
    EXPECT_EQ(session.run("put DataID parts; on OnError do refresh"), "");
    EXPECT_EQ(session.run("put DataID cities"), error);
  }
}

// 511 bytes are kept, and whole characters.
TEST(Members, LongTextsOfAMenuAreCut) {
  const ScratchFolder folder;
  Session session("rows.xml");
  const std::string x508(508, 'x');
  struct Row {
    const char* text;
    const char* kept;
  };
  for (const Row& row : {Row{"abc", "abc"}, Row{"abcd", "abc"}, Row{"a\u00e9", "a\u00e9"},
                         Row{"ab\u00e9", "ab"}, Row{"\U0001F600", ""}}) {
    session.run("put MenuInfo \"<MENU><ITEM text='" + x508 + row.text +
                "' code='1'/></MENU>\"; answer menu 1");
    EXPECT_EQ(session.run("call TrackPopupMenu 1 1"), "! OnMenuSelected(1, \"" + x508 + row.kept + "\")\n");
  }
}

TEST(Members, WhatAnEditTakesByItsColumn) {
  const ScratchFolder folder;
  folder.write("typed.csv", "T,D,I\n12345678,1.25,125\n");
  folder.write(
      "typed.xml",
      "<form><dataset id='typed' file='typed.csv'><field name='T' type='text' length='8'/>"
      "<field name='D' type='decimal' scale='2' length='9'/><field name='I' type='integer' length='9'/>"
      "</dataset><grid id='g'><property name='DataID'>typed</property></grid></form>");
  struct Row {
    const char* column;
    const char* child;
    const char* typed;  // behind the text that the box opens with
    const char* text;
  };
  for (const Row& row : {Row{"T", "", "9", "12345678"},
                         {"T", "limitlength='3'", "9", "123"},
                         {"T", "limitlength='9'", "9", "12345678"},
                         {"T", "limitlength='0'", "9", ""},
                         {"T", "inputtype='numeric' limitlength='5'", "x9", "12345"},
                         {"D", "", "99", "1.2599"},
                         {"D", "inputtype='numeric'", "9x", "1.25"},
                         {"D", "inputtype='numeric' decimal='1'", "9", "1.2"},
                         {"D", "inputtype='numeric' decimal='5'", "9", "1.25"},
                         {"I", "decimal='4'", ".5", "125.5"},
                         {"I", "inputtype='numeric' decimal='4'", ".5", "1255"},
                         {"I", "inputtype='numeric' limitlength='2'", "9", "12"}}) {
    Session session("typed.xml");
    session.run(
        std::string("put ColumnInfo \"<GRID><COLUMN id='c' refcolid='") + row.column +
        "'><HEADER right='60' bottom='20'/><VIEW right='60' bottom='20'/><CHILD type='edit' select='false' " +
        row.child + "/></COLUMN></GRID>\"; call ActivateEdit; type \"" + row.typed + "\"");
    EXPECT_EQ(session.value("get GetEditText"), '"' + std::string(row.text) + '"') << row.column << row.child;
  }
}

}  // namespace
}  // namespace tessera
