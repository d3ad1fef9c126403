#include "tools/tessera/input_commands.h"

#include <limits>

#include "tools/tessera/input_report.h"
#include "tools/tessera/key_names.h"

namespace tessera {

namespace {

constexpr std::string_view mouseUsage =
    "down|up|double|move|rdown|rup|rdouble X Y [ctrl] [shift], wheel X Y DELTA";
constexpr std::string_view keyUsage = "NAME [ctrl] [shift]";

Reply usage(std::string_view name, std::string_view rest) {
  return Reply::error(std::string("usage: ").append(name).append(" ").append(rest));
}

Reply noWindow() { return Reply::error("there is no window"); }

Reply noNumber(const Token& token) { return Reply::error("\"" + token.utf8() + "\" is no number"); }

struct MouseWord {
  std::u16string_view word;
  MouseAction action;
};

constexpr MouseWord mouseWords[] = {
    {u"down", MouseAction::LeftDown},       {u"up", MouseAction::LeftUp},
    {u"double", MouseAction::LeftDouble},   {u"move", MouseAction::Move},
    {u"rdown", MouseAction::RightDown},     {u"rup", MouseAction::RightUp},
    {u"rdouble", MouseAction::RightDouble},
};

// The words from `first` on; nothing when one of them names no modifier key.
std::optional<Modifiers> modifiersFrom(const Arguments& arguments, std::size_t first) {
  Modifiers modifiers;
  for (std::size_t i = first; i < arguments.size(); ++i) {
    if (arguments[i].text == u"ctrl") {
      modifiers.control = true;
    } else if (arguments[i].text == u"shift") {
      modifiers.shift = true;
    } else {
      return std::nullopt;
    }
  }
  return modifiers;
}

std::optional<std::int64_t> longNumber(const Token& token) {
  const XValue value = token.value();
  if (value.type() != VT_I4 && value.type() != VT_I8) return std::nullopt;
  return value.asInt64();
}

Reply runWheel(CommandContext& context, const Arguments& arguments, Point at) {
  if (arguments.size() != 4) return usage("mouse", mouseUsage);
  const auto delta = arguments[3].number();
  if (!delta) return noNumber(arguments[3]);
  context.host.input().wheel(at, *delta);
  return {};
}

Reply runMouse(CommandContext& context, const Arguments& arguments) {
  const auto x = arguments[1].number();
  const auto y = arguments[2].number();
  if (!x || !y) return noNumber(arguments[x ? 2 : 1]);
  if (!context.host.window()) return noWindow();
  if (arguments[0].text == u"wheel") return runWheel(context, arguments, {*x, *y});
  for (const MouseWord& row : mouseWords) {
    if (arguments[0].text != row.word) continue;
    const auto modifiers = modifiersFrom(arguments, 3);
    if (!modifiers) break;
    context.host.input().mouse(row.action, {*x, *y}, *modifiers);
    return {};
  }
  return usage("mouse", mouseUsage);
}

Reply runKey(CommandContext& context, const Arguments& arguments) {
  const auto key = keyOfName(arguments[0].text);
  if (!key) return Reply::error("there is no key \"" + arguments[0].utf8() + "\"");
  const auto modifiers = modifiersFrom(arguments, 1);
  if (!modifiers) return usage("key", keyUsage);
  if (!context.host.window()) return noWindow();
  context.host.input().key(*key, *modifiers);
  return {};
}

// The focus may move with every character.
void enter(HeadlessInput& input, const XString& text) {
  for (std::int32_t i = 0; i < text.length(); ++i) input.character(text.charAt(i));
}

Reply runChar(CommandContext& context, const Arguments& arguments) {
  if (!context.host.window()) return noWindow();
  enter(context.host.input(), arguments[0].text);
  return {};
}

Reply runType(CommandContext& context, const Arguments& arguments) {
  if (!context.host.window()) return noWindow();
  HeadlessInput& input = context.host.input();
  if (!input.hasFocus()) input.focusIn();
  enter(input, arguments[0].text);
  return {};
}

Reply runMessage(CommandContext& context, const Arguments& arguments) {
  std::int64_t words[3] = {};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const auto number = longNumber(arguments[i]);
    if (!number) return noNumber(arguments[i]);
    words[i] = *number;
  }
  if (words[0] < 0 || words[0] > std::numeric_limits<std::uint32_t>::max()) return noNumber(arguments[0]);
  HeadlessWindow* window = context.host.window();
  if (!window) return noWindow();
  window->send(static_cast<std::uint32_t>(words[0]), static_cast<std::uint64_t>(words[1]), words[2]);
  return {};
}

Reply runFocus(CommandContext& context, const Arguments& arguments) {
  if (!context.host.window()) return noWindow();
  if (arguments[0].text == u"in") {
    context.host.input().focusIn();
  } else if (arguments[0].text == u"out") {
    context.host.input().focusOut();
  } else {
    return usage("focus", "in|out");
  }
  return {};
}

Reply runTick(CommandContext& context, const Arguments& arguments) {
  const auto milliseconds = arguments[0].number();
  if (!milliseconds || *milliseconds < 0) return noNumber(arguments[0]);
  context.host.input().letPass(*milliseconds);
  return {};
}

// Whatever somebody posted to the grid's thread.
Reply runWait(CommandContext& context, const Arguments&) {
  context.host.desktop().dispatcher.run();
  return {};
}

Reply runAnswer(CommandContext& context, const Arguments& arguments) {
  if (arguments[0].text != u"menu") return usage("answer", "menu CODE|none");
  const auto code = arguments[1].number();
  if (!code && arguments[1].text != u"none") return noNumber(arguments[1]);
  context.host.desktop().menus.answerNext(code.value_or(0));
  return {};
}

Reply runEdit(CommandContext& context, const Arguments&) {
  const EditorModel& editor = context.host.control().parts().editor;
  if (!editor.active || !editor.box) return Reply::ofText(std::string("closed"));
  return Reply::ofLines({describeEdit(*editor.box)});
}

Reply runList(CommandContext& context, const Arguments&) {
  const HeadlessWindow* window = context.host.window();
  const HeadlessListBox* list = window ? window->list() : nullptr;
  if (!list || list->shownAt().empty()) return Reply::ofText(std::string("closed"));
  return Reply::ofLines(describeList(*list));
}

Reply runCursor(CommandContext& context, const Arguments&) {
  return Reply::ofText(std::string(cursorName(context.host.desktop().cursor)));
}

// Nothing puts a text there.
Reply runClipboard(CommandContext&, const Arguments&) { return Reply::ofText(std::string()); }

Reply runMenu(CommandContext& context, const Arguments&) {
  return Reply::ofLines(describeMenu(context.host.desktop().menus.last()));
}

constexpr CommandRow rows[] = {
    {"mouse", mouseUsage, 3, 5, runMouse, nullptr},
    {"key", keyUsage, 1, 3, runKey, nullptr},
    {"char", "TEXT", 1, 1, runChar, nullptr},
    {"type", "TEXT", 1, 1, runType, nullptr},
    {"message", "NUMBER WPARAM LPARAM", 3, 3, runMessage, nullptr},
    {"focus", "in|out", 1, 1, runFocus, nullptr},
    {"tick", "MS", 1, 1, runTick, nullptr},
    {"wait", "", 0, 0, runWait, nullptr},
    {"answer", "menu CODE|none", 2, 2, runAnswer, nullptr},
    {"edit", "", 0, 0, runEdit, nullptr},
    {"list", "", 0, 0, runList, nullptr},
    {"cursor", "", 0, 0, runCursor, nullptr},
    {"clipboard", "", 0, 0, runClipboard, nullptr},
    {"menu", "", 0, 0, runMenu, nullptr},
};

}  // namespace

std::span<const CommandRow> inputCommands() { return rows; }

}  // namespace tessera
