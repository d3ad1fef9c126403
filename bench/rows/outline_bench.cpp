// A million rows as a tree and as groups: what arranging, opening, closing and changing them costs.

#include <fstream>
#include <malloc.h>
#include <random>
#include <string>
#include <unistd.h>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "bench/rows/outline_data.h"
#include "bench/rows/outline_peer.h"
#include "bench/support/one_data_set_page.h"
#include "bench/support/report.h"
#include "control/tessera.h"

using namespace tessera;

namespace {

constexpr double buildBudgetMs = 400;
constexpr double bytesBudget = 24;  // a row
constexpr double allBudgetMs = 20;
constexpr double oneBudgetMs = 1;
constexpr double jumpBudgetMs = 0.1;  // beyond one repaint
constexpr double runBudgetMs = 100;   // ten thousand rows
constexpr int rounds = 51;

double residentBytes() {
  malloc_trim(0);
  std::ifstream statm("/proc/self/statm");
  long size = 0, resident = 0;
  statm >> size >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

class OutlineBench {
 public:
  OutlineBench(std::shared_ptr<OutlineData> data, const char16_t* tree)
      : data_(std::move(data)), page_(data_) {
    control_.setClientSite(&page_);
    control_.put_DataID(u"rows");
    control_.put_ColumnInfo(columns(u"<TREE type=\"0\"/>"));
    control_.windowCreated(window_);
    const double before = residentBytes();
    control_.put_ColumnInfo(columns(tree));
    good_ &= check("arrange", milliseconds([&] { data_->reset(); }), buildBudgetMs, "ms");
    good_ &= check("memory", (residentBytes() - before) / data_->rowCount(), bytesBudget, "B");
    repaint_ = each([&](int) { control_.Repaint(nullptr); });
    std::printf("%-46s %9.3f ms\n", "one repaint", repaint_);
  }
  ~OutlineBench() { control_.windowDestroyed(); }

  void openAndClose(std::int32_t top, std::int32_t middle) {
    good_ &= check("close all", milliseconds([&] { control_.CollapseAll(); }), allBudgetMs, "ms");
    good_ &= expect("the outermost rows are left", rows().displayCount() < 200);
    good_ &= check("open all", milliseconds([&] { control_.ExpandAll(); }), allBudgetMs, "ms");
    good_ &= expect("all rows show", rows().displayCount() == data_->rowCount());
    for (const std::int32_t row : {top, middle}) {
      const double time =
          each([&](int round) { round % 2 == 0 ? control_.Collapse(row) : control_.Expand(row); });
      good_ &= check("open or close one row, repaint included", time, oneBudgetMs, "ms");
      good_ &= expect("it is closed", rows().state({row}) == RowState::Collapsed);
      control_.Expand(row);
    }
  }
  void jump() {
    std::mt19937 random(1);
    bool landed = true;
    const double time = each([&](int) {
      const auto row =
          static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(data_->rowCount())) + 1;
      data_->current(row);
      landed = landed && parts().focus.FocusRow.number == row && parts().page.VisibleIndex({row}) >= 0;
    });
    good_ &= check("jump to any row, beyond one repaint", time - repaint_, jumpBudgetMs, "ms");
    good_ &= expect("every jump lands on its row", landed);
  }
  // The data set is told of each row, which takes its time.
  void selectAll() {
    const auto press = [&](Row row, bool shift) {
      control_.controllers().focus.pressRow({.region = Region::Indicator, .row = row.number}, {},
                                            {.shift = shift});
    };
    press(rows().first(), false);
    const double time = milliseconds([&] { press(rows().lastDisplayable(), true); });
    std::printf("%-46s %9.3f ms\n", "select all, each flagged in the data set", time);
    good_ &= expect("all are selected", parts().focus.SelectedRows.size() == data_->rowCount());
    control_.put_ColumnPosition(u"no");
  }
  // `level`: of the row beside the new one.
  void change(std::int32_t row, std::int32_t level, std::int32_t leaf, std::int32_t run) {
    const std::int32_t before = data_->rowCount();
    std::vector<double> in, moved, out;
    for (int round = 0; round < rounds; ++round) {
      data_->sumFrom(level);
      in.push_back(beyondData([&] { control_.Insert(row, 0, u""); }));
      const std::int32_t came = parts().focus.FocusRow.number;
      moved.push_back(beyondData([&] { control_.Move(leaf, leaf + 1, 0); }));
      out.push_back(beyondData([&] { control_.Delete(came); }));
    }
    good_ &= check("insert", median(in), oneBudgetMs, "ms");
    good_ &= check("move", median(moved), oneBudgetMs, "ms");
    good_ &= check("delete", median(out), oneBudgetMs, "ms");
    good_ &= expect("all that came went", data_->rowCount() == before);
    const std::int32_t size = rows().subtree({run}).count;
    const double time = beyondData([&] { control_.Delete(run); });
    std::printf("%-46s %9d\n", "rows below one", size);
    good_ &= check("delete it with them, for ten thousand rows", time * 1e4 / size, runBudgetMs, "ms");
    good_ &= expect("they went", data_->rowCount() < before && isTheDatas());
  }
  bool good() const { return good_; }
  double timeOfAll() {
    return milliseconds([&] { control_.CollapseAll(), control_.ExpandAll(); });
  }

 private:
  static XString columns(const char16_t* tree) {
    return XString(
        u"<GRID><COLUMN id=\"no\" refcolid=\"NO\"><HEADER left=\"0\" right=\"200\" top=\"0\" "
        u"bottom=\"22\"/><VIEW left=\"0\" right=\"200\" top=\"0\" bottom=\"22\"/>" +
        std::u16string(tree) + u"</COLUMN></GRID>");
  }
  const GridParts& parts() const { return control_.parts(); }
  const RowTree& rows() const { return parts().rows; }
  template <class Work>
  double beyondData(Work work) {
    data_->ownMilliseconds();
    const double all = milliseconds(work);
    return all - data_->ownMilliseconds();
  }
  template <class Work>
  static double each(Work work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) times.push_back(milliseconds([&] { work(round); }));
    return median(times);
  }
  bool isTheDatas() const {
    bool same = rows().rowCount() == data_->rowCount();
    for (std::int32_t row = 1; same && row <= data_->rowCount(); ++row)
      same = rows().level({row}) == data_->levelOf(row);
    return same;
  }

  std::shared_ptr<OutlineData> data_;
  OneDataSetPage page_;
  XmlDocumentReader documents_;
  Tessera control_{Ports{documents_}};
  HeadlessWindow window_{{800, 600}, [this](Canvas& canvas) { control_.onDraw(canvas); }};
  bool good_ = true;
  double repaint_ = 0;
};

bool besidePeer(OutlineBench& bench, const OutlineData& data) {
  std::vector<std::int8_t> levels;
  for (std::int32_t row = 1; row <= data.rowCount(); ++row)
    levels.push_back(static_cast<std::int8_t>(data.levelOf(row)));
  const auto peer = makeTreeView(levels);
  if (!peer) return true;
  const double theirs = milliseconds([&] { peer->expandAll(), peer->collapseAll(); });
  peer->expandAll();
  peer->toggle();
  const double toggle = milliseconds([&] { peer->toggle(); });
  std::printf("%-46s %9.3f ms, here %.3f ms\n", "the other tree view, close and open all", theirs,
              bench.timeOfAll());
  std::printf("%-46s %9.3f ms\n", "the other tree view, open a small row", toggle);
  return expect("faster than the other tree view", bench.timeOfAll() < theirs);
}

}  // namespace

int main() {
  std::puts("A tree of depth 6");
  const auto treeRows = OutlineData::tree(6, 10, 9);
  OutlineBench tree(treeRows, u"<TREE type=\"2\" levelcolumn=\"LEVEL\"/>");
  tree.openAndClose(1, 111112 + 1);
  tree.jump();
  tree.selectAll();
  bool good = besidePeer(tree, *treeRows);
  tree.change(500'000, OutlineData::groupLevels + 1, 600'006, 2);

  std::puts("Groups of three levels");
  OutlineBench groups(OutlineData::groups(10, 30, 100), u"<TREE type=\"1\"/>");
  groups.openAndClose(9931, 11);
  groups.jump();
  groups.selectAll();
  groups.change(50 * 9931 + 15 * 331 + 11, OutlineData::groupLevels, 1, 9931);

  good = good && tree.good() && groups.good();
  std::puts(good ? "all within budget" : "FAILED");
  return good ? 0 : 1;
}
