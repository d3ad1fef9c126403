#include "config/info_text.h"

#include <chrono>
#include <random>
#include <span>

#include "tests/support/text_rows.h"

namespace tessera {
namespace {

void check(std::string_view table, std::string (*repair)(const char16_t*)) {
  for (const auto& [text, expected] : test::textRows(table)) {
    EXPECT_EQ(repair(XString::fromNarrow(text).chars()), expected) << text;
  }
}

std::string normalized(const char16_t* text) { return normalizeInfoText(text).toUtf8(); }

TEST(InfoText, Normalize) {
  check(R"~(
text only =>  |   head <A/> => <A/> | <A>  <B/>  </A> tail => <A>  <B/>  </A> tail
<T> a b </T> => <T> a b </T> | <TEXT>a>b</TEXT> => <TEXT>a>b</TEXT> | <A b='1>2'/><C/> => <A b='1>2'/><C/>
<T>a></T><C/> => <T>a></T><C/> | <A width='10' width='20'/> => <A  width='20'/>
<A><B c="1" c="2"/></A> => <A><B  c="2"/></A> | <A left='1' LEFT='2'/> => <A left='1' LEFT='2'/>
<A>  <B c='1' c='2' => <A>  <B c='1' c='2' | <A/>  <B>text => <A/>  <B>text
<T> <![CDATA[ a='1' a='2' > ]]> </T> => <T><![CDATA[ a='1' a='2' > ]]></T>
<T><![CDATA[a]]>b</T> => <T><![CDATA[a]]></T> | <T>  <![CDATA[ a ]] > </T> => <T>  <![CDATA[ a ]] > </T>
<T/> <![cdata[ ]]>  => <T/><![cdata[ ]]> | <A> <!-- x='1' x='2' --> </A> => <A><!--  x='2' --></A>)~",
        normalized);
  EXPECT_EQ(normalized(u""), "");
  EXPECT_EQ(normalized(u"<A>x</A>\n\t"), "<A>x</A>");
  EXPECT_EQ(normalized(u"<A>\r\n\t <B/>\x3000\x00A0</A>"), "<A><B/></A>");
}

TEST(InfoText, ZeroEndsTheSearchForTheEndOfARun) {
  const XString text(std::u16string_view(u"<A>\0<B/>", 8));
  EXPECT_EQ(normalizeInfoText(text).toUtf8(), "<A><B/>");
}

TEST(InfoText, UnrepairableTextIsShared) {
  const XString text(u"<A <B");
  EXPECT_EQ(normalizeInfoText(text).chars(), text.chars());
}

std::string withoutDuplicates(const char16_t* run) {
  return XString(std::u16string_view(removeDuplicateAttributes(run))).toUtf8();
}

TEST(InfoText, RemoveDuplicates) {
  check(R"~(
<A b="1" c="2"> => <A b="1" c="2"> | <A b="1" c="2" b="3"> => <A  c="2" b="3">
<A b='1' b='2' b='3'> => <A   b='3'> | <A b='1' c='2' b='3' c='4'> => <A   b='3' c='4'>
<A b='1' B='2'> => <A b='1' B='2'> | <A b='1' ab='2' ba='3'> => <A b='1' ab='2' ba='3'>
<A b='1' c='b'> => <A b='1' c='b'> | <A b='1' c=' b=2'> => <A  c=' b=2'>
<A b="1" c="it's" b="2"> => <A b="1" c="it's" b="2"> | <A b='1' b="2" c="3" c="4"> => <A  b="2"  c="4">
<A b=1 b=2> => <A b=1 b=2> | <A c='1' b=' b=> => <A c='1' b=' b=> | ='1' a='1' a='2' => ='1' a='1' a='2'
a='1' a='2' => a='1' a='2' | aa='1' aa='2' =>  aa='2' | <p ="1"y a=""="1"y="5" a=""> => <p y="5" a="">
<A b='1'c='2' b='3'> => <A c='2' b='3'>)~",
        withoutDuplicates);
  EXPECT_EQ(withoutDuplicates(u"<A b = '1' b\t= '2'>"), "<A  b\t= '2'>");
}

TEST(InfoText, RemoveDuplicatesFromAStart) {
  const std::u16string run = u"<A b='1' b='2' b='3'>";
  EXPECT_TRUE(removeDuplicateAttributes(run, 8) == u"<A b='1'  b='3'>");
  EXPECT_TRUE(removeDuplicateAttributes(run, run.size()) == run);
  EXPECT_TRUE(removeDuplicateAttributes(run, run.size() + 9) == run);
}

// The repair one step at a time on one string, with no thought of speed.
std::u16string removeDuplicatesStepByStep(std::u16string run, std::size_t start) {
  constexpr std::size_t none = std::u16string::npos;
  const auto nameBefore = [&run](std::size_t equals, std::size_t& begin) {
    std::ptrdiff_t last = static_cast<std::ptrdiff_t>(equals) - 1;
    while (last > 0 && isWideSpace(run[static_cast<std::size_t>(last)])) --last;
    if (last <= 0) return std::u16string();
    begin = static_cast<std::size_t>(last);
    while (begin > 0 && !isWideSpace(run[begin - 1])) --begin;
    return run.substr(begin, static_cast<std::size_t>(last) + 1 - begin);
  };
  for (;;) {
    const std::size_t equals = run.find(u'=', start);
    if (equals == none) return run;
    std::size_t begin = 0;
    const std::u16string name = nameBefore(equals, begin);
    if (name.empty()) return run;
    const char16_t quote = run.find(u'\'') != none ? u'\'' : u'"';
    const std::size_t opening = run.find(quote, equals);
    const std::size_t closing = opening == none ? none : run.find(quote, opening + 1);
    if (closing == none) return run;
    bool again = false;
    for (std::size_t i = run.find(u'=', equals + 1); i != none && !again; i = run.find(u'=', i + 1)) {
      std::size_t ignored = 0;
      again = nameBefore(i, ignored) == name;
    }
    if (again) {
      run.erase(begin, closing + 1 - begin);
    } else {
      start = closing + 1;
    }
  }
}

std::u16string randomRun(std::mt19937& random, std::span<const std::u16string_view> pieces, int most) {
  std::u16string run;
  const int count = std::uniform_int_distribution<int>(0, most)(random);
  std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
  for (int i = 0; i < count; ++i) run += pieces[piece(random)];
  return run;
}

TEST(InfoText, RemoveDuplicatesAgreesWithTheSimpleWay) {
  static constexpr std::u16string_view characters[] = {u" ", u"=", u"'", u"\"", u"a", u"b", u"<"};
  static constexpr std::u16string_view parts[] = {u"a=\"1\"",   u"a=''",     u" b=\"\"", u" ",
                                                  u"=\"1\"",    u" a=\"=\"", u"c",       u"=",
                                                  u" =\"x y\"", u"\"",       u"'",       u"=\"1\"y"};
  std::mt19937 random(20240501);
  int shortened = 0;
  for (int i = 0; i < 60000; ++i) {
    const std::u16string run = i % 2 == 0 ? randomRun(random, characters, 24) : randomRun(random, parts, 12);
    const std::size_t start = i % 7 == 0 ? run.size() / 3 : 0;
    const std::u16string repaired = removeDuplicateAttributes(run, start);
    ASSERT_TRUE(repaired == removeDuplicatesStepByStep(run, start))
        << XString(std::u16string_view(run)).toUtf8() << " from " << start;
    if (repaired.size() < run.size()) ++shortened;
  }
  EXPECT_GT(shortened, 1000);
}

std::u16string repeated(std::u16string_view piece, int times) {
  std::u16string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

// What takes quadratic time takes minutes here.
TEST(InfoText, HostileTextsTakeLittleTime) {
  constexpr int times = 100'000;
  const auto began = std::chrono::steady_clock::now();

  std::u16string distinct = u"<A";
  for (int i = 0; i < times; ++i) {
    distinct += XString::fromNarrow(" a" + std::to_string(i) + "='" + std::to_string(i) + "'").view();
  }
  distinct += u">";
  EXPECT_TRUE(normalizeInfoText(XString(distinct)) == std::u16string_view(distinct));

  const std::u16string same = u"<A" + repeated(u" a='1'", times) + u">";
  EXPECT_TRUE(normalizeInfoText(XString(same)) ==
              std::u16string_view(u"<A" + repeated(u" ", times) + u"a='1'>"));

  const std::u16string glued = u"<A " + repeated(u"a=\"1\"", times) + u">";
  EXPECT_TRUE(normalizeInfoText(XString(glued)) == std::u16string_view(glued));

  const std::u16string signs = u"<A " + repeated(u"=", 10 * times) + u">";
  EXPECT_TRUE(normalizeInfoText(XString(signs)) == std::u16string_view(signs));

  const std::u16string open = repeated(u"<", 10 * times);
  EXPECT_TRUE(normalizeInfoText(XString(open)) == std::u16string_view(open));

  const std::u16string oneRun = repeated(u"<a>x ", times) + u"</a>";
  EXPECT_TRUE(normalizeInfoText(XString(oneRun)) == std::u16string_view(oneRun));

  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(20));
}

}  // namespace
}  // namespace tessera
