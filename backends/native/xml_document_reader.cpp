#include "backends/native/xml_document_reader.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "backends/native/xml_tree.h"
#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::size_t maxBytes = std::size_t{64} << 20;
constexpr int maxDepth = 256;

// No network, nothing on standard error, line numbers above 65535, and the text is UTF-8 whatever its XML
// declaration says. XML_PARSE_HUGE, XML_PARSE_RECOVER and XML_PARSE_NOENT must stay away: they lift the
// limits, accept what is not well formed, and read entities.
constexpr int parseOptions =
    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_IGNORE_ENC | XML_PARSE_BIG_LINES;

struct ContextDeleter {
  void operator()(xmlParserCtxt* context) const {
    // The tree of a parse that failed is still the context's.
    xmlFreeDoc(context->myDoc);
    xmlFreeParserCtxt(context);
  }
};
using Context = std::unique_ptr<xmlParserCtxt, ContextDeleter>;

constexpr bool isHighSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool isLowSurrogate(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

// What the change to UTF-8 would hide or the parser would cut off, and the size. A pair of surrogates becomes
// four bytes, counted as three and one.
std::optional<DocumentError> findSourceFault(std::u16string_view text) {
  int line = 1;
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'\0') return DocumentError{line, "zero character in the text"};
    if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      ++i;
      ++bytes;
    } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
      return DocumentError{line, "unpaired surrogate in the text"};
    }
    bytes += unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
    if (bytes > maxBytes) return DocumentError{line, "text of more than 64 MiB"};
    if (unit == u'\n') ++line;
  }
  return std::nullopt;
}

// The first fault of one parse; the handlers find it through the context.
using Fault = std::optional<DocumentError>;

Fault& faultOf(xmlParserCtxt& context) { return *static_cast<Fault*>(context._private); }

xmlParserCtxt& contextOf(void* handlerData) { return *static_cast<xmlParserCtxt*>(handlerData); }

void refuse(xmlParserCtxt& context, const char* reason) {
  Fault& fault = faultOf(context);
  if (!fault) fault = DocumentError{context.input ? context.input->line : 0, reason};
  xmlStopParser(&context);
}

void onDocumentType(void* data, const xmlChar*, const xmlChar*, const xmlChar*) {
  refuse(contextOf(data), "document type declaration (DOCTYPE) is not allowed");
}

// The line breaks inside the start tag whose end was just read. A "<" stands at its start and nowhere else in
// it.
int lineBreaksInTag(const xmlParserInput& input) {
  int breaks = 0;
  for (const xmlChar* at = input.cur; at != input.base && *(at - 1) != '<'; --at) breaks += *(at - 1) == '\n';
  return breaks;
}

void onStartElement(void* data, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                    int namespaceCount, const xmlChar** namespaces, int attributeCount, int defaultedCount,
                    const xmlChar** attributes) {
  xmlParserCtxt& context = contextOf(data);
  if (context.nodeNr >= maxDepth) return refuse(context, "elements nested deeper than 256 levels");
  // The tree takes its lines from here, where the parser has come to the tag's end.
  xmlParserInput& input = *context.input;
  const int endLine = input.line;
  input.line -= lineBreaksInTag(input);
  xmlSAX2StartElementNs(data, name, prefix, uri, namespaceCount, namespaces, attributeCount, defaultedCount,
                        attributes);
  input.line = endLine;
}

// Faults that do not break well-formedness by themselves count too: prefixes that nobody declared, and
// libxml2's own limits. A namespace name need not be a URI.
void onError(void* data, xmlError* error) {
  if (error->level < XML_ERR_ERROR || error->code == XML_WAR_NS_URI) return;
  Fault& fault = faultOf(contextOf(data));
  if (fault) return;
  std::string reason = error->message ? error->message : "not well formed";
  while (!reason.empty() && reason.back() == '\n') reason.pop_back();
  fault = DocumentError{error->line, std::move(reason)};
}

Context makeContext(Fault& fault) {
  static const bool initialized = (xmlInitParser(), true);
  static_cast<void>(initialized);
  Context context(xmlNewParserCtxt());
  if (!context) return nullptr;
  context->_private = &fault;
  context->sax->internalSubset = onDocumentType;
  context->sax->startElementNs = onStartElement;
  context->sax->serror = onError;
  return context;
}

// Hands the source on piece by piece: on a text in memory libxml2 applies its limit for one lookup to all
// that it has left behind, and would refuse long documents near their end.
int readPiece(void* rest, char* buffer, int size) {
  auto& source = *static_cast<std::string_view*>(rest);
  const std::size_t count = source.copy(buffer, static_cast<std::size_t>(size));
  source.remove_prefix(count);
  return static_cast<int>(count);
}

}  // namespace

DocumentResult XmlDocumentReader::read(std::u16string_view text) {
  if (text.starts_with(u'\uFEFF')) text.remove_prefix(1);
  if (auto fault = findSourceFault(text)) return *std::move(fault);

  Fault fault;
  const Context context = makeContext(fault);
  if (!context) return DocumentError{0, "out of memory"};
  const std::string source = utf8FromUtf16(text);
  std::string_view rest = source;
  xmlDoc* tree = xmlCtxtReadIO(context.get(), readPiece, nullptr, &rest, nullptr, nullptr, parseOptions);
  if (!fault && tree && xmlDocGetRootElement(tree)) return adoptXmlTree(tree);
  xmlFreeDoc(tree);
  return fault ? *std::move(fault) : DocumentError{1, "not a document"};
}

}  // namespace tessera
