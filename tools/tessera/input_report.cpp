#include "tools/tessera/input_report.h"

#include <fmt/format.h>

#include "tools/tessera/grid_report.h"
#include "tools/tessera/value_text.h"

namespace tessera {

namespace {

struct CursorName {
  Cursor cursor;
  std::string_view name;
};

constexpr CursorName cursorNames[] = {
    {Cursor::Arrow, "arrow"},       {Cursor::Beam, "ibeam"},
    {Cursor::Cross, "cross"},       {Cursor::No, "no"},
    {Cursor::Help, "help"},         {Cursor::Wait, "wait"},
    {Cursor::Starting, "starting"}, {Cursor::SizeWE, "size"},
    {Cursor::Hand, "hand"},         {Cursor::SizeAll, "move"},
};

void addMenu(const std::vector<PopupMenuItem>& items, const std::string& indent,
             std::vector<std::string>& lines) {
  for (const PopupMenuItem& item : items) {
    const std::string text = item.separator ? "-" : item.text.toUtf8();
    lines.push_back(indent + text + (item.enabled || item.separator ? "" : " (off)"));
    addMenu(item.children, indent + "  ", lines);
  }
}

}  // namespace

std::string describeEdit(const EditBox& box) {
  std::int32_t start = 0;
  std::int32_t end = 0;
  box.selection(start, end);
  return fmt::format("open {} text {} selection {}-{}", rectText(box.placement()), quotedText(box.text()),
                     start, end);
}

std::vector<std::string> describeList(const HeadlessListBox& list) {
  std::vector<std::string> lines{"open " + rectText(list.shownAt())};
  for (const XString& item : list.items()) {
    const bool isChosen = static_cast<std::int32_t>(lines.size()) - 1 == list.chosen();
    lines.push_back((isChosen ? "* " : "  ") + item.toUtf8());
  }
  return lines;
}

std::vector<std::string> describeMenu(const std::vector<PopupMenuItem>& items) {
  std::vector<std::string> lines;
  addMenu(items, {}, lines);
  return lines;
}

std::string_view cursorName(Cursor cursor) {
  for (const CursorName& row : cursorNames) {
    if (row.cursor == cursor) return row.name;
  }
  return "arrow";
}

}  // namespace tessera
