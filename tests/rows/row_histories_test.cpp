// Rows that come, go and move by the grid's own hand and by others, against a tree built from scratch.

#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <utility>

#include "components/memory_data_set.h"
#include "support/source_path.h"
#include "tools/tessera/form_host.h"

namespace tessera {
namespace {

// Another subscriber, which refuses changes and makes some of its own in the middle of others'.
class Meddler : public DataSink {
 public:
  HResult CanChange(std::int32_t, VariantBool& allowed) override {
    allowed = random() % 20 == 0 ? VARIANT_FALSE : VARIANT_TRUE;
    return S_OK;
  }
  HResult RowInserted(std::int32_t) override { return act(); }
  HResult RowDeleted(std::int32_t) override { return act(); }
  HResult act() {
    if (random() % 100 == 0 && !std::exchange(acting_, true)) meddle(), acting_ = false;
    return S_OK;
  }

  std::mt19937 random{1};
  std::function<void()> meddle;

 private:
  bool acting_ = false;
};

class History {
 public:
  History(const std::string& form, std::uint32_t seed)
      : host_(std::move(*openForm(sourcePath("tests/console/forms/" + form + ".xml")))), random_(seed) {
    meddler_.meddle = [this] { act(); };
    data_.Advise(&meddler_, 1);
  }
  ~History() { data_.Unadvise(&meddler_); }

  void run(int steps) {
    for (int step = 0; step < steps && !testing::Test::HasFatalFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step) + " " + act());
      if (!parts().rowsStale) compare();
    }
  }

 private:
  std::int32_t pick(std::int32_t below) {
    return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(std::max(below, 1)));
  }
  std::int32_t row() { return pick(data_.rowCount() + 2); }
  bool isTree() const { return parts().config.tree.rowMode == RowMode::Tree; }
  const GridParts& parts() const { return grid_.parts(); }
  XString word() { return XString::fromNarrow(std::string(1, static_cast<char>('a' + pick(4)))); }

  std::string act() {
    const int what = pick(data_.rowCount() > 60 ? 10 : 20);
    if (what < 5) return grid_.Delete(row()), "Delete";
    if (what < 6) return someRow([this](std::int32_t at) { data_.DeleteRow(at); }), "DeleteRow";
    if (what < 8) return grid_.Move(row(), row(), 4 * pick(2)), "Move";
    if (what < 10) return arrange();
    if (what < 16) {
      XString value;
      value.format("NAME::x,CITY::%s, REGION::%s", word(), word());
      return grid_.Insert(row(), pick(5), value), "Insert";
    }
    return meddle();
  }
  // What opens and closes rows, selects them, and moves the focus.
  std::string arrange() {
    switch (pick(7)) {
      case 0:
        return pick(2) == 0 ? grid_.ExpandAll() : grid_.CollapseAll(), "all";
      case 1:
        return grid_.put_ColumnPosition(pick(2) == 0 ? u"" : u"qty"), "mode";
      case 2:
        return data_.setKeepDeleted(pick(3) == 0), "keep";
      case 3:
        return data_.acceptChanges(), data_.notifier().rowsReset(), "accept";
      case 4:
        host_.input().mouse(MouseAction::LeftDown, {8, 30 + 20 * pick(10)}, {.control = pick(2) == 0});
        return "press";
      default:
        return pick(2) == 0 ? grid_.Expand(row()) : grid_.Collapse(row()), "toggle";
    }
  }
  // Others' changes, which the grid does not follow before it is told to, or changes rows itself.
  std::string meddle() {
    switch (pick(5)) {
      case 0:
        return someRow([this](std::int32_t at) { data_.InsertRow(at); }), "InsertRow";
      case 1:
        return someRow([this](std::int32_t at) { data_.SetText(at, 2, word()); }), "SetText";
      case 2:
        return data_.SetCurrentRow(row()), "SetCurrentRow";
      case 3:
        someRow([this](std::int32_t) { data_.InsertRow(data_.rowCount() + 1); });
        return data_.notifier().rowsAdded(data_.rowCount()), "RowsAdded";
      default:
        data_.CommitRows();
        data_.notifier().rowsReset();
        return "reset";
    }
  }
  // In a tree the level of what came is made one that fits.
  template <class Change>
  void someRow(Change change) {
    change(row());
    if (!isTree()) return;
    std::int32_t last = 0;
    for (std::int32_t at = 1; at <= data_.rowCount(); ++at) {
      XValue level;
      data_.GetValue(at, 2, level);
      const std::int32_t fits = std::clamp(level.asInt(), 1, last + 1);
      if (fits != level.asInt() && pick(50) > 0) data_.SetValue(at, 2, XValue::ofInt(fits));
      last = fits;
    }
  }

  void compare() {
    GridConfig config = parts().config;
    RowTree fresh;
    RowBuilder{config, parts().link, fresh}.build();
    const RowTree& rows = parts().rows;
    ASSERT_EQ(rows.rowCount(), fresh.rowCount());
    for (Row row{1}; row.number <= rows.rowCount(); ++row.number) {
      ASSERT_EQ(rows.level(row), fresh.level(row)) << row.number;
      if (!rows.find(row.number)) continue;
      const RowState state = rows.state(row);
      ASSERT_EQ(state == RowState::Leaf, fresh.state(row) == RowState::Leaf) << row.number;
      if (state != fresh.state(row)) fresh.toggle(row);
    }
    ASSERT_EQ(rows.displayCount(), fresh.displayCount());
    for (std::int32_t place = 1; place <= rows.displayCount(); ++place) {
      ASSERT_EQ(rows.nth(place), fresh.nth(place));
    }
    comparePage(fresh);
  }
  void comparePage(const RowTree& fresh) const {
    const PageView& page = parts().page;
    ASSERT_EQ(page.VisibleRows.empty(), fresh.empty());
    for (std::size_t index = 0; index < page.VisibleRows.size(); ++index) {
      ASSERT_EQ(page.VisibleRows[index], fresh.nth(page.TopOrdinal + static_cast<std::int32_t>(index)));
    }
    const FocusModel& focus = parts().focus;
    const auto stands = [&fresh](Row row) { return !row || fresh.find(row.number); };
    ASSERT_TRUE(stands(focus.FocusRow)) << focus.FocusRow.number;
    for (const RowList::Run& run : focus.SelectedRows.runs()) {
      ASSERT_TRUE(stands({run.first}) && stands({run.last})) << run.first;
    }
  }

  FormHost host_;
  Tessera& grid_ = host_.control();
  MemoryDataSet& data_ = dynamic_cast<MemoryDataSet&>(*parts().link.dataSet());
  std::mt19937 random_;
  Meddler meddler_;
};

TEST(RowHistories, TreeIsTheDatas) {
  History("tree", 3).run(5000);
  History("groups", 4).run(5000);
}

}  // namespace
}  // namespace tessera
