// UTF-8 to UTF-16 and back.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessera {

// Bytes that are no UTF-8 become U+FFFD, one for each maximal bad sequence.
std::u16string utf16FromUtf8(std::string_view text);

// Unpaired surrogates become U+FFFD.
std::string utf8FromUtf16(std::u16string_view text);

// Whether `text` is well-formed UTF-8; overlong forms, surrogates and values past U+10FFFF are not.
bool isUtf8(std::string_view text);

// The lengths that the conversions have, and the conversions into a buffer of at least that length. The
// result is the end of what was written.
std::size_t utf16Length(std::string_view text);
std::size_t utf8Length(std::u16string_view text);
char16_t* writeUtf16(std::string_view text, char16_t* out);
char* writeUtf8(std::u16string_view text, char* out);

}  // namespace tessera
