#include "platform/picture_loader.h"
#include "tests/control/control_fixture.h"
#include "tests/support/fake_image_set.h"
#include "tests/support/recording_canvas.h"

namespace tessera {
namespace {

using namespace test;

// Answers when the test says so.
class LateImages : public FakeImageSet {
 public:
  void GetImage(const std::string& key, Answer answer) override { answers[key] = std::move(answer); }

  std::map<std::string, Answer> answers;
};

class LateHttp : public HttpClient, public PictureLoader {
 public:
  void get(const std::string&, HttpClient::Answer answer) override { body = std::move(answer); }
  void load(std::vector<std::byte>, PictureLoader::Answer answer) override { picture = std::move(answer); }

  HttpClient::Answer body;
  PictureLoader::Answer picture;
};

class LatePictures : public ControlTest {
 protected:
  std::size_t picturesPainted() {
    RecordingCanvas canvas(window.size);
    control.onDraw(canvas);
    return canvas.linesOf("blit").size();
  }
};

TEST_F(LatePictures, ShowWhenTheyComeAndOnlyThoseOfShownRowsAreAskedFor) {
  const auto data = addData(100);
  for (std::int32_t row = 1; row <= 100; ++row) data->SetValue(row, 2, XValue::ofText(u"k"));
  for (std::int32_t row = 1; row <= 10; ++row) data->SetValue(row, 2, XValue::ofText(row < 3 ? u"a" : u"b"));
  const auto images = std::make_shared<LateImages>();
  site.objects["images"] = images;
  control.put_ImageDataID(u"images");
  control.put_DataID(u"data");
  control.put_ColumnInfo(
      u"<GRID><COLUMN id='b' refcolid='B'><VIEW right='80' bottom='20'/><CHILD "
      u"type='image'/></COLUMN></GRID>");
  control.windowCreated(window);
  EXPECT_EQ(picturesPainted(), 0u);
  ASSERT_EQ(images->answers.size(), 2u);
  const int repaints = window.repaints;
  images->answers["a"]({2, 2, std::vector<std::uint32_t>(4, 0xFF112233)});
  EXPECT_EQ(window.repaints, repaints + 1);
  EXPECT_EQ(picturesPainted(), 2u);
  EXPECT_EQ(images->answers.size(), 2u);
  const auto late = images->answers["b"];
  control.put_ImageDataID(u"");
  late({2, 2, std::vector<std::uint32_t>(4, 0xFF112233)});
  EXPECT_EQ(picturesPainted(), 0u);
}

TEST_F(LatePictures, ABackgroundIsInForceFromItsPictureOn) {
  LateHttp net;
  addData(3);
  auto grid = std::make_unique<Tessera>(Ports{documents, &net, &net});
  grid->setClientSite(&site);
  grid->put_BackgroundInfo(u"<B imagepath='http://x/' backimage='true'/>");
  grid->put_DataID(u"data");
  grid->put_ColumnInfo(twoColumns);
  grid->windowCreated(window);
  net.body({std::byte{1}});
  EXPECT_FALSE(grid->parts().config.background.imageHandle);
  EXPECT_EQ(grid->parts().config.background.imageMode, image_mode::solid);
  const int repaints = window.repaints;
  net.picture(std::make_shared<Bitmap>(1, 1));
  EXPECT_TRUE(grid->parts().config.background.imageHandle);
  EXPECT_NE(grid->parts().config.background.imageMode, image_mode::solid);
  EXPECT_EQ(window.repaints, repaints + 1);
  grid->windowDestroyed();
  grid.reset();
  net.picture(std::make_shared<Bitmap>(1, 1));
  net.body({std::byte{1}});
}

}  // namespace
}  // namespace tessera
