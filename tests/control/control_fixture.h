// A control on a page with one data set, for tests.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "backends/native/xml_document_reader.h"
#include "components/memory_data_set.h"
#include "control/tessera.h"
#include "shared/change_type.h"
#include "shared/utf.h"
#include "tests/support/fake_window.h"

namespace tessera::test {

class TestSite : public ClientSite, public Container, public ItemContainer {
 public:
  Container* container() override { return this; }
  std::optional<AmbientFont> ambientFont() override { return font; }
  XValue ambientCodePage() override { return codePage; }
  std::shared_ptr<Component> getObject(const XString& id) const override {
    const auto found = objects.find(id.toUtf8());
    return found == objects.end() ? nullptr : found->second;
  }

  std::map<std::string, std::shared_ptr<Component>> objects;
  std::optional<AmbientFont> font;
  XValue codePage;
};

// Writes events down, and runs what a test wants to happen inside them.
class EventLog : public ITesseraEvents {
 public:
  HResult Invoke(EventId id, std::span<const XValue> arguments, XValue&) override {
    std::ostringstream text;
    text << eventName(id);
    for (const XValue& argument : arguments) text << ' ' << textOf(argument).toUtf8();
    log += text.str() + "; ";
    if (inside) std::exchange(inside, nullptr)();
    return S_OK;
  }
  std::string take() { return std::exchange(log, ""); }

  std::string log;
  std::function<void()> inside;  // once
};

class ControlTest : public ::testing::Test {
 protected:
  static constexpr const char16_t* twoColumns =
      u"<GRID><COLUMN id=\"a\" refcolid=\"A\"><HEADER left=\"0\" right=\"80\" top=\"0\" bottom=\"20\" "
      u"text=\"A\"/>"
      u"<VIEW left=\"0\" right=\"80\" top=\"0\" bottom=\"20\"/></COLUMN>"
      u"<COLUMN id=\"b\" refcolid=\"B\" index=\"4\"><HEADER left=\"80\" right=\"160\" top=\"0\" "
      u"bottom=\"20\"/>"
      u"<VIEW left=\"80\" right=\"160\" top=\"0\" bottom=\"20\"/></COLUMN></GRID>";

  ControlTest() {
    control.setClientSite(&site);
    control.events().connect(&events);
  }
  ~ControlTest() override {
    if (control.parts().window) control.windowDestroyed();
  }

  // A data set "data" with the columns A and B and `count` rows; A holds the row's number.
  std::shared_ptr<MemoryDataSet> addData(std::int32_t count, DataSetOptions options = {});
  // Binds the data set, sets the columns and opens the window.
  void open() {
    control.put_DataID(u"data");
    control.put_ColumnInfo(twoColumns);
    control.windowCreated(window);
  }
  // "first-last top T of N focus R C"
  std::string page() const;

  XmlDocumentReader documents;
  TestSite site;
  FakeWindow window;  // header 20, four rows of 20, one pixel
  EventLog events;
  Tessera control{Ports{documents}};
};

inline std::shared_ptr<MemoryDataSet> ControlTest::addData(std::int32_t count, DataSetOptions options) {
  ColumnStore store;
  ColumnFormat number;
  number.name = u"A";
  number.type = columnInteger;
  store.addColumn(number);
  ColumnFormat text;
  text.name = u"B";
  text.type = columnText;
  store.addColumn(text);
  options.id = "data";
  auto data = std::make_shared<MemoryDataSet>(std::move(store), options);
  data->appendRows(count);
  for (std::int32_t row = 1; row <= count; ++row) data->SetValue(row, 1, XValue::ofInt(row));
  data->acceptChanges();
  if (count > 0) data->SetCurrentRow(1);
  site.objects["data"] = data;
  return data;
}

inline std::string ControlTest::page() const {
  const GridParts& parts = control.parts();
  std::ostringstream text;
  if (parts.page.VisibleRows.empty()) {
    text << "empty";
  } else {
    text << parts.page.VisibleRows.front()->row << '-' << parts.page.VisibleRows.back()->row;
  }
  text << " top " << parts.page.TopOrdinal << " of " << parts.rows.displayCount() << " focus ";
  if (parts.focus.FocusRow) {
    text << parts.focus.FocusRow->row;
  } else {
    text << '-';
  }
  text << ' ' << (parts.focus.FocusColumn ? parts.focus.FocusColumn->value().id.toUtf8() : "-");
  return text.str();
}

}  // namespace tessera::test
