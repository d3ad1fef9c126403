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

// Answers when the test says so.
struct LateNet : HttpClient, PictureLoader {
  void get(const std::string&, HttpClient::Answer answer) override { body = std::move(answer); }
  void load(std::vector<std::byte>, PictureLoader::Answer answer) override { picture = std::move(answer); }
  HttpClient::Answer body;
  PictureLoader::Answer picture;
};
struct LateImages : FakeImageSet {
  void GetImage(const std::string& key, Answer answer) override { answers[key] = std::move(answer); }
  std::map<std::string, Answer> answers;
};
TEST(LatePictures, ShowWhenTheyComeAndOnlyThoseOfShownRowsAreAskedFor) {
  constexpr std::uint32_t cell = 0xFF112233;
  auto data =
      std::make_shared<FakeDataSet>(std::vector<XString>{u"A"}, std::vector(100, std::vector{u"hidden"}));
  for (std::size_t row = 0; row < 10; ++row)
    data->rows[row].values[0] = XValue::ofText(row < 2 ? u"a" : u"b");
  const auto images = std::make_shared<LateImages>();
  OneObjectSite dataSite(data), imageSite(images);
  XmlDocumentReader documents;
  LateNet net;
  int paints = 0;
  auto grid = std::make_unique<Tessera>(Ports{documents, &net, &net});
  HeadlessWindow window({200, 120}, [&](Canvas& canvas) { ++paints, grid->onDraw(canvas); });
  const auto shown = [&] { return std::ranges::count(window.canvas().snapshot().pixels, cell); };
  grid->setClientSite(&imageSite);
  grid->put_BackgroundInfo(u"<B imagepath='http://x/' backimage='true'/>");
  grid->put_ImageDataID(u"images");
  grid->setClientSite(&dataSite);
  grid->put_DataID(u"data");
  grid->put_ColumnInfo(
      u"<GRID><COLUMN id='b' refcolid='A'><VIEW right='80' bottom='20'/><CHILD "
      u"type='image'/></COLUMN></GRID>");
  grid->windowCreated(window);
  window.paint();
  ASSERT_EQ(images->answers.size(), 2u);
  paints = 0;
  images->answers["a"]({2, 2, std::vector(4, cell)});
  net.body({std::byte{1}});
  EXPECT_EQ(paints, 1);
  EXPECT_GT(shown(), 0);
  EXPECT_FALSE(grid->parts().config.background.imageHandle);
  net.picture(std::make_shared<Bitmap>(1, 1));
  EXPECT_EQ(paints, 2);
  EXPECT_TRUE(grid->parts().config.background.imageHandle);
  grid->put_ImageDataID(u"");
  images->answers["b"]({2, 2, std::vector(4, cell)});
  EXPECT_EQ(shown(), 0);
  grid->windowDestroyed();
  grid.reset();
  net.picture(std::make_shared<Bitmap>(1, 1));
}

}  // namespace
}  // namespace tessera
