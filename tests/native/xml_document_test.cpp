// Documents: what is read, and what is refused with which line and reason.

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "backends/native/xml_document_reader.h"
#include "shared/utf.h"

namespace tessera {
namespace {

using namespace std::string_literals;

DocumentResult readDocument(std::u16string_view text) { return XmlDocumentReader().read(text); }

std::string dump(const DocumentNode& node) {
  const std::string name = node.nodeName().toUtf8();
  if (!node.firstChild()) return node.hasAttributeMap() ? name : name + "'" + node.text().toUtf8() + "'";
  std::string text = name + "(";
  for (const DocumentNode* child = node.firstChild(); child; child = child->nextSibling()) {
    if (child != node.firstChild()) text += " ";
    text += dump(*child);
  }
  return text + ")";
}

std::string dump(const DocumentResult& result) {
  if (const auto* error = std::get_if<DocumentError>(&result)) {
    return "line " + std::to_string(error->line) + ": " + error->reason;
  }
  return dump(*std::get<0>(result)->root());
}

std::u16string repeated(std::u16string_view text, std::size_t count) {
  std::u16string result;
  result.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

std::u16string nested(std::size_t depth) { return repeated(u"<a>", depth) + repeated(u"</a>", depth); }

TEST(XmlDocument, TreesAndRefusals) {
  struct Row {
    std::u16string text;
    int line;          // 0: the text is read
    std::string tree;  // or a part of the reason
  };
  const std::u16string high(1, char16_t{0xD83D}), low(1, char16_t{0xDE00});
  const Row rows[] = {
      {u"\uFEFF<a/>", 0, "a"},
      {u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>\u00E9\uAC00\U0001F600</a>", 0, "a(#text'é가😀')"},
      {u"<?xml version=\"1.0\" encoding=\"no-such-code\"?><a>\uAC00</a>", 0, "a(#text'가')"},
      {u"<a> <b>x</b>\n<c/></a>", 0, "a(#text' ' b(#text'x') #text'\n' c)"},
      {u"<a>1 &lt; 2 &amp;&#x41;&#66;&quot;</a>", 0, "a(#text'1 < 2 &AB\"')"},
      {u"<a>x<![CDATA[<b>&amp;]]>y</a>", 0, "a(#text'x' #cdata-section'<b>&amp;' #text'y')"},
      {u"<!--before--><a><!--note--><b/><?go there?></a>", 0, "a(#comment'note' b go'there')"},
      {u"<a>line\r\nend\rlast</a>", 0, "a(#text'line\nend\nlast')"},
      {u"<p:가 xmlns:p=\"urn:x\"><p:b/></p:가>", 0, "p:가(p:b)"},
      {u"", 1, "empty"},
      {u"  \n ", 2, "Start tag expected"},
      {u"plain", 1, "Start tag expected"},
      {u"<a>\n<b>\n</a>", 3, "mismatch"},
      {u"<a>\n<b>", 2, "Premature end"},
      {u"<a/>\n<b/>", 2, "Extra content"},
      {u"<a x='1'\n x='2'/>", 2, "redefined"},
      {u"<a x='<'/>", 1, "'<' not allowed"},
      {u"<a>\n&nbsp;</a>", 2, "'nbsp' not defined"},
      {u"<a>1 & 2</a>", 1, "EntityRef"},
      {u"<a>&#xD83D;</a>", 1, "invalid xmlChar value 55357"},
      {u"<a>\n\u0001</a>", 2, "invalid Char"},
      {u"<a p:x='1'/>", 1, "prefix p"},
      {u"<a>\n\n\0</a>"s, 3, "zero character"},
      {u"<a>\n" + low + high + u"</a>", 2, "unpaired surrogate"},
      {u"<a/>" + high, 1, "unpaired surrogate"},
      {u"<a>" + high + low + high + u"</a>", 1, "unpaired surrogate"},
  };
  for (const Row& row : rows) {
    const std::string found = dump(readDocument(row.text));
    const std::string line = "line " + std::to_string(row.line) + ": ";
    if (row.line == 0)
      EXPECT_EQ(found, row.tree);
    else
      EXPECT_TRUE(found.starts_with(line) && found.find(row.tree) != found.npos && found.back() != '\n')
          << found;
  }
}

// Whatever a document type declaration holds, it is refused at its own line and nothing in it is used.
TEST(XmlDocument, DocumentTypes) {
  std::u16string bomb = u"<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY e0 'ha'>";
  for (int i = 1; i < 40; ++i) {
    const std::u16string inner = utf16FromUtf8("&e" + std::to_string(i - 1) + ";");
    bomb += u"<!ENTITY e" + utf16FromUtf8(std::to_string(i)) + u" '" + inner + inner + u"'>";
  }
  bomb += u"]><a>&e39;</a>";
  for (const std::u16string& row :
       {bomb, u"\n<!DOCTYPE a><a/>"s, u"\n<!DOCTYPE a SYSTEM 'file:///etc/hostname'><a/>"s,
        u"\n<!DOCTYPE a [<!ENTITY % x SYSTEM 'file:///etc/hostname'> %x;]><a/>"s,
        u"\n<!DOCTYPE a [<!ATTLIST a id CDATA 'given'>]><a/>"s})
    EXPECT_EQ(dump(readDocument(row)), "line 2: document type declaration (DOCTYPE) is not allowed");
}

TEST(XmlDocument, Depth) {
  EXPECT_EQ(readDocument(nested(256)).index(), 0u);
  const std::string reason = "line 2: elements nested deeper than 256 levels";
  EXPECT_EQ(dump(readDocument(u"\n" + nested(257))), reason);
  EXPECT_EQ(dump(readDocument(u"\n" + repeated(u"<a>", 1'000'000))), reason);
  EXPECT_EQ(dump(readDocument(u"\n" + repeated(u"<a>", 256) + u"<a/>" + repeated(u"</a>", 256))), reason);
}

TEST(XmlDocument, Sizes) {
  constexpr std::size_t limit = std::size_t{64} << 20;
  // Small pieces may fill the whole size.
  const std::u16string fits = u"<a>" + repeated(u"<b/>" + std::u16string(65'532, u' '), 1023) + u"</a>";
  EXPECT_EQ(readDocument(fits + std::u16string(limit - fits.size(), u'\n')).index(), 0u);
  const std::string tooLong = " text of more than 64 MiB";
  EXPECT_EQ(dump(readDocument(fits + std::u16string(limit - fits.size() + 1, u' '))), "line 1:" + tooLong);
  // Counted as UTF-8: 3 bytes a character, 4 a pair of surrogates.
  EXPECT_EQ(dump(readDocument(u"<a>\n" + std::u16string(limit / 3, u'\uAC00') + u"</a>")),
            "line 2:" + tooLong);
  EXPECT_EQ(dump(readDocument(u"<a>\n" + repeated(u"\U0001F600", limit / 4) + u"</a>")), "line 2:" + tooLong);
  // The parser's own limit for one piece.
  const std::string refusal = dump(readDocument(u"<a\nx='" + std::u16string(20'000'000, u'x') + u"'/>"));
  EXPECT_TRUE(refusal.starts_with("line 2: AttValue length too long")) << refusal.substr(0, 100);
}

TEST(XmlDocument, Attributes) {
  const DocumentResult result = readDocument(
      u"<a id='x' ID='y' none='' p:id='z' xmlns='urn:d' xmlns:p='urn:p' t='&lt;&amp;&#x41;&quot;'"
      u" w=' a\n b&#10;c'>text<!--note--><![CDATA[c]]></a>");
  ASSERT_EQ(result.index(), 0u) << dump(result);
  const DocumentNode& root = *std::get<0>(result)->root();
  const std::pair<const char*, std::optional<XString>> rows[] = {
      {"id", u"x"},  {"ID", u"y"},          {"Id", {}},      {"idx", {}},       {"", {}},
      {"none", u""}, {"p:id", u"z"},        {":id", {}},     {"p:", {}},        {"xmlns", u"urn:d"},
      {"p", {}},     {"xmlns:p", u"urn:p"}, {"t", u"<&A\""}, {"w", u" a  b\nc"}};
  for (const auto& [name, value] : rows) EXPECT_EQ(root.attribute(name), value) << name;
  std::string names;
  for (const XString& name : root.attributeNames()) names += name.toUtf8() + " ";
  EXPECT_EQ(names, "xmlns xmlns:p id ID none p:id t w ");
  for (const DocumentNode* child = root.firstChild(); child; child = child->nextSibling()) {
    EXPECT_FALSE(child->attribute("id").has_value()) << dump(*child);
    EXPECT_TRUE(child->attributeNames().empty()) << dump(*child);
  }
}

TEST(XmlDocument, TextJoinsAllBelow) {
  const DocumentResult result =
      readDocument(u"<a>x<b>y<c>&lt;</c></b><!--no--><?go no?><![CDATA[&lt;]]> \n</a>");
  EXPECT_EQ(std::get<0>(result)->root()->text(), u"xy<&lt; \n");
}

TEST(XmlDocument, FirstChildIsWhatStandsFirst) {
  const DocumentResult result =
      readDocument(u"<?xml version='1.0'?><!--x--> <?go there?><a><b/></a><!--y-->");
  std::string names;
  const Document& document = *std::get<0>(result);
  for (const auto* node = document.firstChild(); node; node = node->nextSibling())
    names += node->nodeName().toUtf8() + " ";
  EXPECT_EQ(names + document.root()->nodeName().toUtf8(), "#comment go a #comment a");
}

// Also past 16 bits.
TEST(XmlDocument, LinesAreThoseOfTheTagsStart) {
  const DocumentResult result = readDocument(u"<a\n\n>\n<b\n x='\n>'\n y='&#10;'/><c/>\n<!--\n-->\n<d\n/>" +
                                             std::u16string(70'000, u'\n') + u"<e>x</e></a>");
  ASSERT_EQ(result.index(), 0u) << dump(result);
  std::string lines = std::to_string(std::get<0>(result)->root()->line());
  for (const auto* node = std::get<0>(result)->root()->firstChild(); node; node = node->nextSibling())
    if (node->hasAttributeMap()) lines += " " + node->nodeName().toUtf8() + std::to_string(node->line());
  EXPECT_EQ(lines, "1 b4 c7 d10 e70011");
}

}  // namespace
}  // namespace tessera
