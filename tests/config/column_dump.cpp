#include "column_dump.h"

#include <fmt/format.h>
#include <type_traits>

namespace tessera {
namespace {

std::string shown(const XString& value) { return '"' + value.toUtf8() + '"'; }
std::string shown(bool value) { return value ? "true" : "false"; }
std::string shown(std::int32_t value) { return std::to_string(value); }
std::string shown(std::uint32_t value) { return fmt::format("{:x}", value); }
std::string shown(const LateBitmap& value) { return value ? "bitmap" : "none"; }
std::string shown(const Rect& r) { return fmt::format("{},{},{},{}", r.left, r.top, r.right, r.bottom); }
std::string shown(const LogFont& f) {
  return fmt::format("{}/{}/{}{}/{}", f.lfHeight, f.lfWeight, f.lfItalic, f.lfUnderline, f.face());
}
template <class Enum>
requires std::is_enum_v<Enum> std::string shown(Enum value) {
  return std::to_string(static_cast<std::int32_t>(value));
}

// Collects the fields of a record that are not as in a new one.
template <class Record>
class Fields {
 public:
  explicit Fields(const Record& record) : record_(record) {}

  template <class Base, class Value>
  Fields& add(const char* name, Value Base::*field) {
    const Value& value = record_.*field;
    if (!(value == fresh_.*field)) text_ += fmt::format(" {}={}", name, shown(value));
    return *this;
  }

  Fields& addStyle() {
    add("imageMode", &CellStyle::imageMode).add("alphaRate", &CellStyle::alphaRate);
    add("key", &CellStyle::transparentColor).add("image", &CellStyle::imageHandle);
    add("leftMargin", &CellStyle::leftMargin).add("topMargin", &CellStyle::topMargin);
    add("rightMargin", &CellStyle::rightMargin).add("bottomMargin", &CellStyle::bottomMargin);
    add("align", &CellStyle::align).add("borderStyle", &CellStyle::borderStyle);
    add("borderColor", &CellStyle::borderColor).add("textColor", &CellStyle::textColor);
    add("backColor", &CellStyle::backColor).add("fontSize", &CellStyle::fontSize);
    add("fontStyle", &CellStyle::fontStyle).add("font", &CellStyle::font);
    add("format", &CellStyle::displayFormat).add("dynamic", &CellStyle::dynamicFlags);
    for (std::int32_t slot = 0; slot < dynamicSlotCount; ++slot) {
      const bool held = record_.expressions[static_cast<std::size_t>(slot)] != nullptr;
      if (held != record_.isDynamic(static_cast<DynamicSlot>(slot))) text_ += fmt::format(" stale={}", slot);
    }
    return *this;
  }

  const std::string& text() const { return text_; }
  std::string line(const char* part) const { return text_.empty() ? "" : fmt::format(" {}{}", part, text_); }

 private:
  const Record& record_;
  const Record fresh_{};
  std::string text_;
};

// What headers and views have in common.
template <class Cell>
Fields<Cell> bandFields(const Cell& cell) {
  Fields<Cell> fields(cell);
  fields.add("rect", &Cell::rect).add("layoutLeft", &Cell::layoutLeft).add("layoutRight", &Cell::layoutRight);
  fields.add("text", &Cell::text).add("cursor", &Cell::cursor).addStyle();
  return fields;
}

std::string dumpChild(const ChildSpec& child) {
  Fields<ChildSpec> fields(child);
  fields.add("type", &ChildSpec::type).add("subType", &ChildSpec::subType);
  fields.add("editable", &ChildSpec::editable).add("limit", &ChildSpec::limitLength);
  fields.add("input", &ChildSpec::inputType).add("ime", &ChildSpec::ime).add("decimal", &ChildSpec::decimal);
  fields.add("select", &ChildSpec::select).add("lines", &ChildSpec::showItemCount);
  fields.add("lookupId", &ChildSpec::lookupDataId).add("lookupCode", &ChildSpec::lookupCode);
  fields.add("lookupText", &ChildSpec::lookupText).add("checkText", &ChildSpec::checkText);
  fields.add("radioText", &ChildSpec::radioText).add("min", &ChildSpec::barMin);
  fields.add("max", &ChildSpec::barMax).add("barAlign", &ChildSpec::barAlign);
  fields.add("barColor", &ChildSpec::barColor).add("barBack", &ChildSpec::barBackColor);
  fields.add("barText", &ChildSpec::barText).addStyle();
  std::string text = fields.text();
  if (child.lookupDataset) text += " lookup";
  for (const ComboItem& item : child.comboItems) text += ' ' + shown(item.code) + ':' + shown(item.text);
  return text.empty() ? "" : " child" + text;
}

std::string dumpColumn(const ColumnRecord& column) {
  Fields<ColumnRecord> own(column);
  own.add("ref", &ColumnRecord::refColumnId).add("view", &ColumnRecord::viewVisible);
  own.add("xl", &ColumnRecord::xlCellFormat).add("index", &ColumnRecord::index);
  own.add("tree", &ColumnRecord::hasTree);
  std::string text = " column " + column.id.toUtf8() + own.text();
  for (const SuppressRef& reference : column.suppressRefs) text += " suppress=" + shown(reference.columnId);

  auto header = bandFields(column.header);
  header.add("fix", &HeaderCell::fix)
      .add("path", &HeaderCell::imagePath)
      .add("check", &HeaderCell::showCheck);
  text += header.line("header") + bandFields(column.view).line("view");
  text += Fields(column.summary).add("text", &SummaryCell::text).addStyle().line("summary");
  for (const GroupCell& group : column.groups) {
    const std::string level = " group level=" + shown(group.level);
    text += level + Fields(group).add("text", &GroupCell::text).addStyle().text();
  }
  return text + dumpChild(column.child);
}

std::string dumpMenuItem(const MenuItem& item, std::size_t depth) {
  std::string text = ' ' + std::string(depth, '>') + shown(item.text) + ' ' + shown(item.code);
  if (!item.enabled) text += " disabled";
  for (const MenuItem& child : item.children) text += dumpMenuItem(child, depth + 1);
  return text;
}

}  // namespace

std::string answer(bool read, const std::string& dump) {
  const std::string all = (read ? "" : " refused") + dump;
  return all.empty() ? all : all.substr(1);
}

std::string dumpColumns(const ColumnList& columns) {
  std::string text;
  for (const ColumnRecord& column : columns) text += dumpColumn(column);
  return text;
}

std::string dumpTree(const TreeInfo& tree) {
  Fields<TreeInfo> fields(tree);
  fields.add("mode", &TreeInfo::rowMode).add("expand", &TreeInfo::expand).add("line", &TreeInfo::hasLine);
  fields.add("indent", &TreeInfo::indentWidth).add("thumb", &TreeInfo::thumbSize);
  fields.add("icon", &TreeInfo::iconSize).add("imageC", &TreeInfo::imageCColumn);
  fields.add("imageE", &TreeInfo::imageEColumn).add("level", &TreeInfo::levelColumn);
  return fields.line("tree");
}

std::string dumpIndicator(const IndicatorRecord& record) {
  Fields<IndicatorRecord> fields(record);
  fields.add("width", &IndicatorRecord::width).add("numbers", &IndicatorRecord::indexNumber).addStyle();
  return fields.text();
}

std::string dumpBackground(const BackgroundRecord& record) {
  Fields<BackgroundRecord> fields(record);
  fields.add("backImage", &BackgroundRecord::backImage).add("keyed", &BackgroundRecord::transparent);
  fields.add("path", &BackgroundRecord::imagePath).addStyle();
  return fields.text();
}

std::string dumpMenu(const XList<MenuItem>& menu) {
  std::string text;
  for (const MenuItem& item : menu) text += dumpMenuItem(item, 0);
  return text;
}

}  // namespace tessera
