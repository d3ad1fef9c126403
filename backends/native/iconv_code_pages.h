// Code pages by iconv.

#pragma once

#include "platform/code_pages.h"

namespace tessera {

class IconvCodePages final : public CodePages {
 public:
  std::string toNarrow(std::int32_t codePage, std::u16string_view text) override;
};

}  // namespace tessera
