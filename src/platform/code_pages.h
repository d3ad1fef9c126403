// The port for narrow texts in code pages of the host.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// Windows code page numbers; 0 and 65001 are UTF-8.
class CodePages {
 public:
  virtual ~CodePages() = default;
  // What the code page cannot express becomes a question mark. An unknown code page counts as UTF-8.
  virtual std::string toNarrow(std::int32_t codePage, std::u16string_view text) = 0;
};

}  // namespace tessera
