// The attribute names of an XML text's elements.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessera {

struct StartTag {
  std::string_view name;
  std::vector<std::string_view> attributes;
  int line = 0;  // on which the tag starts
};

// The start tags of a text that is known to be well-formed and without a document type, in document order.
// A document tree answers for attributes that one asks for; a strict reader must know of the others, too.
std::vector<StartTag> readStartTags(std::string_view text);

}  // namespace tessera
