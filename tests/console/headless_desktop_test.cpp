#include <array>
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

TEST(KeyboardFocus, TheLastMoveWins) {
  Lines told;
  KeyboardFocus focus;
  Holder a("a", told), b("b", told);
  focus.moveTo(&a);
  a.whenLost = [&] {
    a.whenLost = nullptr;
    focus.moveTo(&a);
  };
  focus.moveTo(&b);
  EXPECT_EQ(told, (Lines{"a gained", "a lost to b", "b lost to a", "a gained"}));
  // The one that was to get the focus goes away meanwhile.
  a.whenLost = [&] { focus.forget(&b); };
  focus.moveTo(&b);
  EXPECT_EQ(focus.holder(), nullptr);
  EXPECT_EQ(told.back(), "a lost to b");
}

TEST(HeadlessTimers, FireInTheOrderOfTheirDueTimes) {
  HeadlessDesktop desktop;
  HeadlessTimers& timers = desktop.timers;
  const double start = desktop.clock.now();
  std::string fired;
  const auto fire = [&](std::int32_t id) {
    fired += std::to_string(id) + "@" +
             std::to_string(std::llround((desktop.clock.now() - start) * 86400000)) + " ";
    if (id == 4) timers.stop(4);
    if (id == 1 && fired.size() > 30) timers.start(1, 1000);
  };
  const std::pair<std::int32_t, std::int32_t> started[] = {{1, 100}, {4, 30}, {2, 50}, {3, -5}};
  for (const auto& [id, period] : started) timers.start(id, period);
  timers.stop(3);
  timers.pass(99, fire);
  EXPECT_EQ(fired, "4@30 2@50 ");
  timers.pass(201, fire);
  EXPECT_EQ(fired, "4@30 2@50 1@100 2@100 2@150 1@200 2@200 2@250 2@300 ");
  timers.start(2, 0);
  timers.pass(25, fire);
  EXPECT_TRUE(fired.ends_with(" 2@300 2@310 2@320 ")) << fired;
}

// Characters that the box is left with one way or another stay whole, and words are found between blanks.
TEST(EditLine, KeepsSurrogatesTogetherAndFindsWords) {
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
  line.setText(u"one  two");
  for (const auto& [place, start, end] : {std::array{-5, 0, 3}, {3, 3, 5}, {5, 5, 8}, {99, 5, 8}}) {
    line.selectWord(place);
    EXPECT_EQ(line.start(), start) << place;
    EXPECT_EQ(line.end(), end) << place;
  }
}

TEST(KeyNames, GiveCodes) {
  const std::pair<std::u16string_view, std::int32_t> rows[] = {
      {u"pagedown", 34}, {u"Delete", 46}, {u"z", 90},   {u"9", 57},   {u"10", 10},
      {u"255", 255},     {u"F", 70},      {u"F1", 112}, {u"f12", 123}};
  for (const auto& [name, code] : rows) EXPECT_EQ(keyOfName(name), code) << XString(name).toUtf8();
  for (const char16_t* none : {u"256", u"1000", u"F0", u"F13", u"", u"-", u"1x", u"Fx"})
    EXPECT_FALSE(keyOfName(none));
}

TEST(HeadlessInput, SendsWhatAPlatformWouldSend) {
  HeadlessWindow window({100, 100}, [](Canvas&) {});
  std::string sent;
  window.setMessageTarget([&](std::uint32_t message, std::uint64_t w, std::int64_t l) {
    sent += std::to_string(message) + " " + std::to_string(w) + " " + std::to_string(l) + "; ";
    return true;
  });
  HeadlessInput input(window.desktop(), [](std::int32_t& key) { return (key = key == 9 ? 255 : key) != 13; });
  const auto take = [&sent] { return std::exchange(sent, {}); };
  window.setCapture(true);
  input.mouse(MouseAction::LeftDown, {-1, -2}, {true, true});
  EXPECT_EQ(take(), "513 13 4294901759; ");
  window.setCapture(false);
  input.wheel({1, 1}, -120);
  EXPECT_EQ(take(), "522 4287102976 65537; ");
  // A key that nobody has the focus for is the grid's, through the filter; a character goes nowhere.
  input.key(65, {});
  input.character(u'a');
  EXPECT_EQ(take(), "256 65 0; 257 65 0; ");
  EXPECT_FALSE(window.hasFocus());
  input.focusIn();
  input.key(9, {});
  input.key(13, {});
  input.character(u'a');
  EXPECT_EQ(take(), "7 0 0; 256 255 0; 257 9 0; 258 97 0; ");
  window.startTimer(4, 20);
  input.letPass(40);
  EXPECT_EQ(take(), "275 4 0; 275 4 0; ");
  // Neither a window that takes no input nor one that is gone.
  window.setEnabled(false);
  input.focusIn();
  input.mouse(MouseAction::LeftDown, {1, 1}, {});
  window.close();
  input.letPass(40);
  input.key(65, {});
  EXPECT_EQ(take(), "8 0 0; ");
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

// A painter that asks for another paint, or for another size, gets neither before it is done.
TEST(HeadlessWindow, OutlivesWhatAPainterAsksFor) {
  int paints = 0;
  HeadlessWindow* window = nullptr;
  HeadlessWindow subject({10, 10}, [&](Canvas& canvas) {
    if (++paints == 1) window->resize({20, 30});
    window->repaint(nullptr);
    canvas.fill({0, 0, 20, 30}, rgb(255, 0, 0));
  });
  window = &subject;
  subject.repaint(nullptr);
  EXPECT_EQ(paints, 1);
  EXPECT_EQ(subject.clientSize(), (Size{20, 30}));
  subject.update();
  EXPECT_EQ(paints, 2);
  EXPECT_EQ(subject.canvas().pixel(19, 29), 0xFFFF0000u);
  subject.setCoalescing(true);
  for (int i = 0; i < 100; ++i) subject.repaint(nullptr);
  EXPECT_EQ(paints, 2);
  subject.setCoalescing(false);
  EXPECT_EQ(paints, 3);
  subject.resize({-5, HeadlessWindow::maxSide + 1});
  EXPECT_EQ(subject.clientSize(), (Size{0, HeadlessWindow::maxSide}));
}

}  // namespace
}  // namespace tessera
