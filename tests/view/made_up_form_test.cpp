#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "view/view_fixture.h"

namespace tessera {
namespace {

// A number that is cut at its left end would show another number.
TEST(MadeUpForm, IsWideEnoughForRowsBeyondTheFirstPages) {
  const auto folder = std::filesystem::temp_directory_path();
  const auto widthOf = [&](const std::string& first, const std::string& last) {
    std::string name = (folder / "tessera-XXXXXX.csv").string();
    const int file = mkstemps(name.data(), 4);
    EXPECT_GE(file, 0);
    std::ofstream out(name);
    out << "N\n" << first << '\n';
    for (int row = 0; row < 5000; ++row) out << row % 10 << '\n';
    out << last << '\n';
    out.close();
    const Rect rect = testing::OpenGrid(name).grid().parts().config.columns.begin()->view.rect;
    std::filesystem::remove(name);
    return rect.width();
  };
  EXPECT_EQ(widthOf("1", "123456789"), widthOf("123456789", "1"));
  EXPECT_GT(widthOf("1", "123456789"), widthOf("1", "123456"));
}

}  // namespace
}  // namespace tessera
