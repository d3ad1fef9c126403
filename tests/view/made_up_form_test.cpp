#include <gtest/gtest.h>
#include <string>

#include "components/data_set_fixture.h"
#include "components/sqlite_handle.h"
#include "view/view_fixture.h"

namespace tessera {
namespace {

// A number that is cut at its left end would show another number.
TEST(MadeUpForm, IsWideEnoughForRowsBeyondTheFirstPages) {
  const TempFolder folder;
  const auto widthOf = [&](const std::string& first, const std::string& last) {
    std::string text = "N\n" + first + '\n';
    for (int row = 0; row < 5000; ++row) text += std::to_string(row % 10) + '\n';
    const std::string name = folder.write("rows.csv", text + last + '\n');
    const Rect rect = testing::OpenGrid(name).grid().parts().config.columns.begin()->view.rect;
    return rect.width();
  };
  EXPECT_EQ(widthOf("1", "123456789"), widthOf("123456789", "1"));
  EXPECT_GT(widthOf("1", "123456789"), widthOf("1", "123456"));
}

// Names of databases and of tables may both have colons.
TEST(MadeUpForm, OfATableWhoseNameHasAColon) {
  const TempFolder folder;
  for (const char* const file : {"shop.db", "odd:name.db"}) {
    SqliteDatabase database;
    ASSERT_TRUE(database.open(folder.write(file, ""), true));
    ASSERT_TRUE(database.run("CREATE TABLE a(first); CREATE TABLE \"a:b\"(both); CREATE TABLE b(right)"));
  }
  for (const std::string file : {"shop.db", "odd:name.db"})
    for (const auto& [name, first] : {std::pair{"", "first"}, {":a:b", "both"}, {":b", "right"}}) {
      const auto opened = openForm(folder.file(file) + name);
      ASSERT_TRUE(opened) << name << opened.error().message();
      XString column;
      opened->components.dataSets.front().rows->GetColumnName(1, column);
      EXPECT_EQ(column.toUtf8(), first) << file << name;
    }
}

}  // namespace
}  // namespace tessera
