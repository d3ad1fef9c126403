// Ten million plain rows: what opening, showing and jumping cost beside the data set.

#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <random>
#include <string>
#include <unistd.h>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "bench/support/one_data_set_page.h"
#include "bench/support/report.h"
#include "components/memory_data_set.h"
#include "control/tessera.h"
#include "tools/tessera/grid_report.h"

using namespace tessera;

namespace {

constexpr std::int32_t rowCount = 10'000'000;
constexpr std::int32_t updates = 100'000;
constexpr int jumps = 300;

constexpr double openBudgetMs = 50;
constexpr double memoryBudgetMiB = 16;
constexpr double jumpBudgetMs = 1;  // beyond one repaint
constexpr double updateBudgetMs = 300;

constexpr const char16_t* columns =
    u"<GRID><COLUMN id=\"no\" refcolid=\"NO\"><HEADER left=\"0\" right=\"120\" top=\"0\" bottom=\"22\" "
    u"text=\"No\"/>"
    u"<VIEW left=\"0\" right=\"120\" top=\"0\" bottom=\"22\"/></COLUMN>"
    u"<COLUMN id=\"name\" refcolid=\"NAME\"><HEADER left=\"120\" right=\"400\" top=\"0\" bottom=\"22\"/>"
    u"<VIEW left=\"120\" right=\"400\" top=\"0\" bottom=\"22\"/></COLUMN></GRID>";

double residentMiB() {
  malloc_trim(0);
  std::ifstream statm("/proc/self/statm");
  long size = 0;
  long resident = 0;
  statm >> size >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

std::shared_ptr<MemoryDataSet> makeData() {
  ColumnStore store;
  ColumnFormat number;
  number.name = u"NO";
  number.type = columnInteger;
  store.addColumn(number);
  ColumnFormat text;
  text.name = u"NAME";
  store.addColumn(text);
  for (std::int32_t record = 0; record < rowCount; ++record) {
    store.column(0).appendWhole(record + 1);
    store.column(1).appendText(record % 2 == 0 ? "even" : "odd");
    store.finishRecord();
  }
  DataSetOptions options;
  options.id = "rows";
  return std::make_shared<MemoryDataSet>(std::move(store), options);
}

}  // namespace

int main() {
  const auto data = makeData();
  OneDataSetPage page(data);
  XmlDocumentReader documents;

  bool good = true;
  const double before = residentMiB();
  Tessera control{Ports{documents}};
  control.setClientSite(&page);
  HeadlessWindow window({800, 600}, [&control](Canvas& canvas) { control.onDraw(canvas); });
  std::vector<std::string> state;
  const double open = milliseconds([&] {
    control.put_DataID(u"rows");
    control.put_ColumnInfo(columns);
    control.windowCreated(window);
  });
  const double show = milliseconds([&] { state = describeState(control.parts()); });
  good &= check("open, with the first paint", open, openBudgetMs, "ms");
  good &= check("show", show, openBudgetMs, "ms");
  good &= check("memory beside the data set", residentMiB() - before, memoryBudgetMiB, "MiB");
  good &= expect("a page is shown", !state.empty() && control.parts().page.VisibleRows.size() > 20);

  const double repaint = milliseconds([&] {
                           for (int i = 0; i < jumps; ++i) control.Repaint(nullptr);
                         }) /
                         jumps;
  std::mt19937 random(1);
  std::uniform_int_distribution<std::int32_t> anyRow(1, rowCount);
  bool landed = true;
  const double jump = milliseconds([&] {
                        for (int i = 0; i < jumps; ++i) {
                          const std::int32_t row = anyRow(random);
                          data->SetCurrentRow(row);
                          landed = landed && control.parts().focus.FocusRow.number == row;
                        }
                      }) /
                      jumps;
  std::printf("%-46s %9.3f ms\n", "one repaint", repaint);
  good &= check("jump to any row, beyond one repaint", jump - repaint, jumpBudgetMs, "ms");
  good &= check("memory beside the data set after the jumps", residentMiB() - before, memoryBudgetMiB, "MiB");
  good &= expect("every jump lands on its row", landed);

  const double update = milliseconds([&] {
    control.put_Draw(VARIANT_FALSE);
    for (std::int32_t row = 1; row <= updates; ++row) data->SetValue(row, 1, XValue::ofInt(-row));
    control.put_Draw(VARIANT_TRUE);
  });
  XValue value;
  data->GetValue(updates, 1, value);
  good &= check("100,000 cell updates, painting coalesced", update, updateBudgetMs, "ms");
  good &= expect("the last update arrived", value == XValue::ofInt(-updates));

  control.windowDestroyed();
  std::puts(good ? "all within budget" : "FAILED");
  return good ? 0 : 1;
}
