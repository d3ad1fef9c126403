#include "expr/xexpr_error.h"

#include <algorithm>

namespace tessera {

bool XExprParserException::GetErrorMessage(char16_t* buffer, std::size_t maxChars,
                                           std::uint32_t* helpContext) const {
  if (helpContext) *helpContext = 0;
  if (current_ >= errors_.size() || maxChars == 0) return false;
  const std::u16string_view text = errors_[current_].text.view().substr(0, maxChars - 1);
  *std::copy(text.begin(), text.end(), buffer) = u'\0';
  return true;
}

}  // namespace tessera
