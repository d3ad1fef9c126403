// Whole files: reading, replacing, and what a failure leaves behind.

#include "backends/native/files.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <span>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tessera {
namespace {

namespace fs = std::filesystem;

FileBytes bytesOf(const std::string& text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

class FilesTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("tessera-files-" + std::to_string(getpid()));
    fs::remove_all(folder_);
    fs::create_directory(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (const auto& each : fs::directory_iterator(folder_)) result.push_back(each.path().filename());
    std::sort(result.begin(), result.end());
    return result;
  }

  fs::path folder_;
};

std::string readText(const fs::path& path) {
  const FileResult result = readFile(path);
  if (const auto* error = std::get_if<FileError>(&result)) return "error: " + error->reason;
  const FileBytes& bytes = std::get<FileBytes>(result);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST_F(FilesTest, RoundTrips) {
  for (const std::size_t size : {0u, 1u, 65'535u, 65'536u, 65'537u, 3'000'000u}) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i * 31 % 257);
    ASSERT_FALSE(writeFileBeside(folder_ / "file", bytesOf(text)).has_value());
    EXPECT_TRUE(readText(folder_ / "file") == text) << size;
  }
  EXPECT_EQ(names(), std::vector<std::string>{"file"});
}

TEST_F(FilesTest, PipesAreReadToTheirEnd) {
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string text(300'000, 'p');
  std::thread writer([&] {
    FILE* out = std::fopen(pipe.c_str(), "w");
    std::fwrite(text.data(), 1, text.size(), out);
    std::fclose(out);
  });
  EXPECT_TRUE(readText(pipe) == text);
  writer.join();
}

TEST_F(FilesTest, ReplacingKeepsPermissionsAndLinks) {
  const fs::path file = folder_ / "file";
  ASSERT_FALSE(writeFileBeside(file, bytesOf("old")).has_value());
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  fs::create_symlink("file", folder_ / "link");
  ASSERT_FALSE(writeFileBeside(folder_ / "link", bytesOf("new")).has_value());
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(readText(file), "new");
  EXPECT_EQ(fs::status(file).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
  EXPECT_EQ(names(), (std::vector<std::string>{"file", "link"}));
}

TEST_F(FilesTest, NewFilesFollowTheMask) {
  const mode_t old = umask(027);
  const auto error = writeFileBeside(folder_ / "file", bytesOf("x"));
  umask(old);
  ASSERT_FALSE(error.has_value());
  EXPECT_EQ(static_cast<int>(fs::status(folder_ / "file").permissions()), 0640);
}

// Who has the old file open goes on reading the old bytes.
TEST_F(FilesTest, ReadersSeeTheOldFile) {
  const fs::path file = folder_ / "file";
  ASSERT_FALSE(writeFileBeside(file, bytesOf("old")).has_value());
  FILE* reader = std::fopen(file.c_str(), "r");
  ASSERT_TRUE(reader);
  ASSERT_FALSE(writeFileBeside(file, bytesOf("new")).has_value());
  char text[8] = {};
  EXPECT_EQ(std::fread(text, 1, sizeof text, reader), 3u);
  std::fclose(reader);
  EXPECT_STREQ(text, "old");
}

TEST_F(FilesTest, Failures) {
  const fs::path missing = folder_ / "none" / "file";
  const FileResult result = readFile(missing);
  ASSERT_TRUE(std::holds_alternative<FileError>(result));
  EXPECT_EQ(std::get<FileError>(result).path, missing);
  EXPECT_EQ(readText(missing), "error: No such file or directory");
  EXPECT_EQ(readText(folder_), "error: Is a directory");

  const auto error = writeFileBeside(missing, bytesOf("x"));
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->path, missing);
  EXPECT_EQ(error->reason, "No such file or directory");

  fs::create_directory(folder_ / "taken");
  EXPECT_TRUE(writeFileBeside(folder_ / "taken", bytesOf("x")).has_value());
  EXPECT_EQ(names(), std::vector<std::string>{"taken"});
}

}  // namespace
}  // namespace tessera
