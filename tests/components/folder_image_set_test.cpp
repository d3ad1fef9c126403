#include "components/folder_image_set.h"

#include <gtest/gtest.h>
#include <string>

#include "components/data_set_fixture.h"

namespace tessera {
namespace {

using testing::TempFolder;

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
    std::filesystem::create_directory(folder_.file("flags"));
    folder_.write("secret.png", "PX");
    folder_.write("flags/de.png", "PA");
    folder_.write("flags/Fr.gif", "PB");
    folder_.write("flags/two.txt", "no picture");
    folder_.write("flags/two.zip", "PC");
    folder_.write("flags/a.b.png", "PD");
    folder_.write("flags/.hidden.png", "PE");
    folder_.write("flags/empty.png", "");
    std::filesystem::create_directory(folder_.file("flags/sub.png"));
    folder_.write("flags/sub.png/in.png", "PF");
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
  XString id;
  set.GetID(id);
  EXPECT_EQ(id, u"flags");
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

TEST_F(FolderImageSetTest, AFolderThatIsNotThere) {
  FolderImageSet set("flags", folder_.file("none"), onePixel);
  EXPECT_EQ(set.fault(), "No such file or directory");
  EXPECT_EQ(pixel(set, "de"), 0);
}

}  // namespace
}  // namespace tessera
