// Cells of the background's colour leave out their own fill where they may. A background whose colour is an
// expression grants that to nobody: both must give the same picture, however the columns lie.

#include <gtest/gtest.h>
#include <random>
#include <string>

#include "tools/tessera/form_host.h"

namespace tessera {
namespace {

constexpr Size client{260, 120};
constexpr int layouts = 400;

class RandomLayout {
 public:
  explicit RandomLayout(unsigned seed) : random_(seed) {}

  std::string columnInfo() {
    std::string text = "<GRID>";
    const int columns = pick(1, 6);
    int x = 0;
    for (int i = 0; i < columns; ++i) {
      if (pick(0, 3) == 0) x = pick(-20, 150);  // else beside the one before
      const int width = pick(5, 80);
      text += column(i, x, x + width);
      x += width;
    }
    return text + "</GRID>";
  }

 private:
  int pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
  template <std::size_t Count>
  const char* oneOf(const char* const (&words)[Count]) {
    return words[static_cast<std::size_t>(pick(0, Count - 1))];
  }
  std::string number(const char* name, int value) {
    return std::string(" ") + name + "=\"" + std::to_string(value) + "\"";
  }

  std::string column(int index, int left, int right) {
    static const char* const kinds[] = {
        "", "<EDIT/>", "<CHECK/>", "<COMBO><ITEM value=\"long\" text=\"A long text that is cut\"/></COMBO>",
        "<BAR/>"};
    static const char* const borders[] = {"", " borderstyle=\"none\"", " borderstyle=\"raisedinner\"",
                                          " bordercolor=\"red\""};
    static const char* const colors[] = {"", "", "", " bgcolor=\"#ffffff\"", " bgcolor=\"#ffe0e0\""};
    const int top = pick(0, 5) == 0 ? 20 : 0;
    std::string view = number("left", left) + number("right", right) + number("top", top) +
                       number("bottom", top + pick(10, 21));
    if (pick(0, 4) == 0) view += number("rightmargin", pick(-9, 3)) + number("bottommargin", pick(-9, 3));
    const std::string name(1, static_cast<char>('a' + index));
    return "<COLUMN id=\"" + name + "\" refcolid=\"TEXT\"><HEADER" + number("left", left) +
           number("right", right) + " top=\"0\" bottom=\"16\"" + (pick(0, 5) == 0 ? " fix=\"true\"" : "") +
           "/><VIEW" + view + oneOf(borders) + oneOf(colors) + "/>" + oneOf(kinds) + "</COLUMN>";
  }

  std::mt19937 random_;
};

OpenedForm formOf(const std::string& columns, const std::string& background) {
  ColumnStore store;
  ColumnFormat format;
  format.name = u"TEXT";
  store.addColumn(format);
  for (const char* text :
       {"long", "A text that is far too long for its cell", "0", "77", "", "long", "Gjy", "1"}) {
    store.column(0).appendText(text);
    store.finishRecord();
  }
  OpenedForm opened;
  opened.form.client = client;
  opened.form.gridId = "grid1";
  DataSetForm data;
  data.options.id = "rows";
  opened.form.dataSets.push_back(data);
  opened.form.order = {{Form::Kind::DataSet, 0}, {Form::Kind::Grid, 0}};
  opened.form.properties = {{"DataID", u"rows"},
                            {"BackgroundInfo", XString::fromNarrow(background)},
                            {"ColumnInfo", XString::fromNarrow(columns)}};
  opened.components.dataSets.push_back({});
  opened.components.dataSets.back().rows = std::make_shared<MemoryDataSet>(std::move(store), data.options);
  return opened;
}

struct Pictures {
  Bitmap first;
  Bitmap scrolled;
};

Pictures pictures(const std::string& columns, const std::string& background) {
  FormHost host(formOf(columns, background));
  const auto snapshot = [&] {
    RasterCanvas canvas(client);
    host.control().onDraw(canvas);
    return canvas.snapshot();
  };
  Pictures result{snapshot(), {}};
  constexpr std::uint32_t horizontal = 276;
  host.window()->send(horizontal, 1, 0);
  result.scrolled = snapshot();
  return result;
}

TEST(Ground, ChangesNoPixel) {
  int differentLayouts = 0;
  Bitmap before;
  for (unsigned seed = 0; seed < layouts; ++seed) {
    const std::string columns = RandomLayout(seed).columnInfo();
    const Pictures spared = pictures(columns, "<BACKGROUND bgcolor=\"#ffffff\"/>");
    const Pictures filled = pictures(columns, "<BACKGROUND bgcolor=\"@&quot;#ffffff&quot;\"/>");
    ASSERT_TRUE(spared.first.pixels == filled.first.pixels) << columns;
    ASSERT_TRUE(spared.scrolled.pixels == filled.scrolled.pixels) << columns;
    differentLayouts += spared.first.pixels != before.pixels;
    before = spared.first;
  }
  EXPECT_GT(differentLayouts, layouts * 9 / 10);
}

}  // namespace
}  // namespace tessera
