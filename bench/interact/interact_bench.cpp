#include <QApplication>
#include <functional>
#include <random>
#include <string>

#include "backends/headless/headless_input.h"
#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "bench/interact/input_peer.h"
#include "bench/support/one_data_set_page.h"
#include "bench/support/report.h"
#include "components/memory_data_set.h"
#include "control/tessera.h"
#include "interaction/keys.h"
#include "platform/messages.h"

using namespace tessera;

namespace {

constexpr int inputs = 300;
constexpr std::int32_t updates = 100'000;
constexpr double inputBudgetMs = 0.2;  // beyond one repaint
constexpr double updateBudgetMs = 300;

std::shared_ptr<MemoryDataSet> makeData() {
  ColumnStore store;
  for (std::int32_t column = 0; column < peerColumns; ++column) {
    ColumnFormat format;
    format.name = XString::fromNarrow("C" + std::to_string(column));
    format.type = columnInteger;
    store.addColumn(format);
  }
  for (std::int32_t row = 1; row <= peerRows; ++row) {
    for (std::int32_t column = 0; column < peerColumns; ++column) {
      store.column(column).appendWhole(row * 10 + column);
    }
    store.finishRecord();
  }
  DataSetOptions options;
  options.id = "rows";
  return std::make_shared<MemoryDataSet>(std::move(store), options);
}

XString columnInfo() {
  std::string text = "<GRID>";
  for (int column = 0; column < peerColumns; ++column) {
    const std::string place = " left=\"" + std::to_string(column * 100) + "\" right=\"" +
                              std::to_string(column * 100 + 100) + "\" top=\"0\" bottom=\"20\"";
    const std::string name = "C" + std::to_string(column);
    text += "<COLUMN id=\"" + name + "\" refcolid=\"" + name + "\"><HEADER text=\"" + name + "\"" + place +
            "/><VIEW" + place + "/></COLUMN>";
  }
  return XString::fromNarrow(text + "</GRID>");
}

class GridPeer : public InputPeer {
 public:
  explicit GridPeer(std::shared_ptr<MemoryDataSet> data) : site_(std::move(data)) {
    window_.setMessageTarget([this](std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
      return control_.HandleMessage(message, wParam, lParam);
    });
    control_.setClientSite(&site_);
    control_.put_DataID(u"rows");
    control_.put_ColumnInfo(columnInfo());
    control_.windowCreated(window_);
    input_.focusIn();
  }
  ~GridPeer() override { control_.windowDestroyed(); }
  GridPeer(const GridPeer&) = delete;
  GridPeer& operator=(const GridPeer&) = delete;

  void keyDown() override { press(key::down); }
  void pageDown() override { press(key::pageDown); }
  void thumbTo(std::int32_t row) override {
    window_.send(message::vscroll, static_cast<std::uint64_t>(row) << 16 | scroll_code::thumbTrack, 0);
    window_.update();
  }
  void wheelNotch() override {
    input_.wheel({100, 100}, -120);
    window_.update();
  }
  void repaint() override { control_.Repaint(nullptr); }
  std::int32_t focusRow() const override { return control_.parts().focus.FocusRow.number; }
  std::int32_t topRow() const override { return control_.parts().page.TopOrdinal; }

  Tessera& control() { return control_; }
  std::int64_t paintCount() const { return window_.paintCount(); }

 private:
  void press(std::int32_t key) {
    input_.key(key, {});
    window_.update();
  }

  OneDataSetPage site_;
  XmlDocumentReader documents_;
  Tessera control_{Ports{documents_}};
  std::shared_ptr<HeadlessDesktop> desktop_ = std::make_shared<HeadlessDesktop>();
  HeadlessWindow window_{
      {peerWidth, peerHeight}, [this](Canvas& canvas) { control_.onDraw(canvas); }, desktop_};
  HeadlessInput input_{*desktop_,
                       [this](std::int32_t& key) { return control_.translateKey(key) == KeyRoute::Window; }};
};

struct InputCase {
  const char* what;
  // The input of this number, and whether it did what it says.
  std::function<bool(InputPeer&, int)> give;
};

const std::vector<InputCase>& inputCases() {
  static const std::vector<InputCase> cases = {
      {"key Down",
       [](InputPeer& peer, int) {
         const std::int32_t row = peer.focusRow();
         peer.keyDown();
         return peer.focusRow() == row + 1;
       }},
      {"page down",
       [](InputPeer& peer, int) {
         const std::int32_t row = peer.focusRow();
         peer.pageDown();
         return peer.focusRow() > row + 10;
       }},
      {"thumb to any place",
       [random = std::mt19937(1)](InputPeer& peer, int) mutable {
         const auto row = static_cast<std::int32_t>(random() % (peerRows - 100)) + 1;
         peer.thumbTo(row);
         return peer.topRow() == row;
       }},
      {"wheel notch",
       [](InputPeer& peer, int number) {
         if (number == 0) peer.thumbTo(peerRows / 2);
         const std::int32_t row = peer.topRow();
         peer.wheelNotch();
         return peer.topRow() == row + 3;
       }},
  };
  return cases;
}

struct Measured {
  double input = 0;   // milliseconds, paint included
  double beyond = 0;  // what of them a repaint of the same page does not need
};

bool measure(InputPeer& peer, const InputCase& test, Measured& measured) {
  std::vector<double> times;
  std::vector<double> beyond;
  auto give = test.give;
  bool good = true;
  for (int number = 0; number < inputs; ++number) {
    times.push_back(milliseconds([&] { good &= give(peer, number); }));
    beyond.push_back(times.back() - milliseconds([&] { peer.repaint(); }));
  }
  measured = {median(times), std::max(0.0, median(beyond))};
  return good;
}

bool measureInputs(GridPeer& grid, InputPeer& view) {
  bool good = true;
  for (const InputCase& test : inputCases()) {
    Measured ours;
    Measured theirs;
    const std::int64_t paints = grid.paintCount();
    good &= expect(test.what, measure(grid, test, ours));
    good &= expect("each input is painted", grid.paintCount() >= paints + 2 * inputs);
    good &= expect(test.what, measure(view, test, theirs));
    const std::string title = std::string(test.what) + ", beyond one repaint";
    good &= check(title.c_str(), ours.beyond, inputBudgetMs, "ms");
    std::printf("  with its paint %.3f ms; QTableView %.3f ms, beyond its repaint %.3f ms\n", ours.input,
                theirs.input, theirs.beyond);
  }
  return good;
}

bool measureUpdates(GridPeer& grid, MemoryDataSet& data) {
  const std::int64_t paints = grid.paintCount();
  const double update = milliseconds([&] {
    grid.control().put_Draw(VARIANT_FALSE);
    for (std::int32_t row = 1; row <= updates; ++row) data.SetValue(row, 1, XValue::ofInt(-row));
    grid.control().put_Draw(VARIANT_TRUE);
  });
  XValue value;
  data.GetValue(updates, 1, value);
  return check("100,000 updates of the data set, painted once", update, updateBudgetMs, "ms") &
         expect("the last update arrived", value == XValue::ofInt(-updates)) &
         expect("they are painted once", grid.paintCount() == paints + 1);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const auto data = makeData();
  GridPeer grid(data);
  const auto view = makeTableViewPeer();
  std::printf("%d rows by %d cells at %d by %d, medians over %d inputs\n", peerRows, peerColumns, peerWidth,
              peerHeight, inputs);
  bool good = measureInputs(grid, *view);
  good &= measureUpdates(grid, *data);
  std::puts(good ? "all within budget" : "FAILED");
  return good ? 0 : 1;
}
