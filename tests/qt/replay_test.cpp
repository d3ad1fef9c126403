// Plays the console's transcripts to the widget: the same hands must give the same events, the same texts and
// the same places as on the headless desktop.

#include <QApplication>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "backends/qt/qt_text.h"
#include "control/dispatch_table.h"
#include "qt/qt_desk.h"
#include "shared/utf.h"
#include "tests/support/source_path.h"
#include "tools/tessera/command_line.h"
#include "tools/tessera/data_operations.h"
#include "tools/tessera/event_handlers.h"
#include "tools/tessera/key_names.h"
#include "tools/tessera/value_text.h"

namespace tessera::test {
namespace {

using Lines = std::vector<std::string>;
using Tokens = std::vector<Token>;

// What a command of the transcript answers is compared where `says` is true; where it is not, only its
// events.
struct Answer {
  Lines lines;
  bool says = false;
  bool skipped = false;
};

constexpr std::pair<std::int32_t, int> keyRows[] = {
    {8, Qt::Key_Backspace}, {9, Qt::Key_Tab},     {13, Qt::Key_Return},   {27, Qt::Key_Escape},
    {32, Qt::Key_Space},    {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {35, Qt::Key_End},
    {36, Qt::Key_Home},     {37, Qt::Key_Left},   {38, Qt::Key_Up},       {39, Qt::Key_Right},
    {40, Qt::Key_Down},     {46, Qt::Key_Delete}, {91, Qt::Key_Meta},
};

int qtKey(std::int32_t code) {
  for (const auto& [number, key] : keyRows)
    if (number == code) return key;
  constexpr std::int32_t firstFunctionKey = 112;
  return code >= firstFunctionKey ? Qt::Key_F1 + code - firstFunctionKey : code;  // letters and digits
}

struct MouseWord {
  std::string_view word;
  QEvent::Type type;
  Qt::MouseButton button;
};
constexpr MouseWord mouseWords[] = {
    {"down", QEvent::MouseButtonPress, Qt::LeftButton},
    {"up", QEvent::MouseButtonRelease, Qt::LeftButton},
    {"double", QEvent::MouseButtonDblClick, Qt::LeftButton},
    {"move", QEvent::MouseMove, Qt::LeftButton},
    {"rdown", QEvent::MouseButtonPress, Qt::RightButton},
    {"rup", QEvent::MouseButtonRelease, Qt::RightButton},
    {"rdouble", QEvent::MouseButtonDblClick, Qt::RightButton},
};

constexpr std::pair<Qt::CursorShape, const char*> cursorWords[] = {{Qt::ArrowCursor, "arrow"},
                                                                   {Qt::SizeHorCursor, "size"},
                                                                   {Qt::PointingHandCursor, "hand"},
                                                                   {Qt::IBeamCursor, "beam"}};

Qt::KeyboardModifiers heldIn(const Tokens& tokens, std::size_t first) {
  Qt::KeyboardModifiers held;
  for (std::size_t i = first; i < tokens.size(); ++i) {
    held |= tokens[i].utf8() == "ctrl" ? Qt::ControlModifier : Qt::ShiftModifier;
  }
  return held;
}

QPoint pointIn(const Tokens& tokens) { return {tokens[1].number().value(), tokens[2].number().value()}; }

std::string readFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

// "@FILE" is what stands in the file beside the form.
XValue valueFrom(const Token& token) {
  const std::string text = token.utf8();
  if (token.isQuoted || !text.starts_with('@')) return token.value();
  XValue value;
  value.setNarrow(readFile(sourcePath("tests/console/forms/" + text.substr(1))));
  return value;
}

Answer valueOf(const XValue& value) { return {{"= " + valueText(value)}, true}; }

class Replay {
 public:
  // A Tab that leads out of the grid has nowhere to go, as on the headless desktop.
  explicit Replay(const std::string& form) : desk_(form) {
    desk_.before().setFocusPolicy(Qt::ClickFocus);
    desk_.after().setFocusPolicy(Qt::ClickFocus);
  }

  // The events that it sets off, and its answer.
  Answer run(std::string_view line) {
    Answer answer = obey(line);
    Lines told;
    for (const std::string& event : desk_.takeEvents()) told.push_back("! " + event);
    told.insert(told.end(), answer.lines.begin(), answer.lines.end());
    return {told, answer.says, answer.skipped};
  }

 private:
  Answer obey(std::string_view line) {
    const std::string word(takeWord(line));
    if (word == "on") return on(line);
    const Tokens tokens = splitTokens(line).value();
    if (word == "focus") return focus(tokens);
    if (word == "mouse") return mouse(tokens);
    if (word == "key") return key(tokens);
    if (word == "char" || word == "type") return type(word, tokens);
    if (word == "put") return member(MemberUse::Put, tokens);
    if (word == "call") return member(MemberUse::Call, tokens);
    if (word == "get") return member(MemberUse::Get, tokens);
    if (word == "size") return size(tokens);
    if (word == "message") return message(tokens);
    if (word == "data") return data(tokens);
    if (word == "edit") return edit();
    if (word == "list") return list();
    if (word == "cursor") return cursor();
    return {};
  }

  Answer focus(const Tokens& tokens) {
    if (tokens.front().utf8() == "in") {
      desk_.grid().setFocus();
    } else {
      desk_.before().setFocus();
    }
    return {};
  }

  Answer mouse(const Tokens& tokens) {
    const std::string word = tokens.front().utf8();
    if (word == "wheel") desk_.wheel(pointIn(tokens), tokens[3].number().value());
    for (const MouseWord& row : mouseWords) {
      if (row.word == word) desk_.mouse(row.type, row.button, pointIn(tokens), heldIn(tokens, 3));
    }
    return {};
  }

  // The headless desktop has no other window that could take a key, and no clipboard to paste from.
  Answer key(const Tokens& tokens) {
    const bool pastes = tokens.size() == 2 && tokens[0].utf8() == "V" && desk_.editIsOpen();
    if (desk_.gridIsAway() || pastes) return {{}, false, true};
    desk_.key(qtKey(keyOfName(tokens.front().text).value()), heldIn(tokens, 1));
    return {};
  }

  // A backspace that is only a character is nothing that a keyboard sends: its key is told of too.
  Answer type(const std::string& word, const Tokens& tokens) {
    if (word == "type" && desk_.gridIsAway()) desk_.grid().setFocus();
    if (desk_.gridIsAway()) return {{}, false, true};
    const QString text = toQString(tokens.front().text);
    for (const QChar character : text) {
      if (character != u'\b') {
        desk_.type(character);
      } else {
        desk_.key(Qt::Key_Backspace);
        desk_.dropEvent("OnKeyDown(8, 0)");
      }
    }
    return {};
  }

  Answer size(const Tokens& tokens) {
    desk_.fitClient({tokens[0].number().value(), tokens[1].number().value()});
    return {};
  }

  // Of the bars.
  Answer message(const Tokens& tokens) {
    constexpr std::int32_t horizontal = 276, vertical = 277;
    const std::int32_t number = tokens[0].number().value(), words = tokens[1].number().value();
    if (number != horizontal && number != vertical) return {};
    QScrollBar& bar = desk_.bar(number == horizontal ? Qt::Horizontal : Qt::Vertical);
    constexpr QAbstractSlider::SliderAction steps[] = {
        QAbstractSlider::SliderSingleStepSub, QAbstractSlider::SliderSingleStepAdd,
        QAbstractSlider::SliderPageStepSub, QAbstractSlider::SliderPageStepAdd};
    const std::int32_t code = words & 0xFFFF;
    if (code < static_cast<std::int32_t>(std::size(steps))) {
      bar.triggerAction(steps[code]);
    } else {
      bar.setSliderDown(true);
      bar.setSliderPosition(words >> 16);
      bar.setSliderDown(false);
    }
    return {};
  }

  Answer member(MemberUse use, const Tokens& tokens) {
    std::vector<XValue> values;
    for (std::size_t i = 1; i < tokens.size(); ++i) values.push_back(valueFrom(tokens[i]));
    XValue result;
    EXPECT_EQ(invokeMember(desk_.grid().grid(), tokens.front().text, use, values, result), S_OK);
    return use == MemberUse::Get ? valueOf(result) : Answer{};
  }

  Answer on(std::string_view line) {
    const Token name{XString::fromNarrow(takeWord(line))};
    const EventId event = EventHandlers::eventOfName(name.text).value();
    std::string_view rest = line;
    if (takeWord(rest) == "do") {
      desk_.runInside(event, [this, command = std::string(rest)] { obey(command); });
    } else {
      const Token answer = splitTokens(line).value().front();
      desk_.answer(event, answer.utf8() == "none" ? QVariant() : toVariant(answer.value()));
    }
    return {};
  }

  Answer data(const Tokens& tokens) {
    const DataOperation* const operation = findDataOperation(tokens[1].text);
    std::vector<XValue> values;
    for (std::size_t i = 2; i < tokens.size(); ++i) values.push_back(tokens[i].value());
    XValue result;
    operation->invoke(*desk_.dataSet(tokens.front().utf8()), values, result);
    return operation->hasResult ? valueOf(result) : Answer{};
  }

  Answer edit() {
    if (!desk_.editIsOpen()) return {{"= \"closed\""}, true};
    const QLineEdit& box = desk_.editBox();
    const QRect at = box.geometry();
    const int start = box.hasSelectedText() ? box.selectionStart() : box.cursorPosition();
    const int end = box.hasSelectedText() ? box.selectionEnd() : start;
    return {{QString("open %1,%2,%3,%4 text %5 selection %6-%7")
                 .arg(at.left())
                 .arg(at.top())
                 .arg(at.right() + 1)
                 .arg(at.bottom() + 1)
                 .arg(QString::fromStdString(quotedText(toXString(box.text()))))
                 .arg(start)
                 .arg(end)
                 .toStdString()},
            true};
  }

  // The first line is the list's place: its left side and width, for its height is the font's affair.
  Answer list() {
    QListWidget* const list = desk_.list();
    if (!list) return {{"= \"closed\""}, true};
    Lines lines;
    for (int row = 0; row < list->count(); ++row) {
      lines.push_back((row == list->currentRow() ? "* " : "  ") + list->item(row)->text().toStdString());
    }
    return {lines, true};
  }

  Answer cursor() {
    for (const auto& [shape, word] : cursorWords)
      if (shape == desk_.view().cursor().shape()) return {{"= \"" + std::string(word) + "\""}, true};
    return {{"another cursor"}, true};
  }

  QtDesk desk_;
};

struct Command {
  std::string text;
  Lines events;  // with "! "
  Lines reply;   // "ok" left out
};

struct Transcript {
  std::string form;
  std::vector<Command> commands;
};

// "OnA(1); OnB() (x 3)": each event once for every time that it fired.
void addEvents(const std::string& text, Lines& events) {
  static const std::regex event(R"((On\w+\(.*?\))(?: \(x (\d+)\))?(?:; |$))");
  for (std::sregex_iterator found(text.begin(), text.end(), event), end; found != end; ++found) {
    const int times = (*found)[2].matched ? std::stoi((*found)[2]) : 1;
    events.insert(events.end(), static_cast<std::size_t>(times), "! " + (*found)[1].str());
  }
}

Transcript readTranscript(const std::string& name) {
  Transcript transcript;
  std::ifstream file(sourcePath("tests/console/" + name + ".transcript"));
  for (std::string line; std::getline(file, line);) {
    // Inside an event a command tells what it set off, further to the right.
    const bool isInside = line.starts_with("  ") && line.find_first_of("!>o") == line.find_first_not_of(' ');
    if (isInside) line.erase(0, line.find_first_not_of(' '));
    if (line.starts_with("# form ")) {
      transcript.form = line.substr(7);
    } else if (line.starts_with("> ")) {
      const std::size_t value = line.find("  = ");
      transcript.commands.push_back({line.substr(2, value - 2), {}, {}});
      if (value != line.npos) transcript.commands.back().reply.push_back(line.substr(value + 2));
    } else if (line.starts_with("! ")) {
      addEvents(line.substr(2), transcript.commands.back().events);
    } else if (!line.starts_with('#') && line != "ok" && !transcript.commands.empty()) {
      // Where a list stands is told by its window.
      const bool isListPlace = transcript.commands.back().text == "list" && line.starts_with("open ");
      if (!isListPlace) transcript.commands.back().reply.push_back(line);
    }
  }
  return transcript;
}

class ReplayTest : public testing::TestWithParam<const char*> {};

TEST_P(ReplayTest, IsTheHeadlessDesktops) {
  const Transcript transcript = readTranscript(GetParam());
  ASSERT_FALSE(transcript.commands.empty());
  Replay replay(transcript.form);
  for (const Command& command : transcript.commands) {
    const Answer answer = replay.run(command.text);
    if (answer.skipped) continue;
    Lines wanted = command.events;
    if (answer.says) wanted.insert(wanted.end(), command.reply.begin(), command.reply.end());
    ASSERT_EQ(answer.lines, wanted) << "> " << command.text;
  }
}

INSTANTIATE_TEST_SUITE_P(Transcripts, ReplayTest,
                         testing::Values("edit_typing", "edit_exit", "edit_tab", "edit_numbers", "edit_popup",
                                         "combo", "lookup", "checks", "sort_press", "column_resize",
                                         "scroll_input", "row_mode", "focus_moves"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
}  // namespace tessera::test
