// Writes a file beside the old one and puts it in the old one's place.

#pragma once

#include <cstddef>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "components/load_error.h"

namespace tessera {

// Until commit() succeeded the old file stays as it is; without a commit the new one is taken away again.
class FileReplacement {
 public:
  explicit FileReplacement(std::string path);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  void write(std::string_view bytes);
  // Nothing: the file is in place. Tells of any fault since the beginning.
  std::optional<LoadError> commit();

 private:
  std::optional<LoadError> fault(const char* what);

  std::string path_;
  std::string target_;  // what `path` leads to, so that a link stays a link
  std::string beside_;
  std::ofstream out_;
  bool done_ = false;
};

}  // namespace tessera
