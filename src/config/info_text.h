// The repair of Info texts before they are read as XML.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <tessera/xstring.h>

namespace tessera {

// Drops white space between tags and text in front of the first one, and leaves one of each repeated
// attribute. A tag runs on past a ">" that is followed by more text, so a ">" inside a value does no harm;
// text behind the last tag makes that tag unfinished. CDATA sections are copied as they are, and text between
// a section and the next tag is dropped. A text with an unfinished tag or section is returned unchanged.
// Takes time in proportion to the text.
XString normalizeInfoText(const XString& text);

// Of attributes with the same name the last one stays. Names are case-sensitive. An attribute is whatever
// stands before a "=" at or after `start`; its value ends with the second quote, and quotes are apostrophes
// as soon as the run holds one. The search ends at the first "=" without a name or without two quotes.
std::u16string removeDuplicateAttributes(std::u16string_view run, std::size_t start = 0);

// White space in any script.
bool isWideSpace(char16_t unit);

}  // namespace tessera
