// Values as the console writes and reads them.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <tessera/xvalue.h>

namespace tessera {

// Infinities are written as a number that overflows to them.
std::string valueText(const XValue& value);

// A bare word that stands for a value; nothing for every other word, which is a text.
std::optional<XValue> valueOfWord(std::string_view word);

// A text in quotes, with the escapes of JSON.
std::string quotedText(std::u16string_view text);
// `quoted` starts with a quote; reads up to the closing one and leaves in `length` how much that was. Nothing
// when there is no closing quote or an escape is none.
std::optional<std::string> readQuoted(std::string_view quoted, std::size_t& length);

}  // namespace tessera
