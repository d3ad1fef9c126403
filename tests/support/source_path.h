#pragma once

#include <string>
#include <string_view>

namespace tessera {

// The whole path of a file or folder of the checkout, which is named from its root.
std::string sourcePath(std::string_view relative);

}  // namespace tessera
