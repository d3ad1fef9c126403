#include "components/folder_image_set.h"

#include <gtest/gtest.h>
#include <string>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

// Takes "P" and one character as a picture of one pixel of that colour.
BitmapRef onePixel(std::span<const std::byte> bytes) {
  if (bytes.size() != 2 || bytes[0] != std::byte{'P'}) return nullptr;
  return std::make_shared<Bitmap>(1, 1, std::to_integer<std::uint32_t>(bytes[1]));
}

class ImageSink : public ImageSetNotifications {
 public:
  std::string notes;
  HResult SortReset() override { return notes += "S", S_OK; }
  HResult DataChanged(std::int32_t) override { return notes += "D", S_OK; }
  HResult SourceClosing(VariantBool flag) override { return notes += flag ? "?" : "C", S_OK; }
};

class FolderImageSetTest : public ::testing::Test {
 protected:
  FolderImageSetTest() {
    for (const char* each : {"flags", "flags/sub.png"}) std::filesystem::create_directory(folder_.file(each));
    const std::pair<const char*, const char*> files[] = {
        {"secret.png", "PX"},    {"flags/de.png", "PA"},      {"flags/Fr.gif", "PB"},
        {"flags/two.txt", "no"}, {"flags/two.zip", "PC"},     {"flags/a.b.png", "PD"},
        {"flags/empty.png", ""}, {"flags/.hidden.png", "PE"}, {"flags/sub.png/in.png", "PF"}};
    for (const auto& [name, bytes] : files) folder_.write(name, bytes);
  }
  // The pixel as a character; 0 for no picture.
  char pixel(FolderImageSet& set, const std::string& key) {
    char found = 0;
    set.GetImage(key, [&found](const Picture& picture) {
      EXPECT_EQ(static_cast<std::size_t>(picture.width * picture.height), picture.pixels.size());
      if (picture.width == 1) found = static_cast<char>(picture.pixels.at(0));
    });
    return found;
  }

  TempFolder folder_;
};

TEST_F(FolderImageSetTest, KeysAreFileNames) {
  FolderImageSet set("flags", folder_.file("flags"), onePixel);
  const std::pair<const char*, char> cases[] = {
      {"de", 'A'},   {"Fr", 'B'},       {"fr", 0},         {"two", 'C'}, {"a.b", 'D'},    {"a", 0},
      {"de.png", 0}, {".hidden", 0},    {"empty", 0},      {"sub", 0},   {"", 0},         {"../secret", 0},
      {"..", 0},     {"sub.png/in", 0}, {"..\\secret", 0}, {"./de", 0},  {"flags/de", 0},
  };
  for (const auto& [key, expected] : cases) EXPECT_EQ(pixel(set, key), expected) << key;
  EXPECT_EQ(FolderImageSet("flags", folder_.file("none"), onePixel).fault(), "No such file or directory");
}

TEST_F(FolderImageSetTest, NotificationsAndReload) {
  ImageSink sink;
  {
    FolderImageSet set("flags", folder_.file("flags"), onePixel);
    set.Advise(&sink);
    folder_.write("flags/new.png", "PN");
    EXPECT_EQ(pixel(set, "new"), 0);
    set.reload();
    EXPECT_EQ(pixel(set, "new"), 'N');
    set.close();
    EXPECT_EQ(set.Advise(&sink), E_FAIL);
  }
  EXPECT_EQ(sink.notes, "DC");
}

}  // namespace
}  // namespace tessera
