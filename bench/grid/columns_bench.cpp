// Many columns: what reading a header line of them and refreshing a grid over them cost.

#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <string>
#include <unistd.h>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "bench/support/one_data_set_page.h"
#include "bench/support/report.h"
#include "components/csv_loader.h"
#include "components/memory_data_set.h"
#include "control/tessera.h"

using namespace tessera;

namespace {

constexpr std::int32_t equalNames = 30'000;
constexpr std::int32_t differentNames = 100'000;
constexpr std::int32_t dataSetColumns = 16'000;
constexpr std::int32_t headers = 10'000;

constexpr double equalNamesBudgetMs = 200;
constexpr double differentNamesBudgetMs = 600;
constexpr double refreshBudgetMs = 50;
constexpr double headersBudgetMs = 400;  // nearly all of it for reading their text

// The name of the last column of a file whose header line has `count` names.
template <class Name>
std::string lastName(std::int32_t count, Name name, double& time) {
  const auto path =
      std::filesystem::temp_directory_path() / fmt::format("tessera_columns_{}.csv", ::getpid());
  std::ofstream out(path);
  for (std::int32_t i = 1; i <= count; ++i) out << (i > 1 ? "," : "") << name(i);
  out << '\n';
  out.close();
  std::string last;
  time = milliseconds([&] {
    const auto rows = loadCsv(path.string(), {}, {});
    if (rows) last = rows->store.column(rows->store.columnCount() - 1).format().name.toUtf8();
  });
  std::filesystem::remove(path);
  return last;
}

bool readNames() {
  double time = 0;
  const std::string equal = lastName(
      equalNames, [](std::int32_t) { return "A"; }, time);
  bool good = check("a CSV header of 30,000 equal names", time, equalNamesBudgetMs, "ms");
  good &= expect("the last of the equal names has its number", equal == fmt::format("A_{}", equalNames));
  const auto numbered = [](std::int32_t i) { return fmt::format("C{}", i); };
  const std::string different = lastName(differentNames, numbered, time);
  good &= check("a CSV header of 100,000 different names", time, differentNamesBudgetMs, "ms");
  return good & expect("the last name is the file's", different == numbered(differentNames));
}

class Grid {
 public:
  explicit Grid(std::int32_t columns) : page_(makeData(columns)) {
    control.setClientSite(&page_);
    control.put_DataID(u"data");
  }
  ~Grid() { control.windowDestroyed(); }

  double open(const std::string& info) {
    control.put_ColumnInfo(XString::fromNarrow(info));
    return milliseconds([&] { control.windowCreated(window_); });
  }

 private:
  static std::shared_ptr<MemoryDataSet> makeData(std::int32_t columns) {
    ColumnStore store;
    for (std::int32_t i = 1; i <= columns; ++i) {
      ColumnFormat format;
      format.name = XString::fromNarrow(fmt::format("C{}", i));
      format.type = columnInteger;
      store.addColumn(format);
    }
    for (std::int32_t i = 1; i <= columns; ++i) store.column(i - 1).appendWhole(i);
    store.finishRecord();
    DataSetOptions options;
    options.id = "data";
    return std::make_shared<MemoryDataSet>(std::move(store), options);
  }

  XmlDocumentReader documents_;
  OneDataSetPage page_;

 public:
  Tessera control{Ports{documents_}};

 private:
  HeadlessWindow window_{{800, 600}, [this](Canvas& canvas) { control.onDraw(canvas); }};
};

bool refreshOverManyColumns() {
  Grid grid(dataSetColumns);
  grid.open(
      fmt::format("<GRID><COLUMN id=\"c\"><HEADER left=\"0\" right=\"80\" top=\"0\" bottom=\"20\"/>"
                  "<VIEW left=\"0\" right=\"80\" top=\"0\" bottom=\"20\" text=\"@C{}+1\"/></COLUMN></GRID>",
                  dataSetColumns));
  bool good = check("Refresh over 16,000 data set columns", milliseconds([&] { grid.control.Refresh(); }),
                    refreshBudgetMs, "ms");
  XString text;
  grid.control.get_GetText(u"c", 1, 3, text);
  return good & expect("the last column is known to expressions",
                       text.toUtf8() == std::to_string(dataSetColumns + 1));
}

// Each header reaches into the next, and the text has them from right to left.
bool openOverlappingHeaders() {
  std::string info = "<GRID>";
  for (std::int32_t i = headers - 1; i >= 0; --i) {
    info += fmt::format(
        "<COLUMN id=\"c{}\"><HEADER left=\"{}\" right=\"{}\" top=\"0\" bottom=\"20\"{}/></COLUMN>", i, 4 * i,
        4 * i + 6, i == 0 ? " fix=\"true\"" : "");
  }
  Grid grid(1);
  const bool good =
      check("open 10,000 overlapping headers", grid.open(info + "</GRID>"), headersBudgetMs, "ms");
  const ColumnList& columns = grid.control.parts().config.columns;
  const auto fixed = std::count_if(columns.begin(), columns.end(),
                                   [](const ColumnRecord& column) { return column.header.fix; });
  return good & expect("all headers stand in the fixed zone", fixed == headers);
}

}  // namespace

int main() {
  const bool names = readNames();
  const bool refresh = refreshOverManyColumns();
  const bool overlapping = openOverlappingHeaders();
  const bool good = names && refresh && overlapping;
  std::puts(good ? "all within budget" : "FAILED");
  return good ? 0 : 1;
}
