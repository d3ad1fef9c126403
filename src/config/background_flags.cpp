#include "config/background_flags.h"

namespace tessera {
namespace {

std::uint32_t modeOf(const BackgroundRecord& background) {
  const std::uint32_t placement =
      background.align == align::full ? image_mode::stretched : image_mode::placed;
  return background.transparent ? placement | image_mode::transparent : placement;
}

void blend(CellStyle& style, std::int32_t alphaRate) {
  if (style.imageMode == image_mode::solid) style.imageMode = image_mode::blended;
  style.alphaRate = alphaRate;
}

void makeSolid(CellStyle& style) {
  if (style.imageMode == image_mode::blended) style.imageMode = image_mode::solid;
}

}  // namespace

void applyBackgroundFlags(GridConfig& config) {
  BackgroundRecord& background = config.background;
  const bool inForce = background.backImage && background.imageHandle;
  background.imageMode = inForce ? modeOf(background) : image_mode::solid;
  const auto apply = [&](CellStyle& style) {
    if (inForce) {
      blend(style, background.alphaRate);
    } else {
      makeSolid(style);
    }
  };
  for (ColumnRecord& column : config.columns) {
    apply(column.view);
    apply(column.summary);
    for (GroupCell& group : column.groups) apply(group);
  }
}

}  // namespace tessera
