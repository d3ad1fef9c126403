#include <cmath>
#include <gtest/gtest.h>

#include "backends/headless/edit_line.h"
#include "backends/headless/headless_input.h"
#include "backends/headless/headless_window.h"
#include "tools/tessera/key_names.h"

namespace tessera {
namespace {

using Lines = std::vector<std::string>;

// Tells what happens to it, and may answer with another move.
class Holder : public FocusHolder {
 public:
  Holder(std::string name, Lines& told) : name_(std::move(name)), told_(told) {}
  void focusLost(const FocusHolder* next) override {
    told_.push_back(name_ + " lost to " + (next ? static_cast<const Holder*>(next)->name_ : "others"));
    if (whenLost) whenLost();
  }
  void focusGained() override { told_.push_back(name_ + " gained"); }

  std::function<void()> whenLost;

 private:
  std::string name_;
  Lines& told_;
};

TEST(KeyboardFocus, TellsTheOldHolderFirst) {
  Lines told;
  KeyboardFocus focus;
  Holder a("a", told);
  Holder b("b", told);
  focus.moveTo(&a);
  focus.moveTo(&a);
  a.whenLost = [&] { EXPECT_EQ(focus.holder(), &b); };
  focus.moveTo(&b);
  focus.moveTo(nullptr);
  EXPECT_EQ(told, (Lines{"a gained", "a lost to b", "b gained", "b lost to others"}));
}

TEST(KeyboardFocus, TheLastMoveWins) {
  Lines told;
  KeyboardFocus focus;
  Holder a("a", told);
  Holder b("b", told);
  focus.moveTo(&a);
  a.whenLost = [&] {
    a.whenLost = nullptr;
    focus.moveTo(&a);
  };
  focus.moveTo(&b);
  EXPECT_EQ(focus.holder(), &a);
  EXPECT_EQ(told, (Lines{"a gained", "a lost to b", "b lost to a", "a gained"}));
  focus.forget(&b);
  EXPECT_EQ(focus.holder(), &a);
  // The one that was to get the focus goes away meanwhile.
  told.clear();
  a.whenLost = [&] { focus.forget(&b); };
  focus.moveTo(&b);
  EXPECT_EQ(focus.holder(), nullptr);
  EXPECT_EQ(told, Lines{"a lost to b"});
}

TEST(HeadlessTimers, FireInTheOrderOfTheirDueTimes) {
  HeadlessDesktop desktop;
  HeadlessTimers& timers = desktop.timers;
  const double start = desktop.clock.now();
  std::vector<std::string> fired;
  const auto fire = [&](std::int32_t id) {
    fired.push_back(std::to_string(id) + "@" +
                    std::to_string(std::llround((desktop.clock.now() - start) * 86400000)));
    if (id == 4) timers.stop(4);
    if (id == 1 && fired.size() > 5) timers.start(1, 1000);
  };
  timers.start(1, 100);
  timers.start(4, 30);
  timers.start(2, 50);
  timers.start(3, -5);
  timers.stop(3);
  timers.pass(99, fire);
  EXPECT_EQ(fired, (std::vector<std::string>{"4@30", "2@50"}));
  timers.pass(201, fire);
  EXPECT_EQ(fired, (std::vector<std::string>{"4@30", "2@50", "1@100", "2@100", "2@150", "1@200", "2@200",
                                             "2@250", "2@300"}));
  timers.start(2, 0);
  fired.clear();
  timers.pass(25, fire);
  EXPECT_EQ(fired, (std::vector<std::string>{"2@310", "2@320"}));
}

TEST(EditLine, EditsLikeAPerson) {
  struct Row {
    std::string_view
        keys;  // < > steps, [ ] steps with Shift, b Backspace, d Delete, ^ $ the ends, others typed
    std::u16string_view text;
    std::int32_t start;
    std::int32_t end;
  };
  const Row rows[] = {
      {"", u"one two", 0, 0},       {"<b", u"one two", 0, 0},     {"$>d", u"one two", 7, 7},
      {"$bbb", u"one ", 4, 4},      {"]]]d", u" two", 0, 0},      {"]]]X", u"X two", 1, 1},
      {"$[[<Y", u"one tYwo", 6, 6}, {"$[[>Y", u"one twoY", 8, 8}, {"]]b", u"e two", 0, 0},
      {">>[[[[", u"one two", 0, 2},
  };
  for (const Row& row : rows) {
    EditLine line;
    line.setText(u"one two");
    for (const char key : row.keys) {
      switch (key) {
        case '<':
          line.stepLeft(false);
          break;
        case '>':
          line.stepRight(false);
          break;
        case '[':
          line.stepLeft(true);
          break;
        case ']':
          line.stepRight(true);
          break;
        case 'b':
          line.removeBefore();
          break;
        case 'd':
          line.removeAfter();
          break;
        case '$':
          line.moveTo(line.length(), false);
          break;
        default:
          line.insert(static_cast<char16_t>(key));
      }
    }
    EXPECT_EQ(line.text(), row.text) << row.keys;
    EXPECT_EQ(line.start(), row.start) << row.keys;
    EXPECT_EQ(line.end(), row.end) << row.keys;
  }
}

TEST(EditLine, KeepsSurrogatesTogether) {
  EditLine line;
  line.setText(u"a\U0001F600b");
  line.moveTo(1, false);
  line.stepRight(false);
  EXPECT_EQ(line.caret(), 3);
  line.stepLeft(true);
  EXPECT_EQ(line.start(), 1);
  line.moveTo(3, false);
  line.removeBefore();
  EXPECT_EQ(line.text(), u"ab");
}

TEST(EditLine, FindsWords) {
  struct Row {
    std::int32_t place;
    std::int32_t start;
    std::int32_t end;
  };
  const Row rows[] = {{-5, 0, 3}, {1, 0, 3}, {3, 3, 5}, {5, 5, 8}, {99, 5, 8}};
  for (const Row& row : rows) {
    EditLine line;
    line.setText(u"one  two");
    line.selectWord(row.place);
    EXPECT_EQ(line.start(), row.start) << row.place;
    EXPECT_EQ(line.end(), row.end) << row.place;
  }
  EditLine empty;
  empty.selectWord(0);
  EXPECT_EQ(empty.end(), 0);
}

TEST(KeyNames, GiveCodes) {
  struct Row {
    std::u16string_view name;
    std::optional<std::int32_t> code;
  };
  const Row rows[] = {{u"Left", 37}, {u"pagedown", 34}, {u"Delete", 46}, {u"A", 65},    {u"z", 90},
                      {u"0", 48},    {u"9", 57},        {u"10", 10},     {u"255", 255}, {u"256", {}},
                      {u"1000", {}}, {u"F1", 112},      {u"f12", 123},   {u"F0", {}},   {u"F13", {}},
                      {u"F", 70},    {u"", {}},         {u"-", {}},      {u"1x", {}},   {u"Fx", {}}};
  for (const Row& row : rows) EXPECT_EQ(keyOfName(row.name), row.code) << XString(row.name).toUtf8();
}

TEST(HeadlessInput, SendsWhatAPlatformWouldSend) {
  HeadlessWindow window({100, 100}, [](Canvas&) {});
  Lines sent;
  window.setMessageTarget([&](std::uint32_t message, std::uint64_t w, std::int64_t l) {
    sent.push_back(std::to_string(message) + " " + std::to_string(w) + " " + std::to_string(l));
    return true;
  });
  std::int32_t filtered = 0;
  HeadlessInput input(window.desktop(), [&](std::int32_t& key) {
    ++filtered;
    if (key == 9) key = 255;
    return key != 13;
  });
  const auto take = [&sent] { return std::exchange(sent, {}); };
  input.mouse(MouseAction::Move, {3, 2}, {});
  EXPECT_EQ(take(), (Lines{"32 0 33554433", "512 0 131075"}));
  window.setCapture(true);
  input.mouse(MouseAction::LeftDown, {-1, -2}, {true, true});
  EXPECT_EQ(take(), Lines{"513 13 4294901759"});
  EXPECT_EQ(window.pointer(), (Point{-1, -2}));
  window.setCapture(false);
  input.wheel({1, 1}, -120);
  EXPECT_EQ(take(), Lines{"522 4287102976 65537"});
  // A key that nobody has the focus for is the grid's, through the filter; a character goes nowhere.
  EXPECT_FALSE(window.hasFocus());
  input.key(65, {});
  input.character(u'a');
  EXPECT_EQ(take(), (Lines{"256 65 0", "257 65 0"}));
  EXPECT_EQ(filtered, 1);
  EXPECT_FALSE(window.hasFocus());
  input.focusIn();
  EXPECT_EQ(take(), Lines{"7 0 0"});
  input.key(9, {});
  input.key(13, {});
  input.character(u'a');
  EXPECT_EQ(take(), (Lines{"256 255 0", "257 9 0", "258 97 0"}));
  window.startTimer(4, 20);
  input.letPass(40);
  EXPECT_EQ(take(), (Lines{"275 4 0", "275 4 0"}));
  window.setEnabled(false);
  input.focusIn();
  input.mouse(MouseAction::LeftDown, {1, 1}, {});
  EXPECT_EQ(take(), Lines{"8 0 0"});
  window.setEnabled(true);
  input.focusIn();
  window.close();
  input.letPass(40);
  input.key(65, {});
  input.mouse(MouseAction::Move, {1, 1}, {});
  EXPECT_EQ(take(), Lines{"7 0 0"});
}

// The flag of a key that nobody has the focus for outlasts a key inside it, and none is set for a key that
// somebody has the focus for.
TEST(HeadlessInput, KeysInsideKeys) {
  HeadlessWindow window({100, 100}, [](Canvas&) {});
  HeadlessInput input(window.desktop(), {});
  std::vector<bool> grids;
  const auto note = [&] { grids.push_back(window.hasFocus()); };
  std::function<void()> inside;
  window.setMessageTarget([&](std::uint32_t message, std::uint64_t, std::int64_t) {
    if (message != 256) return true;
    note();
    if (const auto run = std::exchange(inside, nullptr)) run();
    note();
    return true;
  });
  inside = [&] { input.key(66, {}); };
  input.key(65, {});
  EXPECT_EQ(grids, (std::vector<bool>{true, true, true, true}));
  EXPECT_FALSE(window.hasFocus());
  input.focusIn();
  grids.clear();
  inside = [&] { input.focusOut(); };
  input.key(65, {});
  EXPECT_EQ(grids, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace tessera
