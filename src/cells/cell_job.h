// What the painters and the meters of cells work with.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "binding/image_cache.h"
#include "cells/cell_drawing.h"
#include "cells/cell_layout.h"
#include "rows/cell_text.h"

namespace tessera {

// Buffers that are kept from paint to paint: a paint that meets nothing new allocates nothing.
struct CellScratch {
  TextScratch text;
  XString label;                    // a second text of the same cell
  std::u16string mask;              // of a password
  std::unique_ptr<Canvas> surface;  // as large as the canvas, for scratchSurface()
};

struct CellTools {
  Canvas& canvas;
  const TextSource& texts;
  const ImageCache& images;
  CellScratch& scratch;
  bool isEnabled;

  DrawTarget target() const { return {canvas, texts.eval}; }
};

// A cell on its way to its painter.
struct CellJob {
  CellPlace place;
  std::u16string_view text;
  std::optional<ColorRef> ground = {};  // as DrawTarget says
};

// What the row has in another column of the data set, in the format of this one's view; empty without a name.
void textOfColumn(const TextSource& texts, const ColumnRecord& column, std::int32_t row, const XString& name,
                  XString& text);

// A cell of a data row that is measured. `text` is the one that it shows, and may be used up.
struct WidthJob {
  Canvas& canvas;
  const TextSource& texts;
  const ImageCache& images;
  const LogFont& font;
  const ColumnRecord& column;
  std::int32_t row = 0;
  XString& text;

  std::int32_t textWidth() const { return text.empty() ? 0 : canvas.textExtent(font, text).width; }
};

}  // namespace tessera
