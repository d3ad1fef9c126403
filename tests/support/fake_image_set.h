// An image set in memory for tests.

#pragma once

#include <map>
#include <memory>
#include <string>

#include <tessera/image_set_control.h>

#include "binding/data_link.h"

namespace tessera {

class FakeImageSet : public ImageSetControl, public PictureSource {
 public:
  explicit FakeImageSet(std::u16string_view name = u"images") : id(name) {}

  XString id;
  ImageSetNotifications* sink = nullptr;
  std::map<std::string, Picture> pictures;
  std::string asked;  // each key with a blank behind it

  // A picture of one colour.
  void add(const std::string& key, std::int32_t width, std::int32_t height);

  HResult Advise(ImageSetNotifications* subscriber) override {
    sink = subscriber;
    return S_OK;
  }
  void Unadvise(ImageSetNotifications*) override { sink = nullptr; }
  void GetID(XString& value) override { value = id; }
  void GetImage(const std::string& key, Answer answer) override;
};

// Binds `link` to `imageSet`, whose notifications nobody hears.
void bindTo(DataLink& link, std::shared_ptr<ImageSetControl> imageSet);

}  // namespace tessera
