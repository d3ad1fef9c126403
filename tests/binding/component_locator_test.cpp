#include "binding/component_locator.h"

#include <gtest/gtest.h>

#include "tests/binding/fake_host.h"

namespace tessera {
namespace {

using namespace test;

class ComponentLocator : public ::testing::Test {
 protected:
  std::shared_ptr<FakeDataSet> first = std::make_shared<FakeDataSet>(u"orders");
  std::shared_ptr<FakeDataSet> second = std::make_shared<FakeDataSet>(u"cities");
  std::shared_ptr<FakeImageSet> images = std::make_shared<FakeImageSet>(u"flags");

  static std::shared_ptr<Component> element(std::u16string_view id, std::shared_ptr<Component> object) {
    return std::make_shared<FakeElement>(id, std::move(object));
  }
  static DataSetControl* find(Container* container, const char16_t* id, bool enumerate = true) {
    FakeSite site(container);
    return locateDataSet(&site, id, enumerate).get();
  }
};

TEST_F(ComponentLocator, DocumentsAreSearchedByElementId) {
  FakeDocument document;
  document.items = {nullptr,
                    first,
                    element(u"title", nullptr),
                    element(u"Orders", first),
                    element(u"cities", nullptr),
                    element(u"cities", second),
                    element(u"flags", images)};
  EXPECT_EQ(find(&document, u"ORDERS"), first.get());
  EXPECT_EQ(find(&document, u"cities"), nullptr);  // the first element with the id decides
  EXPECT_EQ(find(&document, u"flags"), nullptr);   // another kind of component
  EXPECT_EQ(find(&document, u"nothing"), nullptr);
  EXPECT_EQ(find(&document, u"orders", false), first.get());
  FakeSite site(&document);
  EXPECT_EQ(locateImageSet(&site, u"flags").get(), images.get());
}

TEST_F(ComponentLocator, OnlyAsciiCaseIsIgnored) {
  FakeDocument document;
  document.items = {element(u"\u00C4rger", first)};
  EXPECT_EQ(find(&document, u"\u00C4RGER"), first.get());
  EXPECT_EQ(find(&document, u"\u00E4rger"), nullptr);
}

TEST_F(ComponentLocator, ItemContainersAreAskedByName) {
  FakeItems items;
  items.objects = {{u"orders", first}, {u"flags", images}};
  EXPECT_EQ(find(&items, u"orders", false), first.get());
  EXPECT_EQ(find(&items, u"Orders"), nullptr);  // the container's own comparison
  EXPECT_EQ(find(&items, u"flags"), nullptr);
}

TEST_F(ComponentLocator, OtherContainersAreEnumeratedForSubscribersOnly) {
  FakeEnumeration enumeration;
  enumeration.objects = {images, second, first, std::make_shared<FakeDataSet>(u"orders")};
  EXPECT_EQ(find(&enumeration, u"Orders"), first.get());
  EXPECT_EQ(find(&enumeration, u"orders", false), nullptr);
}

// A container that could answer by a later route is not asked: the first route that applies is final.
TEST_F(ComponentLocator, RoutesAreFinal) {
  struct Both : FakeDocument, ItemContainer {
    std::shared_ptr<Component> getObject(const XString&) const override { return object; }
    std::shared_ptr<Component> object;
  } both;
  both.object = first;
  EXPECT_EQ(find(&both, u"orders"), nullptr);
}

TEST_F(ComponentLocator, NothingToSearch) {
  Container plain;
  EXPECT_EQ(find(&plain, u"orders"), nullptr);
  EXPECT_EQ(find(nullptr, u"orders"), nullptr);
  EXPECT_EQ(locateDataSet(nullptr, u"orders", true), nullptr);
  FakeDocument document;
  document.items = {element(u"", first)};
  EXPECT_EQ(find(&document, u""), nullptr);
}

}  // namespace
}  // namespace tessera
