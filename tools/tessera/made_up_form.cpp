#include "tools/tessera/made_up_form.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "backends/raster/raster_canvas.h"
#include "shared/screen.h"
#include "shared/utf.h"

namespace tessera {

namespace {

// The rows that decide a column's width: those of the first pages, and some of all the others.
constexpr std::int32_t firstRows = 300;
constexpr std::int32_t furtherRows = 100;

constexpr std::int32_t cellMargins = 3 + 3;  // of every cell record, on each axis
constexpr std::int32_t gridLine = 1;
constexpr std::int32_t sortMarkRoom = 8 + 4;
constexpr std::int32_t leastWidth = 32;
constexpr std::int32_t mostWidth = 400;

constexpr std::string_view dataSetId = "data";

class ColumnWriter {
 public:
  ColumnWriter(DataSetControl& data, const Form& form) : data_(data), canvas_({1, 1}) {
    font_.lfHeight = pointsToHeight(form.fontSize);
    font_.setFace(form.font);
    height_ = canvas_.textExtent(font_, u"Ag").height + cellMargins + gridLine;
    data.GetRowCount(rows_);
  }

  std::string run() {
    std::int32_t columns = 0;
    data_.GetColumnCount(columns);
    text_ = "<GRID>";
    for (std::int32_t column = 1; column <= columns; ++column) add(column);
    return text_ + "</GRID>";
  }

 private:
  std::int32_t widthOf(std::int32_t column, const XString& name) {
    std::int32_t width = canvas_.textExtent(font_, name).width + sortMarkRoom;
    const auto measure = [&](std::int32_t row) {
      data_.GetText(row, column, cell_);
      width = std::max(width, canvas_.textExtent(font_, cell_).width);
    };
    for (std::int32_t row = 1; row <= std::min(rows_, firstRows); ++row) measure(row);
    const std::int32_t step = std::max(1, (rows_ - firstRows) / furtherRows);
    for (std::int32_t row = rows_; row > firstRows; row -= step) measure(row);
    return std::clamp(width + cellMargins + gridLine, leastWidth, mostWidth);
  }

  void attribute(std::string_view name, std::string_view value) {
    text_.append(" ").append(name).append("=\"");
    for (char c : value) appendEscaped(c);
    text_ += '"';
  }
  void attribute(std::string_view name, std::int32_t value) { attribute(name, std::to_string(value)); }

  void appendEscaped(char c) {
    constexpr std::string_view special = "<>&\"'\t\n\r";
    if (special.find(c) == std::string_view::npos) {
      text_ += c;
    } else {
      text_.append("&#").append(std::to_string(static_cast<int>(c))).append(";");
    }
  }

  void place(std::int32_t width) {
    attribute("left", left_);
    attribute("right", left_ + width);
    attribute("top", 0);
    attribute("bottom", height_);
  }

  void add(std::int32_t column) {
    XString name;
    data_.GetColumnName(column, name);
    std::int32_t type = columnText;
    data_.GetColumnType(column, type);
    const std::string id = name.toUtf8();
    const std::int32_t width = widthOf(column, name);
    text_ += "<COLUMN";
    attribute("id", id);
    attribute("refcolid", id);
    attribute("index", column - 1);
    text_ += "><HEADER";
    place(width);
    // A text that starts with "@" would be an expression.
    attribute("text", id.starts_with('@') ? " " + id : id);
    text_ += "/><VIEW";
    place(width);
    const bool isNumber = type == columnInteger || type == columnLong || type == columnDecimal;
    attribute("align", isNumber ? "rightcenter" : "leftcenter");
    text_ += "/><CHILD";
    attribute("type", "edit");
    if (isNumber) attribute("inputtype", "numeric");
    text_ += "/></COLUMN>";
    left_ += width;
  }

  DataSetControl& data_;
  RasterCanvas canvas_;
  LogFont font_;
  std::int32_t height_ = 0;  // of header and rows
  std::int32_t rows_ = 0;
  std::int32_t left_ = 0;  // of the next column
  XString cell_;
  std::string text_;
};

}  // namespace

XString madeUpColumns(DataSetControl& data, const Form& form) {
  return XString::fromNarrow(ColumnWriter(data, form).run());
}

Form madeUpForm(const DataSource& source) {
  Form form;
  form.path = source.database.empty() ? source.file : source.database;
  DataSetForm data;
  data.options.id = dataSetId;
  data.source = source;
  form.dataSets.push_back(std::move(data));
  form.gridId = "grid";
  form.properties = {{"DataID", XString::fromNarrow(dataSetId)}, {"Sort", u"true"}, {"Resize", u"1"}};
  form.order = {{Form::Kind::DataSet, 0}, {Form::Kind::Grid, 0}};
  return form;
}

}  // namespace tessera
