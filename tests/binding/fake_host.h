// A host page with data sets and image sets that do nothing but remember.

#pragma once

#include <map>
#include <string>
#include <vector>

#include <tessera/hosting.h>

#include "binding/data_client.h"
#include "tests/support/fake_image_set.h"
#include "tests/support/null_data_set.h"

namespace tessera::test {

class FakeDataSet : public NullDataSet {
 public:
  explicit FakeDataSet(std::u16string_view name) : id(name) {}
  void GetID(XString& value) override { value = id; }
  HResult Advise(DataSetNotifications* subscriber, std::int32_t flag) override {
    log += "advise" + std::to_string(flag) + " ";
    if (adviseStatus == S_OK) sink = subscriber;
    return adviseStatus;
  }
  void Unadvise(DataSetNotifications*) override {
    log += "unadvise ";
    sink = nullptr;
  }

  XString id;
  HResult adviseStatus = S_OK;
  DataSetNotifications* sink = nullptr;
  std::string log;
};

class FakeElement : public HtmlElement {
 public:
  FakeElement(std::u16string_view id, std::shared_ptr<Component> object)
      : id_(id), object_(std::move(object)) {}
  XString id() const override { return id_; }
  std::shared_ptr<Component> object() const override { return object_; }

 private:
  XString id_;
  std::shared_ptr<Component> object_;
};

class FakeDocument : public Container, public HtmlDocument {
 public:
  std::int32_t length() const override { return static_cast<std::int32_t>(items.size()); }
  std::shared_ptr<Component> item(std::int32_t index) const override {
    return items[static_cast<std::size_t>(index)];
  }
  std::vector<std::shared_ptr<Component>> items;
};

class FakeItems : public Container, public ItemContainer {
 public:
  std::shared_ptr<Component> getObject(const XString& id) const override {
    const auto found = objects.find(std::u16string(id.view()));
    return found == objects.end() ? nullptr : found->second;
  }
  std::map<std::u16string, std::shared_ptr<Component>> objects;
};

class FakeEnumeration : public Container, public ObjectEnumerator {
 public:
  std::vector<std::shared_ptr<Component>> enumObjects() const override { return objects; }
  std::vector<std::shared_ptr<Component>> objects;
};

// Hears everything and does nothing.
struct QuietClient : DataClient, ImageClient {
  HResult SortReset(std::int32_t) override { return S_OK; }
  HResult StructureChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowsAdded(std::int32_t, std::int32_t) override { return S_OK; }
  HResult DataChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult CanChange(std::int32_t, std::int32_t, VariantBool&) override { return S_OK; }
  HResult CurrentRowChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowsReset(std::int32_t) override { return S_OK; }
  HResult Reserved(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowInserted(std::int32_t, std::int32_t) override { return S_OK; }
  HResult RowDeleted(std::int32_t, std::int32_t) override { return S_OK; }
  HResult CellChanged(std::int32_t, std::int32_t, std::int32_t) override { return S_OK; }
  HResult SourceClosing(std::int32_t, VariantBool) override { return S_OK; }
  HResult ImageSortReset(std::int32_t) override { return S_OK; }
  HResult ImageDataChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult ImageSourceClosing(std::int32_t) override { return S_OK; }
};

class FakeSite : public ClientSite {
 public:
  explicit FakeSite(Container* container) : container_(container) {}
  Container* container() override { return container_; }
  std::optional<AmbientFont> ambientFont() override { return std::nullopt; }
  XValue ambientCodePage() override { return {}; }

 private:
  Container* container_;
};

}  // namespace tessera::test
