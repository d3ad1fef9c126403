// Whole files: reading, replacing, and what a failure leaves behind.

#include "backends/native/files.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <span>
#include <sys/stat.h>
#include <thread>

#include "tests/support/temp_folder.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  // What went wrong; empty: nothing.
  std::string write(const fs::path& path, const std::string& text) {
    const auto bytes = std::as_bytes(std::span(text));
    const auto error = writeFileBeside(path, {bytes.begin(), bytes.end()});
    EXPECT_TRUE(!error || error->path == path);
    return error ? error->reason : "";
  }
  std::string read(const fs::path& path) {
    const FileResult result = readFile(path);
    if (const auto* error = std::get_if<FileError>(&result))
      return error->path.string() + ": " + error->reason;
    const FileBytes& bytes = std::get<FileBytes>(result);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  const TempFolder folder;
  const fs::path file = folder.file("file");
};

TEST_F(FilesTest, RoundTrips) {
  for (const std::size_t size : {0u, 1u, 65'535u, 65'536u, 65'537u, 3'000'000u}) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>(i * 31 % 257);
    ASSERT_EQ(write(file, text), "");
    EXPECT_TRUE(read(file) == text) << size;
  }
  EXPECT_EQ(folder.names(), "file ");
}

TEST_F(FilesTest, PipesAreReadToTheirEnd) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  const std::string text(300'000, 'p');
  std::thread writer([&] { std::ofstream(file) << text; });
  EXPECT_TRUE(read(file) == text);
  writer.join();
}

// New files follow the mask, old ones keep their permissions. Who has the old file open goes on reading it.
TEST_F(FilesTest, ReplacingKeepsPermissionsLinksAndReaders) {
  const mode_t mask = umask(027);
  EXPECT_EQ(write(file, "old"), "");
  EXPECT_EQ(static_cast<int>(fs::status(file).permissions()), 0640);
  umask(0);
  fs::create_symlink("file", folder.file("link"));
  std::ifstream reader(file);
  EXPECT_EQ(write(folder.file("link"), "new"), "");
  umask(mask);
  std::string seen;
  reader >> seen;
  EXPECT_EQ(seen + read(file), "oldnew");
  EXPECT_TRUE(fs::is_symlink(folder.file("link")));
  EXPECT_EQ(static_cast<int>(fs::status(file).permissions()), 0640);
}

TEST_F(FilesTest, Failures) {
  const std::string missing = folder.file("none/file"), taken = folder.file("taken");
  EXPECT_EQ(read(missing), missing + ": No such file or directory");
  EXPECT_EQ(read(folder.file(".")), folder.file(".") + ": Is a directory");
  EXPECT_EQ(write(missing, "x"), "No such file or directory");
  fs::create_directory(taken);
  EXPECT_NE(write(taken, "x"), "");
  EXPECT_EQ(folder.names(), "taken ");
}

}  // namespace
}  // namespace tessera
