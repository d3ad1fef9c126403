// A data set may have news in the middle of any of its answers.

#include <functional>
#include <gtest/gtest.h>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "control/tessera.h"
#include "support/fake_data_set.h"
#include "support/one_object_site.h"

namespace tessera {
namespace {

// Does something once, in the answer of a given number.
class NewsyDataSet : public FakeDataSet {
 public:
  NewsyDataSet()
      : FakeDataSet({u"A", u"B"}, {{u"1", u"x"}, {u"2", u"y"}, {u"3", u"x"}, {u"4", u"z"}, {u"5", u"x"}}) {}

  std::int32_t answers = 0;
  std::int32_t newsAt = 0;  // 0: none
  std::function<void()> news;
  DataSetNotifications* sink = nullptr;

  void addRow() {
    rows.push_back(rows.front());
    if (sink) sink->RowInserted(static_cast<std::int32_t>(rows.size()));
  }
  void dropRow() {
    if (rows.empty()) return;
    rows.erase(rows.begin());
    if (sink) sink->RowDeleted(1);
  }

  HResult Advise(DataSetNotifications* listener, std::int32_t) override {
    sink = listener;
    return S_OK;
  }
  void Unadvise(DataSetNotifications*) override { sink = nullptr; }
  void GetColumnIndex(const XString& name, std::int32_t& column) override {
    FakeDataSet::GetColumnIndex(name, column);
    answered();
  }
  void GetColumnScale(std::int32_t column, std::int32_t& scale) override {
    FakeDataSet::GetColumnScale(column, scale);
    answered();
  }
  void GetRowCount(std::int32_t& count) override {
    FakeDataSet::GetRowCount(count);
    answered();
  }
  void GetSysStatus(std::int32_t row, std::int32_t& status) override {
    FakeDataSet::GetSysStatus(row, status);
    answered();
  }
  void GetLevel(std::int32_t row, std::int32_t& level) override {
    FakeDataSet::GetLevel(row, level);
    answered();
  }
  void GetRowSelected(std::int32_t row, std::int32_t& flag) override {
    FakeDataSet::GetRowSelected(row, flag);
    answered();
  }
  void GetValue(std::int32_t row, std::int32_t column, XValue& value) override {
    FakeDataSet::GetValue(row, column, value);
    answered();
  }
  void GetText(std::int32_t row, std::int32_t column, XString& text) override {
    FakeDataSet::GetText(row, column, text);
    answered();
  }
  void FindRow(const XString& name, const XString& value, std::int32_t& row) override {
    FakeDataSet::FindRow(name, value, row);
    answered();
  }
  void SetRowSelected(std::int32_t row, std::int32_t flag) override {
    FakeDataSet::SetRowSelected(row, flag);
    answered();
  }
  void SetValue(std::int32_t row, std::int32_t column, const XValue& value) override {
    FakeDataSet::SetValue(row, column, value);
    answered();
  }
  void ApplySort() override { answered(); }

  void answered() {
    if (++answers == newsAt) news();
  }
};

// Has the data set of the lookup only after the columns were set.
class LateSite : public OneObjectSite {
 public:
  explicit LateSite(std::shared_ptr<NewsyDataSet> data) : OneObjectSite(data), data_(std::move(data)) {}
  std::shared_ptr<Component> getObject(const XString& id) const override {
    if (id == u"late" && !hasLate) return nullptr;
    data_->answered();
    return data_;
  }
  bool hasLate = false;

 private:
  std::shared_ptr<NewsyDataSet> data_;
};

class Reading : public ::testing::Test {
 public:
  static constexpr const char16_t* columns =
      u"<GRID><COLUMN id=\"a\" refcolid=\"A\"><HEADER left=\"0\" right=\"80\" top=\"0\" bottom=\"20\"/>"
      u"<VIEW left=\"0\" right=\"80\" top=\"0\" bottom=\"20\" color=\"@IIF(A>2,1,2)\"/>"
      u"<CHILD type=\"radio\"/></COLUMN>"
      u"<COLUMN id=\"b\" refcolid=\"B\"><HEADER left=\"80\" right=\"160\" top=\"0\" bottom=\"20\"/>"
      u"<VIEW left=\"80\" right=\"160\" top=\"0\" bottom=\"20\"/>"
      u"<SUPPRESS><REFCOLID>a</REFCOLID></SUPPRESS>"
      u"<CHILD type=\"lookup\" lookupdataid=\"late\" lookupcode=\"B\" lookuptext=\"A\"/></COLUMN>"
      u"<COLUMN id=\"c\" refcolid=\"A\"><HEADER left=\"160\" right=\"190\" top=\"0\" bottom=\"20\"/>"
      u"<VIEW left=\"160\" right=\"190\" top=\"0\" bottom=\"20\"/>"
      u"<CHILD type=\"edit\" editable=\"@A>0\"/></COLUMN></GRID>";

  // All that reads and marks: the opening, paints in both selection modes, presses, keys, texts, widths, a
  // sort.
  void live() {
    data = std::make_shared<NewsyDataSet>();
    data->newsAt = newsAt;
    data->news = [this] { news(*this); };
    site = std::make_unique<LateSite>(data);
    control.setClientSite(site.get());
    control.put_IndicatorInfo(u"<INDICATOR width=\"20\"/>");
    control.put_DataID(u"data");
    control.put_ColumnInfo(columns);
    openWindow();
    paint();
    site->hasLate = true;
    press(100, 50);
    control.HandleMessage(256, 13, 0);  // its list
    press(100, 70);
    press(190, 50);
    control.HandleMessage(258, 'x', 0);  // opens the editor
    control.HandleMessage(256, 13, 0);
    press(60, 30);  // a radio button
    control.HandleMessage(256, 40, 0);
    press(5, 30);  // whole rows
    desktop->modifiers.control = true;
    press(5, 50);
    press(5, 30);
    desktop->modifiers = {false, true};
    press(5, 90);
    desktop->modifiers = {};
    control.HandleMessage(256, 40, 0);
    paint();
    control.put_RowPosition(1);
    control.put_ColumnPosition(u"b");
    control.put_ColumnPosition(u"");
    XString text;
    control.get_GetText(u"b", 2, 3, text);
    control.FitArrange();
    if (control.parts().window) control.windowResized();
    press(30, 10);  // a header
    paint();
  }
  void openWindow() {
    window = std::make_unique<HeadlessWindow>(
        Size{200, 120}, [](Canvas&) {}, desktop);
    control.windowCreated(*window);
  }
  void closeWindow() {
    if (control.parts().window) control.windowDestroyed();
    window->close();
  }
  void paint() { control.onDraw(window->canvas()); }
  void press(std::int64_t x, std::int64_t y) {
    for (const std::uint32_t message : {513u, 514u}) control.HandleMessage(message, 1, y << 16 | x);
  }
  // Once more without news: the grid works and agrees with the data set.
  void expectSound() {
    data->newsAt = 0;
    control.put_DataID(u"");
    control.put_DataID(u"data");
    if (!control.parts().window) openWindow();
    paint();
    EXPECT_EQ(control.parts().rows.displayCount(), static_cast<std::int32_t>(data->rows.size()));
    EXPECT_EQ(control.parts().config.columns.count(), 3);
  }

  XmlDocumentReader documents;
  std::shared_ptr<HeadlessDesktop> desktop = std::make_shared<HeadlessDesktop>();
  std::unique_ptr<HeadlessWindow> window;
  std::unique_ptr<LateSite> site;
  std::shared_ptr<NewsyDataSet> data;
  std::int32_t newsAt = 0;
  std::function<void(Reading&)> news;
  Tessera control{Ports{documents}};

  static const std::vector<std::pair<const char*, std::function<void(Reading&)>>>& deeds() {
    static const std::vector<std::pair<const char*, std::function<void(Reading&)>>> all = {
        {"StructureChanged", [](Reading& test) { test.tell(&DataSetNotifications::StructureChanged, 0); }},
        {"DataChanged", [](Reading& test) { test.tell(&DataSetNotifications::DataChanged, 0); }},
        {"RowsReset",
         [](Reading& test) {
           if (test.data->sink) test.data->sink->RowsReset();
         }},
        {"a row more", [](Reading& test) { test.data->addRow(); }},
        {"a row less", [](Reading& test) { test.data->dropRow(); }},
        {"CurrentRowChanged",
         [](Reading& test) {
           test.data->currentRow = 4;
           test.tell(&DataSetNotifications::CurrentRowChanged, 4);
         }},
        {"Refresh", [](Reading& test) { test.control.Refresh(); }},
        {"SourceClosing",
         [](Reading& test) {
           if (test.data->sink) test.data->sink->SourceClosing(VARIANT_FALSE);
         }},
    };
    return all;
  }

 private:
  template <class Notification>
  void tell(Notification notification, std::int32_t value) {
    if (data->sink) (data->sink->*notification)(value);
  }
};

TEST_F(Reading, NewsInEveryAnswer) {
  live();
  const std::int32_t answers = data->answers;
  ASSERT_GT(answers, 100);
  closeWindow();
  for (const auto& [name, deed] : deeds()) {
    for (newsAt = 1; newsAt <= answers; ++newsAt) {
      control.put_DataID(u"");
      control.put_ColumnInfo(u"");
      news = deed;
      live();
      expectSound();
      ASSERT_FALSE(HasFailure()) << name << " in answer " << newsAt;
      closeWindow();
    }
  }
}

// What came during a paint shows after it; a data set that never stops having news is let be.
TEST_F(Reading, NewsOfAPaintIsCaughtUpWith) {
  live();
  data->newsAt = data->answers + 3;
  news = [](Reading& test) { test.data->addRow(); };
  paint();
  EXPECT_EQ(control.parts().rows.displayCount(), 6);
  const std::int32_t before = data->answers;
  data->newsAt = before + 3;
  news = [](Reading& test) {
    test.data->addRow();
    test.data->newsAt = test.data->answers + 3;
  };
  paint();
  EXPECT_LT(data->answers, before + 1000);
  expectSound();
}

}  // namespace
}  // namespace tessera
