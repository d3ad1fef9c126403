// A full repaint of the grid beside QTableView's repaint of the same cells, in one process. Prints its
// numbers and fails when one misses its budget or nothing was really painted.

#include <QAbstractTableModel>
#include <QApplication>
#include <QFontInfo>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "bench/support/one_data_set_page.h"
#include "bench/support/report.h"
#include "components/memory_data_set.h"
#include "control/tessera.h"

using namespace tessera;

namespace {

using Times = std::vector<double>;  // milliseconds, a frame each

constexpr std::int32_t cellWidth = 80;
constexpr std::int32_t cellHeight = 20;
constexpr std::int32_t frames = 48;

constexpr double budgetMs = 4;
constexpr double budgetRatio = 15;

// How many cells a frame has.
struct Page {
  std::int32_t rows;
  std::int32_t columns;
  bool hasBudget;

  Size client() const { return {columns * cellWidth, rows * cellHeight}; }
};
constexpr Page pages[] = {{50, 20, true}, {50, 40, false}, {100, 40, false}};

// No two cells have one text, and all fit into their cells: none of the two grids shortens any.
std::string cellText(const Page& page, std::int32_t row, std::int32_t column) {
  static constexpr std::array words{"Oslo", "Rome", "Kyiv", "Lima", "Bern", "Doha", "Baku"};
  std::array<char, 8> digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), row * page.columns + column, 16);
  const auto word = static_cast<std::size_t>(row * 3 + column) % words.size();
  return std::string(words[word]) + " " + std::string(digits.data(), end.ptr);
}

// Processor time of this process: what else runs on the machine does not count. Both grids paint in the
// calling thread.
double processorMs() { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; }

template <class Work>
double processorTimeOf(Work work) {
  const double start = processorMs();
  work();
  return processorMs() - start;
}

// What both grids are asked for: the page that begins with a row is brought into view and then painted.
class Painted {
 public:
  virtual ~Painted() = default;
  virtual void scrollTo(std::int32_t row) = 0;
  virtual void paint() = 0;
  // A sum over the pixels that differs between different pictures.
  virtual std::uint64_t fingerprint() = 0;
  // The share of pixels that are dark, which only text is.
  virtual double darkShare() = 0;
};

class Pixel {
 public:
  void add(std::uint32_t pixel) {
    sum_ = (sum_ ^ (pixel & 0xFFFFFF)) * 1099511628211u;
    dark_ += (pixel & 0xFF) < 0x60 && (pixel >> 8 & 0xFF) < 0x60;
    ++count_;
  }
  std::uint64_t sum() const { return sum_; }
  double darkShare() const { return static_cast<double>(dark_) / static_cast<double>(count_); }

 private:
  std::uint64_t sum_ = 14695981039346656037u;
  std::int64_t dark_ = 0;
  std::int64_t count_ = 0;
};

std::shared_ptr<MemoryDataSet> makeData(const Page& page, std::int32_t rows) {
  ColumnStore store;
  for (std::int32_t column = 0; column < page.columns; ++column) {
    ColumnFormat format;
    format.name = XString::fromNarrow("C" + std::to_string(column));
    store.addColumn(format);
  }
  for (std::int32_t row = 0; row < rows; ++row) {
    for (std::int32_t column = 0; column < page.columns; ++column) {
      store.column(column).appendText(cellText(page, row, column));
    }
    store.finishRecord();
  }
  DataSetOptions options;
  options.id = "rows";
  return std::make_shared<MemoryDataSet>(std::move(store), options);
}

XString columnInfo(const Page& page) {
  std::string text = "<GRID>";
  for (std::int32_t column = 0; column < page.columns; ++column) {
    const std::string name = std::to_string(column);
    text += "<COLUMN id=\"c" + name + "\" refcolid=\"C" + name + "\"><VIEW left=\"" +
            std::to_string(column * cellWidth) + "\" right=\"" + std::to_string((column + 1) * cellWidth) +
            "\" top=\"0\" bottom=\"" + std::to_string(cellHeight) +
            "\" align=\"leftcenter\" bordercolor=\"#d8d8d8\"/></COLUMN>";
  }
  return XString::fromNarrow(text + "</GRID>");
}

// A jump that goes far brings its row to the middle of the page. Until paint() nothing is drawn.
class TesseraGrid : public Painted {
 public:
  TesseraGrid(const Page& page, std::int32_t rows)
      : page_(page),
        data_(makeData(page, rows)),
        site_(data_),
        control_(Ports{documents_}),
        canvas_(page.client()),
        window_(page.client(), [](Canvas&) {}) {
    window_.setCoalescing(true);
    control_.setClientSite(&site_);
    control_.put_DataID(u"rows");
    control_.put_ViewHeader(VARIANT_FALSE);
    control_.put_IndicatorInfo(u"<INDICATOR width=\"0\"/>");
    control_.put_ColumnInfo(columnInfo(page));
    control_.windowCreated(window_);
  }
  ~TesseraGrid() override { control_.windowDestroyed(); }

  void scrollTo(std::int32_t row) override {
    data_->SetCurrentRow(1);
    data_->SetCurrentRow(row + page_.rows / 2 + 1);
  }
  void paint() override { control_.onDraw(canvas_); }
  std::uint64_t fingerprint() override { return look().sum(); }
  double darkShare() override { return look().darkShare(); }
  bool shows(std::int32_t row) const {
    const auto& visible = control_.parts().page.VisibleRows;
    return !visible.empty() && visible.front().number == row + 1 &&
           visible.size() >= static_cast<std::size_t>(page_.rows);
  }

 private:
  Pixel look() const {
    Pixel all;
    for (std::int32_t y = 0; y < canvas_.size().height; ++y) {
      for (std::int32_t x = 0; x < canvas_.size().width; ++x) all.add(canvas_.pixel(x, y));
    }
    return all;
  }

  Page page_;
  std::shared_ptr<MemoryDataSet> data_;
  OneDataSetPage site_;
  XmlDocumentReader documents_;
  Tessera control_;
  RasterCanvas canvas_;
  HeadlessWindow window_;
};

class TextModel : public QAbstractTableModel {
 public:
  TextModel(const Page& page, std::int32_t rows) : rows_(rows), columns_(page.columns) {
    for (std::int32_t row = 0; row < rows; ++row) {
      for (std::int32_t column = 0; column < columns_; ++column) {
        texts_.push_back(QString::fromStdString(cellText(page, row, column)));
      }
    }
  }
  int rowCount(const QModelIndex&) const override { return rows_; }
  int columnCount(const QModelIndex&) const override { return columns_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return texts_[static_cast<std::size_t>(index.row()) * static_cast<std::size_t>(columns_) +
                  static_cast<std::size_t>(index.column())];
  }

 private:
  std::int32_t rows_;
  std::int32_t columns_;
  std::vector<QString> texts_;
};

class QtGrid : public Painted {
 public:
  QtGrid(const Page& page, std::int32_t rows) : page_(page), model_(page, rows) {
    view_.setFont(QFont("DejaVu Sans", 9));
    view_.setFrameShape(QFrame::NoFrame);
    view_.horizontalHeader()->hide();
    view_.verticalHeader()->hide();
    view_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view_.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    view_.horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_.horizontalHeader()->setDefaultSectionSize(cellWidth);
    view_.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view_.verticalHeader()->setMinimumSectionSize(1);
    view_.verticalHeader()->setDefaultSectionSize(cellHeight);
    view_.setModel(&model_);
    view_.resize(page.client().width, page.client().height);
    view_.show();
    QApplication::processEvents();
  }

  void scrollTo(std::int32_t row) override { view_.verticalScrollBar()->setValue(row); }
  void paint() override { view_.viewport()->repaint(); }
  std::uint64_t fingerprint() override { return look().sum(); }
  double darkShare() override { return look().darkShare(); }
  bool shows(std::int32_t row) const {
    return view_.rowAt(0) == row && view_.rowAt(view_.viewport()->height() - 1) == row + page_.rows - 1 &&
           view_.columnAt(view_.viewport()->width() - 1) == page_.columns - 1;
  }
  bool hasFont() const { return QFontInfo(view_.font()).family() == "DejaVu Sans"; }

 private:
  Pixel look() {
    const QImage image = view_.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    Pixel all;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) all.add(image.pixel(x, y));
    }
    return all;
  }

  Page page_;
  TextModel model_;
  QTableView view_;
};

struct Measured {
  double first = 0;  // the first frame of all, with every cache empty
  double fresh = 0;  // rows that were not shown before, glyphs known
  double again = 0;  // the same rows once more
};

template <class Grid>
bool pass(Grid& grid, const Page& page, const char* name, Times& times) {
  std::vector<std::uint64_t> prints;
  bool good = true;
  bool onPlace = true;
  double leastDark = 1;
  for (std::int32_t frame = 0; frame < frames; ++frame) {
    const std::int32_t row = frame * page.rows;
    grid.scrollTo(row);
    onPlace = onPlace && grid.shows(row);
    times.push_back(processorTimeOf([&] { grid.paint(); }));
    prints.push_back(grid.fingerprint());
    leastDark = std::min(leastDark, grid.darkShare());
  }
  std::sort(prints.begin(), prints.end());
  std::printf("  %-11s dark pixels in the emptiest frame: %.1f %%\n", name, 100 * leastDark);
  good &= expect("the page shows the frame's rows", onPlace);
  good &=
      expect("no two frames look alike", std::adjacent_find(prints.begin(), prints.end()) == prints.end());
  good &= expect("every frame is full of text", leastDark > 0.02);
  return good;
}

template <class Grid>
bool measure(Grid& grid, const Page& page, const char* name, Measured& measured) {
  Times fresh;
  Times again;
  bool good = pass(grid, page, name, fresh);
  good &= pass(grid, page, name, again);
  measured = {fresh.front(), median({fresh.begin() + 1, fresh.end()}), median(again)};
  return good;
}

bool report(const char* what, double ours, double theirs, bool hasBudget) {
  const bool ok = !hasBudget || (ours <= budgetMs && ours * budgetRatio <= theirs);
  std::printf("  %-22s %8.3f ms   QTableView %8.3f ms   1/%-5.1f %s\n", what, ours, theirs, theirs / ours,
              !hasBudget ? ""
              : ok       ? "ok"
                         : "MISSED");
  return ok;
}

bool run(const Page& page) {
  const std::int32_t rows = frames * page.rows;
  const Size client = page.client();
  std::printf("%d rows by %d cells at %d by %d\n", page.rows, page.columns, client.width, client.height);
  TesseraGrid grid(page, rows);
  QtGrid view(page, rows);
  Measured ours;
  Measured theirs;
  bool good = measure(grid, page, "Tessera", ours);
  good &= measure(view, page, "QTableView", theirs);
  good &= expect("both use the same font", view.hasFont());
  report("first frame", ours.first, theirs.first, false);
  good &= report("rows not shown before", ours.fresh, theirs.fresh, page.hasBudget);
  good &= report("rows shown before", ours.again, theirs.again, page.hasBudget);
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::printf("medians over %d frames; budget: at most %.0f ms and 1/%.0f of QTableView\n", frames, budgetMs,
              budgetRatio);
  bool good = true;
  for (const Page& page : pages) good &= run(page);
  std::puts(good ? "all within budget" : "FAILED");
  return good ? 0 : 1;
}
