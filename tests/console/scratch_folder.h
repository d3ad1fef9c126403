// A folder that goes with the test.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/support/source_path.h"

namespace tessera {

// The working folder of the process while it lives, at the start with a copy of the test forms.
class ScratchFolder {
 public:
  ScratchFolder() : before_(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "tessera-console-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    path_ = name;
    std::filesystem::copy(sourcePath("tests/console/forms"), path_, std::filesystem::copy_options::recursive);
    std::filesystem::current_path(path_);
  }
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::current_path(before_, error);
    std::filesystem::remove_all(path_, error);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  void write(const std::string& name, std::string_view text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
  }

 private:
  std::filesystem::path before_;
  std::filesystem::path path_;
};

}  // namespace tessera
