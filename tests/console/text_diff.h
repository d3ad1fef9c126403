// The difference of two texts, line by line.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessera {

std::vector<std::string> splitLines(std::string_view text);

// Lines in the unified form, with three lines of context; empty for equal texts.
std::string unifiedDiff(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

}  // namespace tessera
