#include "tools/tessera/form_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <limits>
#include <optional>
#include <span>

#include "backends/headless/headless_window.h"
#include "backends/native/files.h"
#include "components/number_text.h"
#include "hosting/property_map.h"
#include "shared/change_type.h"
#include "shared/utf.h"

namespace tessera {

namespace {

struct ElementRule {
  std::string_view name;
  std::string_view parent;  // empty: the root
  std::array<std::string_view, 9> attributes;
  bool hasText;
};

constexpr ElementRule elementRules[] = {
    {"form", "", {"width", "height", "font", "fontsize", "codepage", "container"}, false},
    {"dataset",
     "form",
     {"id", "file", "database", "table", "query", "keepdeleted", "sort", "subsum", "level"},
     false},
    {"field", "dataset", {"name", "type", "scale", "length"}, false},
    {"imageset", "form", {"id", "folder"}, false},
    {"grid", "form", {"id"}, false},
    {"property", "grid", {"name", "file"}, true},
};

struct ContainerWord {
  std::string_view word;
  ContainerKind kind;
};

constexpr ContainerWord containerWords[] = {
    {"html", ContainerKind::Html}, {"item", ContainerKind::Item}, {"enumerate", ContainerKind::Enumerate}};

const ElementRule* ruleOf(std::string_view name) {
  const auto* found = std::find_if(std::begin(elementRules), std::end(elementRules),
                                   [name](const ElementRule& rule) { return rule.name == name; });
  return found == std::end(elementRules) ? nullptr : found;
}

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// The form in the making and the first fault found in it; what is read after a fault does not count.
struct Reading {
  Form form;
  std::optional<FormError> fault;

  void fail(FormError error) {
    if (!fault) fault = std::move(error);
  }
};

// One element, with the reading of its attributes.
class Element {
 public:
  Element(Reading& reading, const DocumentNode& node) : reading_(reading), node_(node) {}

  int line() const { return node_.line(); }
  std::string name() const { return node_.nodeName().toUtf8(); }

  void fail(const std::string& reason) const { reading_.fail({reading_.form.path, line(), reason}); }

  std::optional<std::string> text(const char* attribute) const {
    const auto value = node_.attribute(attribute);
    if (!value) return std::nullopt;
    if (value->empty()) fail("the attribute " + std::string(attribute) + " is empty");
    return value->toUtf8();
  }

  std::string required(const char* attribute) const {
    auto value = text(attribute);
    if (!value) fail("<" + name() + "> needs the attribute " + attribute);
    return value.value_or("");
  }

  template <class T>
  void number(const char* attribute, std::int64_t least, std::int64_t most, T& result) const {
    const auto value = text(attribute);
    if (!value) return;
    std::int64_t number = 0;
    const char* end = value->data() + value->size();
    const auto read = std::from_chars(value->data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < least || number > most) {
      return fail(std::string(attribute) + "=" + inQuotes(*value) + " is no number from " +
                  std::to_string(least) + " to " + std::to_string(most));
    }
    result = static_cast<T>(number);
  }

  bool flag(const char* attribute) const {
    const auto value = text(attribute);
    if (!value || *value == "false") return false;
    if (*value != "true")
      fail(std::string(attribute) + "=" + inQuotes(*value) + " is neither true nor false");
    return true;
  }

  // A file name, joined to the form's folder.
  std::string path(const char* attribute) const {
    const auto value = text(attribute);
    if (!value) return {};
    return (std::filesystem::path(reading_.form.path).parent_path() / std::filesystem::path(*value)).string();
  }

  XString content() const { return node_.text(); }

  template <class Call>
  void forEachChild(Call call) const {
    for (const DocumentNode* child = node_.firstChild(); child; child = child->nextSibling()) {
      if (child->hasAttributeMap()) call(Element(reading_, *child));
    }
  }

 private:
  Reading& reading_;
  const DocumentNode& node_;
};

// Which elements and attributes stand where.
void checkTree(Reading& reading, const DocumentNode& node, std::string_view parent) {
  const std::string name = node.nodeName().toUtf8();
  const Element element(reading, node);
  const ElementRule* rule = ruleOf(name);
  if (!rule || rule->parent != parent) {
    return element.fail(parent.empty() ? "a form starts with <form>, not <" + name + ">"
                                       : "<" + std::string(parent) + "> has no element <" + name + ">");
  }
  for (const DocumentNode* child = node.firstChild(); child; child = child->nextSibling()) {
    if (child->hasAttributeMap()) {
      checkTree(reading, *child, name);
    } else if (!rule->hasText && child->nodeName() != u"#comment" && !isBlank(child->text().toUtf8())) {
      element.fail("<" + name + "> holds text");
    }
  }
}

void checkAttributes(Reading& reading, const DocumentNode& node) {
  const std::string name = node.nodeName().toUtf8();
  const Element element(reading, node);
  const ElementRule* rule = ruleOf(name);
  for (const XString& wide : node.attributeNames()) {
    const std::string attribute = wide.toUtf8();
    if (!rule ||
        std::find(rule->attributes.begin(), rule->attributes.end(), attribute) == rule->attributes.end()) {
      element.fail("<" + name + "> has no attribute " + attribute);
    }
  }
  for (const DocumentNode* child = node.firstChild(); child; child = child->nextSibling()) {
    checkAttributes(reading, *child);
  }
}

class Reader {
 public:
  explicit Reader(Reading& reading) : reading_(reading), form_(reading.form) {}

  void readAll(const DocumentNode& root) {
    const Element element(reading_, root);
    readFormAttributes(element);
    element.forEachChild([this](const Element& child) {
      const std::string name = child.name();
      if (name == "dataset") readDataSet(child);
      if (name == "imageset") readImageSet(child);
      if (name == "grid") readGrid(child);
    });
    if (!hasGrid_) element.fail("the form has no <grid>");
  }

 private:
  void readFormAttributes(const Element& element) {
    element.number("width", 1, HeadlessWindow::maxSide, form_.client.width);
    element.number("height", 1, HeadlessWindow::maxSide, form_.client.height);
    if (auto font = element.text("font")) form_.font = *std::move(font);
    element.number("fontsize", 1, 400, form_.fontSize);
    element.number("codepage", 0, std::numeric_limits<std::uint32_t>::max(), form_.codePage);
    const auto word = element.text("container");
    if (!word) return;
    const auto* found = std::find_if(std::begin(containerWords), std::end(containerWords),
                                     [&word](const ContainerWord& row) { return row.word == *word; });
    if (found == std::end(containerWords)) {
      return element.fail("container=" + inQuotes(*word) + " is none of html, item and enumerate");
    }
    form_.container = found->kind;
  }

  void readDataSet(const Element& element) {
    DataSetForm data;
    data.line = element.line();
    data.options.id = element.required("id");
    data.options.keepDeleted = element.flag("keepdeleted");
    data.options.sort = element.text("sort").value_or("");
    data.options.subsum = element.text("subsum").value_or("");
    data.options.level = element.text("level").value_or("");
    DataSource& source = data.source;
    source.file = element.path("file");
    source.database = element.path("database");
    source.table = element.text("table").value_or("");
    source.query = element.text("query").value_or("");
    checkSource(element, source);
    element.forEachChild([&source](const Element& child) { source.fields.push_back(readField(child)); });
    form_.order.push_back({Form::Kind::DataSet, form_.dataSets.size()});
    form_.dataSets.push_back(std::move(data));
  }

  static void checkSource(const Element& element, const DataSource& data) {
    if (data.file.empty() == data.database.empty()) {
      element.fail("<dataset> needs either the attribute file or the attribute database");
    }
    if (data.database.empty() && !(data.table.empty() && data.query.empty())) {
      element.fail("the attributes table and query go with database");
    }
    if (!data.database.empty() && data.table.empty() == data.query.empty()) {
      element.fail("a database needs either the attribute table or the attribute query");
    }
  }

  static FieldSpec readField(const Element& element) {
    FieldSpec field;
    field.name = element.required("name");
    if (const auto word = element.text("type")) {
      field.type = columnTypeOf(*word);
      if (field.type == 0) {
        element.fail("type=" + inQuotes(*word) + " is none of integer, long, decimal and text");
      }
    }
    element.number("scale", 0, maxScale, field.scale);
    element.number("length", 1, std::numeric_limits<std::int32_t>::max(), field.length);
    return field;
  }

  void readImageSet(const Element& element) {
    ImageSetForm images;
    images.line = element.line();
    images.id = element.required("id");
    element.required("folder");
    images.folder = element.path("folder");
    if (std::error_code error; !std::filesystem::is_directory(images.folder, error)) {
      element.fail("the folder " + images.folder + " cannot be read");
    }
    form_.order.push_back({Form::Kind::ImageSet, form_.imageSets.size()});
    form_.imageSets.push_back(std::move(images));
  }

  void readGrid(const Element& element) {
    if (hasGrid_) element.fail("the form has a second <grid>");
    hasGrid_ = true;
    form_.gridId = element.text("id").value_or("");
    form_.order.push_back({Form::Kind::Grid, 0});
    element.forEachChild([this](const Element& child) { readProperty(child); });
  }

  void readProperty(const Element& element) {
    GridProperty property;
    property.name = element.required("name");
    const std::optional<VarType> type = typeOf(property.name);
    if (!type) return element.fail("the grid keeps no property " + inQuotes(property.name));
    for (const GridProperty& earlier : form_.properties) {
      if (earlier.name == property.name) element.fail("the property " + property.name + " stands here twice");
    }
    property.text = propertyText(element);
    XValue value;
    if (!succeeded(changeType(XValue::ofText(property.text), *type, value))) {
      element.fail("the property " + property.name + " does not take " + inQuotes(property.text.toUtf8()));
    }
    form_.properties.push_back(std::move(property));
  }

  static std::optional<VarType> typeOf(const std::string& name) {
    if (name == "_cx" || name == "_cy") return VT_I4;
    const std::u16string wide = utf16FromUtf8(name);
    const auto* found =
        std::find_if(propertyMap.begin(), propertyMap.end(),
                     [&wide](const PersistedProperty& property) { return property.name == wide; });
    if (found == propertyMap.end()) return std::nullopt;
    return found->type;
  }

  XString propertyText(const Element& element) const {
    const std::string path = element.path("file");
    if (path.empty()) return element.content();
    if (!element.content().empty()) element.fail("a property takes either a file or a text");
    const auto text = readTextFile(path, {form_.path, element.line(), {}});
    if (!text) reading_.fail(text.error());
    return text ? XString::fromNarrow(*text) : XString();
  }

  Reading& reading_;
  Form& form_;
  bool hasGrid_ = false;
};

}  // namespace

Loaded<std::string> readTextFile(const std::string& path, const FormError& namedBy) {
  const FileResult bytes = readFile(path);
  if (const auto* error = std::get_if<FileError>(&bytes)) {
    if (namedBy.file.empty()) return FormError{path, 0, error->reason};
    return FormError{namedBy.file, namedBy.line, "the file " + path + " cannot be read: " + error->reason};
  }
  const FileBytes& content = std::get<FileBytes>(bytes);
  std::string text;
  text.reserve(content.size());
  std::transform(content.begin(), content.end(), std::back_inserter(text),
                 [](std::byte byte) { return static_cast<char>(byte); });
  if (!isUtf8(text)) return FormError{path, 0, "the text is no UTF-8"};
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.erase(0, mark.size());
  return text;
}

Loaded<Form> readForm(DocumentReader& documents, const std::string& path) {
  const auto source = readTextFile(path);
  if (!source) return source.error();
  const DocumentResult result = documents.read(XString::fromNarrow(*source));
  if (const auto* error = std::get_if<DocumentError>(&result)) {
    return FormError{path, error->line, error->reason};
  }
  const DocumentNode& root = *std::get<std::unique_ptr<Document>>(result)->root();
  Reading reading;
  reading.form.path = path;
  checkTree(reading, root, "");
  checkAttributes(reading, root);
  if (!reading.fault) Reader(reading).readAll(root);
  if (reading.fault) return *std::move(reading.fault);
  return std::move(reading.form);
}

}  // namespace tessera
