// Paints a form into a picture file.

#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "tools/tessera/open_form.h"

namespace tessera {

struct RenderOptions {
  std::string path;
  std::optional<std::int32_t> width;  // pixels; the form's when missing
  std::optional<std::int32_t> height;
};

// What the grid reports as OnError goes to `warnings`; the picture shows what could be read.
std::optional<FormError> renderForm(OpenedForm opened, const RenderOptions& options, std::ostream& warnings);

}  // namespace tessera
