#include "tests/support/source_path.h"

namespace tessera {

std::string sourcePath(std::string_view relative) {
  return std::string(TESSERA_SOURCE_DIR "/").append(relative);
}

}  // namespace tessera
