#include "backends/headless/headless_window.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

TEST(HeadlessWindow, PaintsAtOnceUnlessCoalescing) {
  int paints = 0;
  HeadlessWindow window({10, 10}, [&paints](Canvas&) { ++paints; });
  window.repaint(nullptr);
  window.repaint(nullptr);
  EXPECT_EQ(paints, 2);
  window.setCoalescing(true);
  for (int i = 0; i < 100; ++i) window.repaint(nullptr);
  EXPECT_EQ(paints, 2);
  window.setCoalescing(false);
  EXPECT_EQ(paints, 3);
  window.update();  // nothing is dirty
  EXPECT_EQ(paints, 3);
  window.paint();
  EXPECT_EQ(paints, 4);
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
}

TEST(HeadlessWindow, TellsWhatItWasAskedFor) {
  HeadlessWindow window({-5, HeadlessWindow::maxSide + 1}, [](Canvas&) {});
  EXPECT_EQ(window.clientSize(), (Size{0, HeadlessWindow::maxSide}));
  window.setBorder(WindowBorder::Frame);
  window.setBarRange(Bar::Vertical, {1, 100, 20, 5});
  window.showBar(Bar::Horizontal, true);
  window.enableBar(Bar::Horizontal, false);
  window.setBarPosition(Bar::Vertical, 7);
  window.setFocus();
  EXPECT_EQ(window.takeCalls(), (std::vector<std::string>{"border frame", "v range 1-100 page 20 at 5",
                                                          "h shown", "h disabled", "v at 7", "focus"}));
  EXPECT_TRUE(window.takeCalls().empty());
  EXPECT_EQ(window.bar(Bar::Vertical).range, (BarRange{1, 100, 20, 7}));
  EXPECT_FALSE(window.bar(Bar::Horizontal).enabled);
  EXPECT_TRUE(window.hasFocus());
}

}  // namespace
}  // namespace tessera
