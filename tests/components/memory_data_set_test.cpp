#include <algorithm>
#include <limits>
#include <span>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::answer;
using testing::columnTexts;
using testing::NotingSink;
using testing::obey;
using testing::rowCount;
using testing::storeOf;
using testing::textAt;
using testing::valueAt;
using testing::wide;

// The statuses of all rows, those that are selected with a "*": "0 3* 1".
std::string statuses(MemoryDataSet& rows) {
  std::string all;
  for (std::int32_t row = 1; row <= rowCount(rows); ++row) {
    const auto status = answer(rows, &DataSetControl::GetStatus, row);
    EXPECT_EQ(answer(rows, &DataSetControl::GetSysStatus, row), status);
    all += (row > 1 ? " " : "") + std::to_string(status);
    all += answer(rows, &DataSetControl::GetRowSelected, row) ? "*" : "";
  }
  return all;
}

struct Case {
  const char* csv;
  DataSetOptions options;
  const char* script;
  std::int32_t column;
  // The column's texts, a summary row's with "=", then as much as is of interest: what subscribers were told,
  // the current row, the statuses.
  std::string expected;
};

void check(std::span<const Case> cases) {
  for (const Case& c : cases) {
    MemoryDataSet rows(storeOf(c.csv), c.options);
    NotingSink sink(rows);
    obey(rows, c.script);
    const std::string told = sink.taken();
    std::string actual = columnTexts(rows, c.column);
    const auto parts = std::count(c.expected.begin(), c.expected.end(), '|');
    if (parts > 0) actual += " | " + told;
    if (parts > 1) actual += " | " + std::to_string(answer(rows, &DataSetControl::GetCurrentRow));
    if (parts > 2) actual += " | " + statuses(rows);
    EXPECT_EQ(actual, c.expected) << c.script;
  }
}

const DataSetOptions plain;
constexpr const char *one = "n\n1\n", *three = "n\n1\n2\n3\n";

TEST(Rows, ComeGoAndChange) {
  const DataSetOptions kept{.keepDeleted = true};
  const Case cases[] = {
      {three, plain, "insert 2", 1, "1  2 3 | Inserted(2) Current(2) | 2 | 0 1 0 0"},
      {one, plain, "insert 99;insert -3", 1,
       " 1  | Inserted(2) Current(2) Inserted(1) Current(1) | 1 | 1 0 1"},
      {one, plain, "insert 1;set 1 1 a;set 1 1 7", 1, "7 1 | Inserted(1) Current(1) Cell(1,1) | 1 | 1 0"},
      {one, plain, "set 0 1 9;set 2 1 9;set 1 0 9;set 1 2 9;set -5 1 9;name 1 nope 9;delete 0;delete 2", 1,
       "1 |  | 1 | 0"},
      {"n,d,t,e\n1,1.25,abc,\n", plain, "set 1 1 1;set 1 2 1.25;set 1 3 abc;set 1 4 ", 3, "abc |  | 1 | 0"},
      {three, plain, "delete 2", 1, "1 3 | Deleted(2) | 1"},
      {three, plain, "current 2;delete 2", 1, "1 3 | Current(2) Deleted(2) Current(2) | 2"},
      {three, plain, "current 3;delete 2", 1, "1 3 | Current(3) Deleted(2) Current(2) | 2"},
      {three, plain, "current 3;delete 3", 1, "1 2 | Current(3) Deleted(3) Current(2) | 2"},
      {one, plain, "delete 1", 1, " | Deleted(1) Current(0) | 0 | "},
      {three, plain, "current 2;current 2;current 4;current -1;current 0", 1,
       "1 2 3 | Current(2) Current(2) Current(0) | 0"},
      {three, kept, "delete 1;delete 1", 1, "1 2 3 | Deleted(1) | 1 | 2 0 0"},
      {three, kept, "insert 2;delete 2", 1,
       "1 2 3 | Inserted(2) Current(2) Deleted(2) Current(2) | 2 | 0 0 0"},
      {three, kept, "delete 1;set 2 1 9;accept", 1, "9 3 | Deleted(1) Cell(2,1) RowsReset | 1 | 0 0"},
  };
  check(cases);
}

TEST(Sort, ByEveryKeyInTurn) {
  const char* const cities =
      "id,city,n,d\n"
      "1,Bonn,5,1.5\n2,Aachen,-5,-2.5\n3,Bonn,,0.0\n4,,5,\n5,Aachen,7,1.5\n6,Bonn-Mitte,5,-0.5\n"
      "7,Bonn-Mitte-West,5000000000,2\n8,\xC3\x84gypten,5,2\n";
  const char* const odd = "id,\"a,b\",+x, sp,c\n1,9,1,5,0\n2,7,3,6,4\n3,8,2,4,0\n";
  const char* const pair = "id,n\n2,1\n1,2\n";
  const char* const ids = "id\n3\n1\n2\n";
  const Case cases[] = {
      {cities, plain, "sort +city", 1, "4 2 5 1 3 6 7 8"},
      {cities, plain, "sort  - city , + n ", 1, "8 7 6 3 1 2 5 4"},
      {cities, plain, "sort +n", 1, "3 2 1 4 6 8 5 7"},
      {cities, plain, "sort -d,+city,-n", 1, "7 8 5 1 3 6 2 4"},
      {cities, plain, "sort -d;sort ", 1, "1 2 3 4 5 6 7 8"},
      // Names with commas, signs and blanks.
      {odd, plain, "sort +a,b", 1, "2 3 1"},
      {odd, plain, "sort -a,b,+id", 1, "1 3 2"},
      {odd, plain, "sort +c,-a,b", 1, "1 3 2"},
      {odd, plain, "sort ++x", 1, "1 3 2"},
      {odd, plain, "sort - sp", 1, "2 1 3"},
      {pair, plain, "sort +nope;sort +id,-nope;sort +;sort +id,,-n;sort ,", 1, "2 1 | "},
      {ids, plain, "sort +id;sort +id", 1, "1 2 3 | RowsReset Current(3) RowsReset | 3"},
      {ids, plain, "select 1;set 2 1 9;sort +id", 1, "2 3 9 | Cell(2,1) RowsReset Current(2) | 2 | 0 0* 3"},
      {"lv,n\n0,3\n0,1\n1,4\n0,9\n0,8\n1,17\n2,21\n", {.level = "lv"}, "sort +n", 2, "1 3 =4 8 9 =17 =21"},
  };
  check(cases);
}

constexpr const char* orders =
    "REGION,CITY,N,D\n"
    "N,a,1,0.5\nN,a,2,0.25\nN,b,3,1\nS,b,4,2\nS,c,5,4\nS,c,6,8\n";

TEST(Subtotals, StandBehindTheirRowsInnerBeforeOuter) {
  const DataSetOptions groups{.subsum = " 2 : REGION ,\t1: CITY "},
      kept{.keepDeleted = true, .subsum = groups.subsum};
  const Case cases[] = {
      {orders, groups, "", 1, "N N =N N =N =N S =S S S =S =S"},
      {orders, groups, "", 2, "a a =a b =b = b =b c c =c ="},
      {orders, groups, "", 4, "0.50 0.25 =0.75 1.00 =1.00 =1.75 2.00 =2.00 4.00 8.00 =12.00 =14.00"},
      {orders, {.subsum = "REGION"}, "", 3, "1 2 3 4 5 6"},
      {orders, {.subsum = "2:REGION,1:nope"}, "", 3, "1 2 3 4 5 6"},
      {orders, {.subsum = "0:REGION"}, "", 3, "1 2 3 4 5 6"},
      {"REGION,CITY\n", groups, "", 1, ""},
      {orders, groups, "groups 7:REGION", 3, "1 2 3 =6 4 5 6 =15 | RowsReset"},
      {orders, groups, "groups ", 3, "1 2 3 4 5 6"},
      // Sums follow at once; the rows themselves are neither written nor deleted.
      {orders, kept, "set 2 3 20;delete 1;set 9 3 ", 3, "1 20 =20 3 =3 =23 4 =4  6 =6 =10"},
      {orders, groups, "set 3 3 99;delete 3", 3, "1 2 =3 3 =3 =6 4 =4 5 6 =11 =15 | "},
      // Group rows go with their last row.
      {orders, groups, "current 9;delete 4", 2,
       "a a =a = b =b c c =c = | Current(9) Deleted(5) Deleted(4) RowsReset "
       "Current(7)"},
      {orders, groups, "delete 4;delete 1;delete 1;delete 3;delete 3", 3, "4 =4 =4"},
      // New groups are settled by the commit, and the current row stays the same row.
      {orders, groups, "insert 4;name 4 REGION N;name 4 CITY New;name 4 N 40;commit", 2,
       "a a =a New =New b =b = b =b c c =c = | Inserted(4) Current(4) Cell(4,1) "
       "Cell(4,2) Cell(4,3) RowsReset | 4"},
      {orders, groups, "current 6;insert 1;name 1 REGION A;current 7;commit", 3,
       " = = 1 2 =3 3 =3 =6 4 =4 5 6 =11 =15 | Current(6) Inserted(1) Current(1) "
       "Cell(1,1) Current(7) RowsReset Current(9) | 9"},
      {"k,n\na,1\n", {.subsum = "1:k"}, "insert 99;set 3 2 5", 2, "1 =1 5"},
      {"k,n\na,1\n", {.subsum = "1:k"}, "insert 1;delete 2", 1, " ="},
      {"k,n\na,1\n", {.subsum = "1:k"}, "insert 1;delete 2;delete 1", 1, ""},
      {orders, groups, "sort -CITY,-N", 3, "3 =3 2 1 =3 =6 6 5 =11 4 =4 =15"},
      {orders, groups, "sort -REGION", 3, "4 =4 5 6 =11 =15 1 2 =3 3 =3 =6"},
  };
  check(cases);
}

TEST(SetValue, ConvertsOrLeavesTheCellAlone) {
  struct WriteCase {
    std::int32_t column;  // 1 integer, 2 long, 3 decimal of scale 2, 4 text
    XValue value;
    const char* text;  // what the cell shows then; null: the write is refused
  };
  const WriteCase cases[] = {
      {1, XValue::ofText(u"12"), "12"},
      {1, XValue::ofText(u"12x"), nullptr},
      {1, XValue::ofText(u""), ""},
      {1, XValue::ofInt64(3000000000), nullptr},
      {1, XValue::ofDouble(7.5), "8"},
      {1, XValue::null(), ""},
      {2, XValue::ofInt64(3000000000), "3000000000"},
      {3, XValue::ofText(u"1.239"), "1.24"},
      {3, XValue::ofInt(-4), "-4.00"},
      {3, XValue::ofDouble(-0.001), "0.00"},
      {3, XValue::ofDouble(std::numeric_limits<double>::infinity()), nullptr},
      {3, XValue::ofDouble(std::numeric_limits<double>::quiet_NaN()), nullptr},
      {3, XValue(), ""},
      {4, XValue::ofInt(5), "5"},
      {4, XValue::ofText(u"\u20AC\U0001F600"), "\xE2\x82\xAC\xF0\x9F\x98\x80"},
  };
  for (const WriteCase& c : cases) {
    MemoryDataSet rows(storeOf("n,l,d,t\n1,5000000000,1.25,abc\n"));
    NotingSink sink(rows);
    const std::string before = textAt(rows, 1, c.column);
    rows.SetValue(1, c.column, c.value);
    EXPECT_EQ(textAt(rows, 1, c.column), c.text ? c.text : before);
    EXPECT_EQ(statuses(rows), c.text ? "3" : "0");
    EXPECT_EQ(sink.taken(), c.text ? "Cell(1," + std::to_string(c.column) + ")" : "");
  }
}

// An editor that was only looked into writes back what it showed.
TEST(SetValue, TheTextThatACellShowsChangesNothing) {
  MemoryDataSet rows(storeOf("d\n3.14159\n", {{.name = "d", .type = columnDecimal, .scale = 2}}));
  obey(rows, "set 1 1 3.14");
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofDouble(3.14159));
  EXPECT_EQ(statuses(rows), "0");
  obey(rows, "set 1 1 3.15");
  EXPECT_EQ(valueAt(rows, 1, 1), XValue::ofDouble(3.15));
}

TEST(Rows, AppendAndReplaceSayItOnce) {
  MemoryDataSet rows(storeOf(one));
  NotingSink sink(rows);
  rows.appendRows(3);
  rows.replaceRows(storeOf("a,b\nx,y\n"));
  EXPECT_EQ(sink.taken(), "RowsAdded(4) StructureChanged(0)");
  EXPECT_EQ(columnTexts(rows, 2) + statuses(rows), "y0");
}

// Names that differ in case only are two columns; a third spelling means the first of them.
TEST(FindRow, TextsAsTheyAreShown) {
  MemoryDataSet rows(storeOf("t,n,d,T\nx,1,1.50,\ny,,2.25,y\nx,1,1.5,\n,7,,\n"));
  struct Find {
    const char *column, *text;
    std::int32_t row;
  };
  const Find cases[] = {{"t", "x", 1}, {"t", "z", 0},    {"t", "", 4},    {"N", "7", 4},    {"n", "", 2},
                        {"T", "y", 2}, {"d", "1.50", 1}, {"d", "1.5", 0}, {"nope", "x", 0}, {"t", "X", 0}};
  for (const Find& c : cases) {
    std::int32_t row = -77;
    rows.FindRow(wide(c.column), wide(c.text), row);
    EXPECT_EQ(row, c.row) << c.column << " " << c.text;
  }
}

TEST(Notifications, SubscribersComeAndGoInsideACall) {
  Notifier notifier;
  NotingSink a, c, late;
  auto b = std::make_unique<NotingSink>();
  for (NotingSink* each : {&a, b.get(), &c, &c}) EXPECT_EQ(notifier.advise(each), S_OK);
  EXPECT_EQ(notifier.advise(nullptr), E_INVALIDARG);
  a.inside = [&](const std::string&) {
    notifier.unadvise(&a);
    notifier.unadvise(b.get());
    b.reset();  // whoever left may be gone at once
    for (int i = 0; i < 100; ++i) notifier.advise(&late);
  };
  c.inside = [&](const std::string& note) {
    if (note == "Reserved(2)") notifier.reserved(3);
    notifier.unadvise(&late);
  };
  notifier.reserved(1);
  notifier.advise(&late);
  notifier.reserved(2);
  // Whoever only asks whether it may close keeps its subscribers.
  for (const bool asks : {true, false}) {
    notifier.sourceClosing(asks);
    notifier.rowsReset();
  }
  EXPECT_EQ(
      a.taken() + "; " + c.taken() + "; " + late.taken(),
      "Reserved(1); Reserved(1) Reserved(2) Reserved(3) SourceClosing(-1) RowsReset SourceClosing(0); ");
}

TEST(Notifications, ChangesMadeInsideANotification) {
  MemoryDataSet rows(storeOf(three));
  NotingSink sink(rows);
  sink.inside = [&](const std::string& note) {
    if (note == "Cell(1,1)") rows.DeleteRow(1);
    if (note == "Deleted(1)") rows.InsertRow(1);
    if (note == "Inserted(1)") rows.ApplySort();
  };
  obey(rows, "set 1 1 9");
  // The sort by nothing puts the new row behind the loaded ones, and it stays current.
  EXPECT_EQ(columnTexts(rows, 1), "2 3 ");
  EXPECT_EQ(sink.taken(),
            "Cell(1,1) Deleted(1) Inserted(1) RowsReset Current(3) Current(3) "
            "Current(3)");
}

TEST(Notifications, RowsThatGoWhileTheVoteIsTakenOrThatSomebodyRefuses) {
  for (const char* const change : {"set 2 1 9", "delete 2", "insert 2"}) {
    MemoryDataSet rows(storeOf("n\n1\n2\n"));
    NotingSink first(rows), second(rows);
    second.allow = false;
    obey(rows, change);
    EXPECT_EQ(columnTexts(rows, 1) + first.taken(), "1 2");
    if (change[0] == 'i') continue;
    second.allow = true;
    second.inside = [&](const std::string& note) {
      if (note == "CanChange") rows.replaceRows(storeOf("n\n7\n"));
    };
    obey(rows, change);
    EXPECT_EQ(columnTexts(rows, 1) + second.taken(), "7StructureChanged(0)");
  }
}

TEST(Notifications, ClosingComesOnceAndEndsSubscription) {
  NotingSink sink;
  {
    MemoryDataSet rows(storeOf(one));
    rows.Advise(&sink, 1);
    sink.inside = [&](const std::string&) { rows.Unadvise(&sink); };
    rows.close();
    obey(rows, "set 1 1 9");
    EXPECT_EQ(rows.Advise(&sink, 1), E_FAIL);
  }
  EXPECT_EQ(sink.taken(), "SourceClosing(0)");
}

}  // namespace
}  // namespace tessera
