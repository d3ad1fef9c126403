#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tessera {

// A folder that goes with the test.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessera-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) std::abort();
    path_ = pattern;
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string file(std::string_view name) const { return (path_ / name).string(); }
  std::string write(std::string_view name, std::string_view bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
  }
  std::string read(std::string_view name) const {
    std::ifstream in(file(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // The names of all in it, in no order, each with a blank behind it.
  std::string names() const {
    std::string all;
    for (const auto& each : std::filesystem::directory_iterator(path_))
      all += each.path().filename().string() + " ";
    return all;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tessera
