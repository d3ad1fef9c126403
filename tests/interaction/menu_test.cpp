#include "interaction/menu_controller.h"
#include "mouse_fixture.h"

namespace tessera {
namespace {

// "text=code", "-" for a separator, "!" for what cannot be chosen, children in brackets.
std::string shape(const std::vector<PopupMenuItem>& items) {
  std::string text;
  for (const PopupMenuItem& item : items) {
    if (!text.empty()) text += ' ';
    if (item.separator) {
      text += '-';
      continue;
    }
    if (!item.enabled) text += '!';
    text += item.text.toUtf8() + '=' + std::to_string(item.code);
    if (!item.children.empty()) text += '(' + shape(item.children) + ')';
  }
  return text;
}

MenuItem item(const char16_t* text, std::int32_t code, std::vector<MenuItem> children = {}) {
  return {.children = std::move(children), .text = text, .code = code};
}

class Menu : public test::MouseTest {
 protected:
  void add(const MenuItem& entry) { parts.config.menu.addTail(entry); }
  std::string choose(std::int32_t code) {
    window.menuAnswer = code;
    menu.trackPopupMenu(7, -3);
    return services.take();
  }

  MenuController menu{parts, services};
};

TEST_F(Menu, ShowsTheTreeAtTheScreenPoint) {
  add(item(u"&Open", 1));
  add(item(u"SEPARATOR", 5));
  add(item(u"More", 9, {item(u"Deep", 0, {item(u"x", 2)}), item(u"Separator", 0), item(u"y", 3)}));
  add(item(u"Last", 4));
  parts.config.menu.head()->value().enabled = false;
  parts.config.menu.head()->value().text = u"&Open";
  XList<MenuItem>::nextOf(XList<MenuItem>::nextOf(parts.config.menu.head()))->value().enabled = false;
  EXPECT_EQ(choose(0), "");
  EXPECT_EQ(shape(window.menu), "!&Open=1 - !More=9(Deep=0(x=2) - y=3) Last=4");
  EXPECT_EQ(window.menuPlace, (Point{107, 97}));
}

// An item says for itself whether it can be chosen, whatever has its code or lies around it.
TEST_F(Menu, EachItemIsEnabledByItself) {
  add(item(u"Off", 1));
  add(item(u"On", 1));
  add(item(u"Shut", 9, {item(u"Inner", 1), item(u"Other", 2)}));
  parts.config.menu.head()->value().enabled = false;
  parts.config.menu.tail()->value().enabled = false;
  EXPECT_EQ(choose(0), "");
  EXPECT_EQ(shape(window.menu), "!Off=1 On=1 !Shut=9(Inner=1 Other=2)");
}

TEST_F(Menu, TheChoiceComesWithItsText) {
  add(item(u"First", 3));
  add(item(u"Sub", 7, {item(u"&Inner", 7), item(u"Inner too", 7)}));
  add(item(u"Below", 7));
  add(item(u"separator", 11));
  EXPECT_EQ(choose(3), "OnMenuSelected 3 First; ");
  EXPECT_EQ(choose(7), "OnMenuSelected 7 &Inner; ");  // the first in order; the entry of a submenu is none
  EXPECT_EQ(choose(11), "OnMenuSelected 11 ; ");      // nothing has this code
}

TEST_F(Menu, AnEmptyMenuIsShownToo) {
  window.menu.emplace_back();
  EXPECT_EQ(choose(0), "");
  EXPECT_TRUE(window.menu.empty());
}

TEST_F(Menu, LongTextsAreCutBetweenCharacters) {
  struct Case {
    std::u16string text;
    std::string shown;
  };
  const std::string x508(508, 'x');
  const std::u16string wide508(508, u'x');
  for (const Case& row : {Case{wide508 + u"abc", x508 + "abc"},
                          {wide508 + u"abcd", x508 + "abc"},
                          {wide508 + u"a\u00e9", x508 + "a\u00e9"},
                          {wide508 + u"ab\u00e9", x508 + "ab"},
                          {wide508 + u"\U0001F600", x508}}) {
    parts.config.menu.removeAll();
    add(item(row.text.c_str(), 1));
    const std::string log = choose(1);
    EXPECT_EQ(log, "OnMenuSelected 1 " + row.shown + "; ");
  }
}

TEST_F(Menu, TheConfigurationMayChangeWhileItShows) {
  class Replacing : public test::FakeWindow {
   public:
    explicit Replacing(GridConfig& config) : config_(config) {}
    void trackPopupMenu(std::span<const PopupMenuItem>, Point, MenuAnswer chosen) override {
      config_.menu.removeAll();
      chosen(2);
    }

   private:
    GridConfig& config_;
  };
  Replacing replacing(parts.config);
  parts.window = &replacing;
  add(item(u"Kept", 2));
  EXPECT_EQ(choose(2), "OnMenuSelected 2 Kept; ");
  parts.window = nullptr;
  EXPECT_EQ(choose(2), "");
}

}  // namespace
}  // namespace tessera
