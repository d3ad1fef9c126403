// A form: the components of a page and what they start with.

#pragma once

#include <string>
#include <vector>

#include <tessera/hosting.h>
#include <tessera/xstring.h>

#include "components/load_error.h"
#include "components/open_data_set.h"
#include "shared/rect.h"

namespace tessera {

// Names the form, or a file that it names, the line and the reason.
using FormError = LoadError;

enum class ContainerKind { Html, Item, Enumerate };

// Paths are as a program can open them: relative ones have been joined to the form's folder.
struct DataSetForm {
  DataSetOptions options;  // id, keepdeleted, sort, subsum, level
  DataSource source;
  int line = 0;
};

struct ImageSetForm {
  std::string id;
  std::string folder;
  int line = 0;
};

struct GridProperty {
  std::string name;  // one of the control's property map, or _cx or _cy
  XString text;
};

struct Form {
  // Where a component stands in its list.
  enum class Kind { DataSet, ImageSet, Grid };
  struct Place {
    Kind kind;
    std::size_t index;
  };

  std::string path;
  Size client{800, 480};  // of the grid, in pixels
  std::string font = "DejaVu Sans";
  std::int32_t fontSize = 9;       // points
  std::uint32_t codePage = 65001;  // 0 or 65001: UTF-8
  ContainerKind container = ContainerKind::Html;
  std::vector<DataSetForm> dataSets;
  std::vector<ImageSetForm> imageSets;
  std::string gridId;
  std::vector<GridProperty> properties;
  std::vector<Place> order;  // of all components, as they stand in the form

  // For data that came without a form.
  bool isMadeUp() const { return dataSets.size() == 1 && dataSets.front().line == 0; }
  AmbientFont ambientFont() const { return {XString::fromNarrow(font), fontSize}; }
};

}  // namespace tessera
