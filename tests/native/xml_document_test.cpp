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

TEST(XmlDocument, Trees) {
  struct Row {
    std::u16string text;
    std::string tree;
  };
  const std::vector<Row> rows = {
      {u"<a/>", "a"},
      {u"\uFEFF<a/>", "a"},
      {u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>\u00E9\uAC00\U0001F600</a>", "a(#text'é가😀')"},
      {u"<?xml version=\"1.0\" encoding=\"no-such-code\"?><a>\uAC00</a>", "a(#text'가')"},
      {u"<a> <b>x</b>\n<c/></a>", "a(#text' ' b(#text'x') #text'\n' c)"},
      {u"<a>1 &lt; 2 &amp;&#x41;&#66;&quot;</a>", "a(#text'1 < 2 &AB\"')"},
      {u"<a>x<![CDATA[<b>&amp;]]>y</a>", "a(#text'x' #cdata-section'<b>&amp;' #text'y')"},
      {u"<a><!--note--><b/><?go there?></a>", "a(#comment'note' b go'there')"},
      {u"<!--before--><?go?><a/><!--after-->", "a"},
      {u"<a>line\r\nend\rlast</a>", "a(#text'line\nend\nlast')"},
      {u"<p:a xmlns:p=\"urn:x\"><p:b/></p:a>", "p:a(p:b)"},
      {u"<가 나=\"1\"/>", "가"},
  };
  for (const Row& row : rows) EXPECT_EQ(dump(readDocument(row.text)), row.tree) << utf8FromUtf16(row.text);
}

TEST(XmlDocument, Refusals) {
  struct Row {
    std::u16string text;
    int line;
    std::string reason;  // a part of it
  };
  const std::u16string high(1, char16_t{0xD83D});
  const std::u16string low(1, char16_t{0xDE00});
  const std::vector<Row> rows = {
      {u"", 1, "empty"},
      {u"  \n ", 2, "Start tag expected"},
      {u"plain", 1, "Start tag expected"},
      {u"<!--only-->", 1, "Start tag expected"},
      {u"<a>\n<b>\n</a>", 3, "mismatch"},
      {u"<a>\n<b>", 2, "Premature end"},
      {u"<a/>\n<b/>", 2, "Extra content"},
      {u"<a x='1'\n x='2'/>", 2, "redefined"},
      {u"<a x=1/>", 1, "AttValue"},
      {u"<a x='<'/>", 1, "'<' not allowed"},
      {u"<a>\n&nbsp;</a>", 2, "'nbsp' not defined"},
      {u"<a x='&nbsp;'/>", 1, "'nbsp' not defined"},
      {u"<a>1 & 2</a>", 1, "EntityRef"},
      {u"<a>\n]]></a>", 2, "]]>"},
      {u"<a><!-- -- --></a>", 1, "omment"},
      {u"<a>&#0;</a>", 1, "invalid xmlChar value 0"},
      {u"<a>&#xD83D;</a>", 1, "invalid xmlChar value 55357"},
      {u"<a>\n\u0001</a>", 2, "invalid Char"},
      {u"<a>\uFFFE</a>", 1, "out of allowed range"},
      {u"<p:a/>", 1, "prefix p"},
      {u"<a p:x='1'/>", 1, "prefix p"},
      {u"<a>\n\n\0</a>"s, 3, "zero character"},
      {u"<a>\n" + high + u"</a>", 2, "unpaired surrogate"},
      {u"<a>\n" + low + high + u"</a>", 2, "unpaired surrogate"},
      {u"<a>" + low + u"</a>", 1, "unpaired surrogate"},
      {u"<a/>" + high, 1, "unpaired surrogate"},
      {u"<a>" + high + low + high + u"</a>", 1, "unpaired surrogate"},
  };
  for (const Row& row : rows) {
    const DocumentResult result = readDocument(row.text);
    const auto* error = std::get_if<DocumentError>(&result);
    ASSERT_TRUE(error) << utf8FromUtf16(row.text) << " gave " << dump(result);
    EXPECT_EQ(error->line, row.line) << utf8FromUtf16(row.text) << ": " << error->reason;
    EXPECT_NE(error->reason.find(row.reason), std::string::npos)
        << utf8FromUtf16(row.text) << ": " << error->reason;
    EXPECT_NE(error->reason.back(), '\n');
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
  const std::vector<std::u16string> rows = {
      bomb,
      u"\n<!DOCTYPE a><a/>",
      u"\n<!DOCTYPE a SYSTEM 'file:///etc/hostname'><a/>",
      u"\n<!DOCTYPE a PUBLIC '-//X' 'http://127.0.0.1:1/x.dtd'><a/>",
      u"\n<!DOCTYPE a [<!ENTITY x SYSTEM 'file:///etc/hostname'>]><a>&x;</a>",
      u"\n<!DOCTYPE a [<!ENTITY % x SYSTEM 'file:///etc/hostname'> %x;]><a/>",
      u"\n<!DOCTYPE a [<!ATTLIST a id CDATA 'given'>]><a/>",
  };
  for (const std::u16string& row : rows) {
    EXPECT_EQ(dump(readDocument(row)), "line 2: document type declaration (DOCTYPE) is not allowed")
        << utf8FromUtf16(row);
  }
}

TEST(XmlDocument, Depth) {
  const DocumentResult deepest = readDocument(nested(256));
  ASSERT_EQ(deepest.index(), 0u) << dump(deepest);
  int depth = 0;
  for (const DocumentNode* node = std::get<0>(deepest)->root(); node; node = node->firstChild()) ++depth;
  EXPECT_EQ(depth, 256);

  const std::string reason = "line 2: elements nested deeper than 256 levels";
  EXPECT_EQ(dump(readDocument(u"\n" + nested(257))), reason);
  EXPECT_EQ(dump(readDocument(u"\n" + repeated(u"<a>", 1'000'000))), reason);
  EXPECT_EQ(dump(readDocument(u"\n" + repeated(u"<a>", 256) + u"<a/>" + repeated(u"</a>", 256))), reason);
}

TEST(XmlDocument, Sizes) {
  constexpr std::size_t limit = std::size_t{64} << 20;
  const auto filled = [](std::size_t units, char16_t unit) { return std::u16string(units, unit); };

  // Small pieces may fill the whole size.
  const std::u16string piece = u"<b>" + filled(1 << 20, u'x') + u"</b>\n";
  EXPECT_EQ(readDocument(u"<a>" + repeated(piece, 60) + u"</a>").index(), 0u);
  const std::u16string fits = u"<a>" + repeated(u"<b/>" + filled(65'532, u' '), 1023) + u"</a>";
  EXPECT_EQ(readDocument(fits + filled(limit - fits.size(), u'\n')).index(), 0u);
  EXPECT_EQ(dump(readDocument(fits + filled(limit - fits.size() + 1, u' '))),
            "line 1: text of more than 64 MiB");

  const std::string tooLong = "line 2: text of more than 64 MiB";
  EXPECT_EQ(dump(readDocument(u"<a\nx='" + filled(100'000'000, u'x') + u"'/>")), tooLong);
  // Counted as UTF-8: 3 bytes a character, 4 a pair of surrogates.
  EXPECT_EQ(dump(readDocument(u"<a>\n" + filled(limit / 3, u'\uAC00') + u"</a>")), tooLong);
  EXPECT_EQ(dump(readDocument(u"<a>\n" + repeated(u"\U0001F600", limit / 4) + u"</a>")), tooLong);

  // The parser's own limit for one piece.
  struct Row {
    std::u16string start;
    std::u16string end;
    std::string reason;
  };
  for (const Row& row :
       {Row{u"<a\nx='", u"'/>", "AttValue length too long"}, Row{u"<a>\n", u"</a>", "huge text node"},
        Row{u"<a>\n<!--", u"--></a>", "Comment too big"}}) {
    const std::string refusal = dump(readDocument(row.start + filled(20'000'000, u'x') + row.end));
    EXPECT_TRUE(refusal.starts_with("line 2: ")) << refusal.substr(0, 100);
    EXPECT_NE(refusal.find(row.reason), std::string::npos) << refusal.substr(0, 100);
  }
}

TEST(XmlDocument, Attributes) {
  const DocumentResult result = readDocument(
      u"<a id='x' ID='y' none='' p:id='z' xmlns='urn:d' xmlns:p='urn:p' t='&lt;&amp;&#x41;&quot;'"
      u" w=' a\n b&#10;c'>text<!--note--><![CDATA[c]]></a>");
  ASSERT_EQ(result.index(), 0u) << dump(result);
  const DocumentNode& root = *std::get<0>(result)->root();
  struct Row {
    const char* name;
    std::optional<XString> value;
  };
  const std::vector<Row> rows = {
      {"id", u"x"},          {"ID", u"y"}, {"Id", {}},      {"i", {}},
      {"idx", {}},           {"", {}},     {"none", u""},   {"p:id", u"z"},
      {":id", {}},           {"q:id", {}}, {"p:", {}},      {"xmlns", u"urn:d"},
      {"xmlns:p", u"urn:p"}, {"p", {}},    {"t", u"<&A\""}, {"w", u" a  b\nc"},
  };
  for (const Row& row : rows) EXPECT_EQ(root.attribute(row.name), row.value) << row.name;

  std::string names;
  for (const XString& name : root.attributeNames()) names += name.toUtf8() + " ";
  EXPECT_EQ(names, "xmlns xmlns:p id ID none p:id t w ");

  EXPECT_TRUE(root.hasAttributeMap());
  for (const DocumentNode* child = root.firstChild(); child; child = child->nextSibling()) {
    EXPECT_FALSE(child->hasAttributeMap()) << dump(*child);
    EXPECT_FALSE(child->attribute("id").has_value()) << dump(*child);
    EXPECT_TRUE(child->attributeNames().empty()) << dump(*child);
  }
}

TEST(XmlDocument, TextJoinsAllBelow) {
  struct Row {
    std::u16string text;
    XString joined;
  };
  const std::vector<Row> rows = {
      {u"<a/>", u""},
      {u"<a>x<b>y<c>&lt;</c></b><![CDATA[&lt;]]>z</a>", u"xy<&lt;z"},
      {u"<a>x<!--no--><?go no?>y</a>", u"xy"},
      {u"<a> \n </a>", u" \n "},
  };
  for (const Row& row : rows) {
    const DocumentResult result = readDocument(row.text);
    ASSERT_EQ(result.index(), 0u) << dump(result);
    EXPECT_EQ(std::get<0>(result)->root()->text(), row.joined) << utf8FromUtf16(row.text);
  }
}

TEST(XmlDocument, FirstChildIsWhatStandsFirst) {
  struct Row {
    std::u16string text;
    std::string names;  // of the first child and its siblings
  };
  const std::vector<Row> rows = {
      {u"<a/>", "a "},
      {u"<?xml version='1.0'?>\n<a/>", "a "},
      {u"<!--x--> <?go there?><a><b/></a><!--y-->", "#comment go a #comment "},
  };
  for (const Row& row : rows) {
    const DocumentResult result = readDocument(row.text);
    ASSERT_EQ(result.index(), 0u) << dump(result);
    std::string names;
    const Document& document = *std::get<0>(result);
    for (const auto* node = document.firstChild(); node; node = node->nextSibling()) {
      names += node->nodeName().toUtf8() + " ";
    }
    EXPECT_EQ(names, row.names);
    EXPECT_EQ(document.root()->nodeName(), u"a");
  }
}

TEST(XmlDocument, LinesAreThoseOfTheTagsStart) {
  const DocumentResult result =
      readDocument(u"<a\n\n>\n<b\n x='\n>'\n y='&#10;'/><c/>\n<!--\n-->\n<d\n/></a>");
  ASSERT_EQ(result.index(), 0u) << dump(result);
  std::string lines = std::to_string(std::get<0>(result)->root()->line());
  for (const auto* node = std::get<0>(result)->root()->firstChild(); node; node = node->nextSibling()) {
    if (node->hasAttributeMap()) lines += " " + node->nodeName().toUtf8() + std::to_string(node->line());
  }
  EXPECT_EQ(lines, "1 b4 c7 d10");
}

TEST(XmlDocument, LinesPastSixteenBits) {
  const DocumentResult result = readDocument(u"<a>\n<b/>" + std::u16string(70'000, u'\n') + u"<c>x</c></a>");
  ASSERT_EQ(result.index(), 0u);
  const DocumentNode* root = std::get<0>(result)->root();
  const DocumentNode* b = root->firstChild()->nextSibling();
  const DocumentNode* c = b->nextSibling()->nextSibling();
  EXPECT_EQ(root->line(), 1);
  EXPECT_EQ(b->line(), 2);
  EXPECT_EQ(c->line(), 70'002);
  EXPECT_FALSE(root->nextSibling());
}

}  // namespace
}  // namespace tessera
