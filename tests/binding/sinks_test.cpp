#include <gtest/gtest.h>
#include <sstream>

#include "binding/data_sink.h"
#include "binding/image_sink.h"
#include "tests/binding/fake_host.h"

namespace tessera {
namespace {

using namespace test;

// Writes every call down: name, cookie, arguments.
class LoggingClient : public DataClient, public ImageClient {
 public:
  HResult SortReset(std::int32_t c) override { return log("SortReset", c); }
  HResult StructureChanged(std::int32_t c, std::int32_t v) override { return log("StructureChanged", c, v); }
  HResult RowsAdded(std::int32_t c, std::int32_t n) override { return log("RowsAdded", c, n); }
  HResult DataChanged(std::int32_t c, std::int32_t v) override { return log("DataChanged", c, v); }
  HResult CanChange(std::int32_t c, std::int32_t v, VariantBool& allowed) override {
    allowed = VARIANT_FALSE;
    return log("CanChange", c, v);
  }
  HResult CurrentRowChanged(std::int32_t c, std::int32_t r) override {
    return log("CurrentRowChanged", c, r);
  }
  HResult RowsReset(std::int32_t c) override { return log("RowsReset", c); }
  HResult Reserved(std::int32_t c, std::int32_t v) override { return log("Reserved", c, v); }
  HResult RowInserted(std::int32_t c, std::int32_t r) override { return log("RowInserted", c, r); }
  HResult RowDeleted(std::int32_t c, std::int32_t r) override { return log("RowDeleted", c, r); }
  HResult CellChanged(std::int32_t c, std::int32_t r, std::int32_t k) override {
    return log("CellChanged", c, r, k);
  }
  HResult SourceClosing(std::int32_t c, VariantBool f) override { return log("SourceClosing", c, f); }
  HResult ImageSortReset(std::int32_t c) override { return log("ImageSortReset", c); }
  HResult ImageDataChanged(std::int32_t c, std::int32_t v) override { return log("ImageDataChanged", c, v); }
  HResult ImageSourceClosing(std::int32_t c) override { return log("ImageSourceClosing", c); }

  std::string take() { return std::exchange(calls, ""); }

 private:
  template <class... Arguments>
  HResult log(const char* name, Arguments... arguments) {
    std::ostringstream text;
    text << name;
    ((text << ' ' << arguments), ...);
    calls += text.str() + "; ";
    return S_OK;
  }
  std::string calls;
};

class Sinks : public ::testing::Test {
 protected:
  Sinks() { page.objects = {first, second, images}; }
  std::shared_ptr<FakeDataSet> first = std::make_shared<FakeDataSet>(u"orders");
  std::shared_ptr<FakeDataSet> second = std::make_shared<FakeDataSet>(u"cities");
  std::shared_ptr<FakeImageSet> images = std::make_shared<FakeImageSet>(u"flags");
  FakeEnumeration page;
  FakeSite site{&page};
  LoggingClient client;
};

TEST_F(Sinks, ForwardEveryNotificationWithTheCookieInFront) {
  DataSink sink;
  ASSERT_EQ(sink.Bind(&client, &site, u"orders", 1, 7), S_OK);
  ASSERT_EQ(first->sink, &sink);
  VariantBool allowed = VARIANT_TRUE;
  first->sink->SortReset();
  first->sink->StructureChanged(1);
  first->sink->RowsAdded(2);
  first->sink->DataChanged(3);
  first->sink->CanChange(4, allowed);
  first->sink->CurrentRowChanged(5);
  first->sink->RowsReset();
  first->sink->Reserved(6);
  first->sink->RowInserted(7);
  first->sink->RowDeleted(8);
  first->sink->CellChanged(9, 10);
  first->sink->SourceClosing(VARIANT_FALSE);
  EXPECT_EQ(client.take(),
            "SortReset 7; StructureChanged 7 1; RowsAdded 7 2; DataChanged 7 3; CanChange 7 4; "
            "CurrentRowChanged 7 5; RowsReset 7; Reserved 7 6; RowInserted 7 7; RowDeleted 7 8; "
            "CellChanged 7 9 10; SourceClosing 7 0; ");
  EXPECT_EQ(allowed, VARIANT_FALSE);
}

TEST_F(Sinks, BindingAgainLeavesTheOldSourceFirst) {
  DataSink sink;
  sink.Bind(&client, &site, u"orders", 1, 1);
  sink.Bind(&client, &site, u"cities", 1, 1);
  EXPECT_EQ(first->log, "advise1 unadvise ");
  EXPECT_EQ(sink.source(), second);
  EXPECT_EQ(sink.Bind(&client, &site, u"unknown", 1, 1), S_OK);
  EXPECT_EQ(sink.source(), nullptr);
  EXPECT_EQ(second->log, "advise1 unadvise ");
}

TEST_F(Sinks, RefusedSubscriptionIsTheResult) {
  first->adviseStatus = E_FAIL;
  DataSink sink;
  EXPECT_EQ(sink.Bind(&client, &site, u"orders", 1, 1), E_FAIL);
  EXPECT_EQ(sink.source(), nullptr);
}

TEST_F(Sinks, DetachedSinksAnswerForThemselves) {
  DataSink sink;
  VariantBool allowed = VARIANT_FALSE;
  EXPECT_EQ(sink.CanChange(0, allowed), E_NOTIMPL);
  EXPECT_EQ(allowed, VARIANT_TRUE);
  EXPECT_EQ(sink.RowsReset(), E_NOTIMPL);
  sink.Bind(&client, &site, u"orders", 1, 1);
  sink.Unbind();
  EXPECT_EQ(first->log, "advise1 unadvise ");
  EXPECT_EQ(sink.SortReset(), E_NOTIMPL);
  EXPECT_EQ(client.take(), "");
  EXPECT_EQ(ImageSink().DataChanged(1), S_OK);
}

TEST_F(Sinks, ImageSinkStaysInPlaceWhenTheImageSetCloses) {
  ImageSink sink;
  sink.Bind(&client, &site, u"flags", 2);
  images->sink->SortReset();
  images->sink->DataChanged(5);
  images->sink->SourceClosing(VARIANT_FALSE);
  EXPECT_EQ(client.take(), "ImageSortReset 2; ImageDataChanged 2 5; ImageSourceClosing 2; ");
  EXPECT_EQ(sink.source(), nullptr);
  sink.Bind(&client, &site, u"flags", 2);
  EXPECT_EQ(sink.source(), images);
}

}  // namespace
}  // namespace tessera
