#include "config/column_info.h"

#include "config/cell_attributes.h"
#include "config/child_reader.h"
#include "config/info_document.h"
#include "config/tree_reader.h"
#include "shared/compare.h"

namespace tessera {
namespace {

class ColumnReader {
 public:
  ColumnReader(InfoServices& services, GridConfig& config) : services_(services), config_(config) {}

  // The columns at and below `element`. A column may stand in a column.
  bool readAll(const DocumentNode& element) {
    if (element.nodeName() == u"COLUMN" && !readColumn(element)) return false;
    for (const DocumentNode* child = element.firstChild(); child; child = child->nextSibling()) {
      if (!readAll(*child)) return false;
    }
    return true;
  }

 private:
  bool readColumn(const DocumentNode& element) {
    ColumnRecord column;
    if (!readColumnAttributes(element, column)) return false;
    for (const DocumentNode* child = element.firstChild(); child; child = child->nextSibling()) {
      if (!child->hasAttributeMap()) return false;
      readPart(*child, column);
    }
    config_.columns.addTail(std::move(column));
    return true;
  }

  static bool readColumnAttributes(const DocumentNode& element, ColumnRecord& column) {
    const auto id = element.attribute("id");
    if (!id) return false;
    column.id = *id;
    auto reference = element.attribute("referencecolumnid");
    if (!reference) reference = element.attribute("refcolid");
    if (reference) column.refColumnId = *reference;
    if (const auto view = element.attribute("view")) storeFlag(*view, column.viewVisible);
    if (const auto format = element.attribute("xl_cellformat")) column.xlCellFormat = *format;
    if (const auto index = element.attribute("index")) column.index = parseInt(*index);
    return true;
  }

  // Elements of other names are skipped.
  void readPart(const DocumentNode& element, ColumnRecord& column) {
    const XString name = element.nodeName();
    if (name == u"HEADER") readCell(services_, element, CellFields(column.header));
    if (name == u"VIEW") readCell(services_, element, CellFields(column.view));
    if (name == u"VIEWSUMMARY") readCell(services_, element, CellFields(column.summary));
    if (name == u"GROUP") readGroup(element, column);
    if (name == u"SUPPRESS") readSuppress(element, column);
    if (name == u"CHILD") readChild(services_, element, column.child);
    if (name == u"TREE") {
      column.hasTree = true;
      readTree(element, config_.tree);
    }
  }

  void readGroup(const DocumentNode& element, ColumnRecord& column) {
    GroupCell group;
    readCell(services_, element, CellFields(group));
    column.groups.addTail(std::move(group));
  }

  static void readSuppress(const DocumentNode& element, ColumnRecord& column) {
    forEachElement(element, [&column](const DocumentNode& reference) {
      const XString name = reference.nodeName();
      if (name != u"REFCOLID" && name != u"REFERENCECOLUMNID") return;
      column.suppressRefs.addTail({.columnId = reference.text()});
    });
  }

  InfoServices& services_;
  GridConfig& config_;
};

}  // namespace

bool parseColumnInfo(InfoServices& services, const XString& text, GridConfig& config) {
  if (text.empty()) return true;
  const std::unique_ptr<Document> document = openInfoDocument(services, text);
  return document && ColumnReader(services, config).readAll(*document->root());
}

}  // namespace tessera
