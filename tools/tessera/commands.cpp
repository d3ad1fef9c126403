#include "tools/tessera/commands.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <span>

#include "backends/native/files.h"
#include "backends/raster/png_writer.h"
#include "config/display_format.h"
#include "config/info_text.h"
#include "control/dispatch_table.h"
#include "geometry/hit_test.h"
#include "hosting/persistence.h"
#include "shared/calendar.h"
#include "shared/utf.h"
#include "tools/tessera/data_operations.h"
#include "tools/tessera/evaluate.h"
#include "tools/tessera/form_reader.h"
#include "tools/tessera/grid_report.h"
#include "tools/tessera/input_commands.h"
#include "tools/tessera/memory_stream.h"

namespace tessera {

namespace {

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

std::string inQuotes(const std::string& text) { return "\"" + text + "\""; }

Reply noWindow() { return Reply::error("there is no window"); }
Reply noNumber(const Token& token) { return Reply::error(inQuotes(token.utf8()) + " is no 32-bit number"); }

std::vector<XValue> valuesOf(std::span<const Token> tokens) {
  std::vector<XValue> values;
  std::transform(tokens.begin(), tokens.end(), std::back_inserter(values),
                 [](const Token& token) { return token.value(); });
  return values;
}

// Two numbers at the start of the arguments; the reply says which is none.
struct Pair {
  std::int32_t first = 0;
  std::int32_t second = 0;
};
std::optional<Reply> readPair(const Arguments& arguments, Pair& pair) {
  std::int32_t* targets[] = {&pair.first, &pair.second};
  for (std::size_t i = 0; i < 2; ++i) {
    const auto number = arguments[i].number();
    if (!number) return noNumber(arguments[i]);
    *targets[i] = *number;
  }
  return std::nullopt;
}

// Members.

std::string countFault(const std::string& name, std::int32_t least, std::int32_t most, std::size_t given) {
  const std::string wanted = least == most ? std::to_string(most) : fmt::format("{} to {}", least, most);
  return fmt::format("{} takes {} argument{}, not {}", name, wanted, most == 1 && least == 1 ? "" : "s",
                     given);
}

Reply memberFault(const MemberRow* member, const std::string& name, MemberUse use, std::size_t given,
                  HResult status) {
  if (!member) return Reply::error("there is no member " + inQuotes(name));
  const std::string known(member->name);
  switch (status) {
    case DISP_E_MEMBERNOTFOUND:
      return Reply::error(known + (use == MemberUse::Get   ? " gives no value"
                                   : use == MemberUse::Put ? " cannot be written"
                                                           : " is no method"));
    case DISP_E_BADPARAMCOUNT: {
      const std::int32_t most = member->arguments + (use == MemberUse::Put ? 1 : 0);
      return Reply::error(countFault(known, most - member->optional, most, given));
    }
    case DISP_E_TYPEMISMATCH:
    case DISP_E_OVERFLOW:
      return Reply::error(known + " does not take a value of this kind");
    default:
      return Reply::error(fmt::format("{} failed with 0x{:08X}", known, static_cast<std::uint32_t>(status)));
  }
}

Reply invoke(CommandContext& context, const Token& name, MemberUse use, std::span<const XValue> values) {
  XValue result;
  const HResult status = invokeMember(context.host.control(), name.text, use, values, result);
  if (!succeeded(status)) {
    return memberFault(findMember(name.text), name.utf8(), use, values.size(), status);
  }
  return use == MemberUse::Get ? Reply::of(result) : Reply{};
}

Reply runGet(CommandContext& context, const Arguments& arguments) {
  return invoke(context, arguments[0], MemberUse::Get, valuesOf(std::span(arguments).subspan(1)));
}

Reply runPut(CommandContext& context, const Arguments& arguments) {
  std::vector<XValue> values = valuesOf(std::span(arguments).subspan(1));
  const Token& last = arguments.back();
  if (!last.isQuoted && last.text.charAt(0) == u'@' && last.text.length() > 1) {
    const auto text = readTextFile(last.utf8().substr(1));
    if (!text) return Reply::error(text.error().message());
    values.back().setNarrow(*text);
  }
  return invoke(context, arguments[0], MemberUse::Put, values);
}

// A member that can only be read may be called, too.
Reply runCall(CommandContext& context, const Arguments& arguments) {
  const MemberRow* member = findMember(arguments[0].text);
  const bool isReadOnly = member && !member->call && !member->put;
  return invoke(context, arguments[0], isReadOnly ? MemberUse::Get : MemberUse::Call,
                valuesOf(std::span(arguments).subspan(1)));
}

// Events and data.

Reply runOn(CommandContext& context, std::string_view rest) {
  const std::string_view name = takeWord(rest);
  const auto event = EventHandlers::eventOfName(utf16FromUtf8(name));
  if (!event) return Reply::error("there is no event " + inQuotes(std::string(name)));
  std::string_view command = rest;
  if (takeWord(command) == "do") {
    if (command.empty()) return Reply::error("there is no command to run");
    context.handlers.runCommand(*event, std::string(command));
    return {};
  }
  const auto tokens = splitTokens(rest);
  if (!tokens || tokens->size() != 1) return Reply::error("usage: on EVENT VALUE|none|do COMMAND");
  const Token& token = tokens->front();
  if (!token.isQuoted && token.text == u"none") {
    context.handlers.remove(*event);
  } else {
    context.handlers.answer(*event, token.value());
  }
  return {};
}

Reply runData(CommandContext& context, const Arguments& arguments) {
  DataSetControl* data = context.host.findDataSet(arguments[0].text);
  if (!data) return Reply::error("there is no data set " + inQuotes(arguments[0].utf8()));
  const DataOperation* operation = findDataOperation(arguments[1].text);
  if (!operation) return Reply::error("there is no operation " + inQuotes(arguments[1].utf8()));
  const std::vector<XValue> values = valuesOf(std::span(arguments).subspan(2));
  if (values.size() != static_cast<std::size_t>(operation->arguments)) {
    return Reply::error(
        countFault(std::string(operation->name), operation->arguments, operation->arguments, values.size()));
  }
  XValue result;
  if (!succeeded(operation->invoke(*data, values, result))) {
    return Reply::error(std::string(operation->name) + " does not take a value of this kind");
  }
  return operation->hasResult ? Reply::of(result) : Reply{};
}

// The host.

Reply runWindow(CommandContext& context, const Arguments& arguments) {
  const std::string verb = arguments[0].utf8();
  if (verb == "destroy") {
    if (!context.host.window()) return noWindow();
    context.host.destroyWindow();
    return {};
  }
  if (verb != "create") return Reply::error("a window can be created or destroyed");
  if (context.host.window()) return Reply::error("there is a window already");
  context.host.createWindow();
  HeadlessWindow* window = context.host.window();
  return window ? Reply::ofLines(window->takeCalls()) : noWindow();
}

Reply runSize(CommandContext& context, const Arguments& arguments) {
  Pair size;
  if (auto fault = readPair(arguments, size)) return *std::move(fault);
  const auto fits = [](std::int32_t side) { return side >= 0 && side <= HeadlessWindow::maxSide; };
  if (!fits(size.first) || !fits(size.second)) {
    return Reply::error(fmt::format("a side has 0 to {} pixels", HeadlessWindow::maxSide));
  }
  context.host.resize({size.first, size.second});
  return {};
}

Reply runPaint(CommandContext& context, const Arguments& arguments) {
  HeadlessWindow* window = context.host.window();
  if (!window) return noWindow();
  window->paint();
  if (arguments.empty()) return {};
  const std::string path = arguments[0].utf8();
  if (writePng(path, window->canvas().snapshot())) return {};
  return Reply::error(path + " cannot be written");
}

Reply runPixel(CommandContext& context, const Arguments& arguments) {
  const HeadlessWindow* window = context.host.window();
  if (!window) return noWindow();
  Pair place;
  if (auto fault = readPair(arguments, place)) return *std::move(fault);
  const Size size = window->clientSize();
  if (!Rect{0, 0, size.width, size.height}.holds(place.first, place.second)) {
    return Reply::error("the place is outside of the client area");
  }
  const std::uint32_t pixel = window->canvas().pixel(place.first, place.second);
  return Reply::ofText(fmt::format("#{:06x}", pixel & 0xFFFFFF));
}

Reply runClock(CommandContext& context, const Arguments& arguments) {
  XValue value = arguments[0].value();
  if (value.type() != VT_DATE) {
    const auto date = parseIsoDate(arguments[0].text);
    if (!date) return Reply::error(inQuotes(arguments[0].utf8()) + " is no date");
    value.setDate(*date);
  }
  context.host.desktop().clock.set(value.asDouble());
  return {};
}

Reply runQuit(CommandContext& context, const Arguments&) {
  context.quit = true;
  return {};
}

// The state of the grid.

Reply runShow(CommandContext& context, const Arguments&) {
  return Reply::ofLines(describeState(context.host.control().parts()));
}

Reply runColumns(CommandContext& context, const Arguments&) {
  return Reply::ofLines(describeColumns(context.host.control().parts().config.columns));
}

Reply runBars(CommandContext& context, const Arguments&) {
  const HeadlessWindow* window = context.host.window();
  return window ? Reply::ofLines(describeBars(*window)) : noWindow();
}

Reply runHit(CommandContext& context, const Arguments& arguments) {
  Pair place;
  if (auto fault = readPair(arguments, place)) return *std::move(fault);
  const GridParts& parts = context.host.control().parts();
  ColumnList columns = parts.config.columns;
  const Hit hit = hitTest(parts.frame(), columns, parts.page, parts.link, place.first, place.second);
  const ColumnRecord* column = hit.column ? &hit.column->value() : nullptr;
  return Reply::ofText(fmt::format("{} {} {}", static_cast<int>(hit.region), hit.row, columnName(column)));
}

Reply runCell(CommandContext& context, const Arguments& arguments) {
  const GridParts& parts = context.host.control().parts();
  const auto row = arguments[0].number();
  if (!row) return noNumber(arguments[0]);
  const auto& page = parts.page.VisibleRows;
  const auto found = std::find_if(page.begin(), page.end(), [&row](Row each) { return each.number == *row; });
  if (found == page.end()) return Reply::error(fmt::format("row {} is not on the page", *row));
  const ColumnRecord* column = findColumn(parts.config.columns, arguments[1].text);
  if (!column) return Reply::error("there is no column " + inQuotes(arguments[1].utf8()));
  const auto index = static_cast<std::int32_t>(found - page.begin());
  return Reply::ofText(rectText(cellRect(parts.frame(), *column, index)));
}

// Texts and files.

Reply runFormat(CommandContext&, const Arguments& arguments) {
  return Reply::ofText(applyDisplayFormat(arguments[0].text, arguments[1].text));
}

// A text that is not in quotes goes to the end of the line.
Reply runNormalize(CommandContext&, std::string_view rest) {
  if (!rest.starts_with('"')) return Reply::ofText(normalizeInfoText(XString::fromNarrow(rest)));
  const auto tokens = splitTokens(rest);
  if (!tokens || tokens->size() != 1) return Reply::error("usage: normalize TEXT");
  return Reply::ofText(normalizeInfoText(tokens->front().text));
}

// The expression goes to the end of the line; what is wrong with it comes a line each.
Reply runEval(CommandContext& context, std::string_view rest) {
  const Token row{XString::fromNarrow(takeWord(rest)), false};
  if (!row.number()) return noNumber(row);
  Evaluation evaluation =
      evaluateExpression(context.host.control().parts().link, nullptr, &context.host.desktop().clock,
                         *row.number(), utf16FromUtf8(rest));
  if (evaluation.messages.empty()) return Reply::of(evaluation.value);
  if (evaluation.compiled) return Reply::error(evaluation.messages.front());
  Reply reply = Reply::error("the expression does not compile");
  reply.lines = std::move(evaluation.messages);
  return reply;
}

Reply streamFault(const std::string& path, HResult status) {
  return Reply::error(
      fmt::format("{}: the stream failed with 0x{:08X}", path, static_cast<std::uint32_t>(status)));
}

Reply runSave(CommandContext& context, const Arguments& arguments) {
  if (arguments[0].text != u"stream") return Reply::error("usage: save stream FILE");
  const std::string path = arguments[1].utf8();
  MemoryStream stream;
  const HResult status = saveToStream(context.host.control().properties(), stream);
  if (!succeeded(status)) return streamFault(path, status);
  if (const auto error = writeFileBeside(path, stream.bytes()))
    return Reply::error(path + ": " + error->reason);
  return {};
}

Reply runLoad(CommandContext& context, const Arguments& arguments) {
  if (arguments[0].text != u"stream") return Reply::error("usage: load stream FILE");
  const std::string path = arguments[1].utf8();
  FileResult bytes = readFile(path);
  if (const auto* error = std::get_if<FileError>(&bytes)) return Reply::error(path + ": " + error->reason);
  MemoryStream stream(std::get<FileBytes>(std::move(bytes)));
  const HResult status = loadFromStream(context.host.control().properties(), stream);
  return succeeded(status) ? Reply{} : streamFault(path, status);
}

constexpr CommandRow commands[] = {
    {"get", "MEMBER [ARG...]", 1, anyNumber, runGet, nullptr},
    {"put", "MEMBER [ARG...] VALUE|@FILE", 2, anyNumber, runPut, nullptr},
    {"call", "MEMBER [ARG...]", 1, anyNumber, runCall, nullptr},
    {"on", "EVENT VALUE|none|do COMMAND", 0, 0, nullptr, runOn},
    {"data", "ID OP [ARG...]", 2, anyNumber, runData, nullptr},
    {"window", "create|destroy", 1, 1, runWindow, nullptr},
    {"size", "W H", 2, 2, runSize, nullptr},
    {"paint", "[FILE]", 0, 1, runPaint, nullptr},
    {"pixel", "X Y", 2, 2, runPixel, nullptr},
    {"show", "", 0, 0, runShow, nullptr},
    {"columns", "", 0, 0, runColumns, nullptr},
    {"hit", "X Y", 2, 2, runHit, nullptr},
    {"cell", "ROW COLUMN", 2, 2, runCell, nullptr},
    {"bars", "", 0, 0, runBars, nullptr},
    {"format", "FORMAT TEXT", 2, 2, runFormat, nullptr},
    {"eval", "ROW EXPRESSION", 0, 0, nullptr, runEval},
    {"normalize", "TEXT", 0, 0, nullptr, runNormalize},
    {"save", "stream FILE", 2, 2, runSave, nullptr},
    {"load", "stream FILE", 2, 2, runLoad, nullptr},
    {"clock", "DATE", 1, 1, runClock, nullptr},
    {"quit", "", 0, 0, runQuit, nullptr},
};

Reply usage(const CommandRow& row) {
  return Reply::error(fmt::format("usage: {}{}{}", row.name, row.usage.empty() ? "" : " ", row.usage));
}

}  // namespace

const CommandRow* findCommand(std::string_view name) {
  for (const std::span<const CommandRow> rows : {std::span<const CommandRow>(commands), inputCommands()}) {
    for (const CommandRow& row : rows) {
      if (row.name == name) return &row;
    }
  }
  return nullptr;
}

Reply runCommandLine(CommandContext& context, std::string_view line) {
  if (!isUtf8(line)) return Reply::error("the command is no UTF-8");
  const std::string_view name = takeWord(line);
  const CommandRow* row = findCommand(name);
  if (!row) return Reply::error("there is no command " + inQuotes(std::string(name)));
  if (row->runLine) return line.empty() ? usage(*row) : row->runLine(context, line);
  const auto tokens = splitTokens(line);
  if (!tokens) return Reply::error("a text in quotes does not end, or has an escape that is none");
  if (tokens->size() < row->least || tokens->size() > row->most) return usage(*row);
  return row->run(context, *tokens);
}

}  // namespace tessera
