// Pictures may come long after they were asked for, also when nobody waits for them any more.

#include <gtest/gtest.h>

#include "backends/headless/headless_window.h"
#include "backends/native/xml_document_reader.h"
#include "control/tessera.h"
#include "platform/picture_loader.h"
#include "support/fake_data_set.h"
#include "support/fake_image_set.h"
#include "support/one_object_site.h"

namespace tessera {
namespace {

// A network and an image set that answer when the test says so.
struct Late : HttpClient, PictureLoader, FakeImageSet {
  void get(const std::string&, HttpClient::Answer answer) override { body = std::move(answer); }
  void load(std::vector<std::byte>, PictureLoader::Answer answer) override { picture = std::move(answer); }
  void GetImage(const std::string& key, FakeImageSet::Answer answer) override {
    images[key] = std::move(answer);
  }
  HttpClient::Answer body;
  PictureLoader::Answer picture;
  std::map<std::string, FakeImageSet::Answer> images;
};

const std::vector<std::uint32_t> blue(4, 0xFF112233);

TEST(LatePictures, ShowWhenTheyComeAndOnlyThoseOfShownRowsAreAskedFor) {
  auto data = std::make_shared<FakeDataSet>(std::vector<XString>{u"A"}, std::vector(100, std::vector{u"-"}));
  for (std::size_t i = 0; i < 10; ++i) data->rows[i].values[0] = XValue::ofText(i < 2 ? u"a" : u"b");
  const auto late = std::make_shared<Late>();
  OneObjectSite dataSite(data), imageSite(late);
  XmlDocumentReader documents;
  int paints = 0;
  auto grid = std::make_unique<Tessera>(Ports{documents, late.get(), late.get()});
  HeadlessWindow window({200, 120}, [&](Canvas& canvas) { ++paints, grid->onDraw(canvas); });
  const auto shown = [&] { return std::ranges::count(window.canvas().snapshot().pixels, blue.front()); };
  grid->setClientSite(&imageSite);
  grid->put_BackgroundInfo(u"<B imagepath='http://x/' backimage='true'/>");
  grid->put_ImageDataID(u"images");
  grid->setClientSite(&dataSite);
  grid->put_DataID(u"data");
  grid->put_ColumnInfo(
      u"<G><COLUMN id='b' refcolid='A'><VIEW right='80' bottom='20'/><CHILD type='image'/></COLUMN></G>");
  grid->windowCreated(window);
  paints = 0;
  ASSERT_EQ(late->images.size(), 2u);
  late->images["a"]({2, 2, blue});
  late->body({std::byte{1}});
  EXPECT_EQ(paints, 1);
  EXPECT_GT(shown(), 0);
  EXPECT_FALSE(grid->parts().config.background.imageHandle);
  late->picture(std::make_shared<Bitmap>(1, 1));
  EXPECT_EQ(paints, 2);
  EXPECT_TRUE(grid->parts().config.background.imageHandle);
  grid->put_ImageDataID(u"");
  late->images["b"]({2, 2, blue});
  window.paint();
  EXPECT_EQ(shown(), 0);
  grid->windowDestroyed();
  grid.reset();
  late->body({std::byte{1}});
  late->picture(std::make_shared<Bitmap>(1, 1));
}

}  // namespace
}  // namespace tessera
