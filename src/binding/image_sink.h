// The subscription to an image set.

#pragma once

#include <memory>

#include <tessera/hosting.h>
#include <tessera/image_set_control.h>

#include "binding/data_client.h"

namespace tessera {

// As DataSink, for an image set. Without a client every notification answers S_OK.
class ImageSink : public ImageSetNotifications {
 public:
  ImageSink() = default;
  ~ImageSink() override;
  ImageSink(const ImageSink&) = delete;
  ImageSink& operator=(const ImageSink&) = delete;

  HResult Bind(ImageClient* client, ClientSite* site, const XString& id, std::int32_t cookie);
  void Unbind();

  const std::shared_ptr<ImageSetControl>& source() const { return source_; }

  HResult SortReset() override;
  HResult DataChanged(std::int32_t value) override;
  HResult SourceClosing(VariantBool flag) override;

 private:
  void leaveSource();

  ImageClient* client_ = nullptr;
  XString id_;
  std::int32_t cookie_ = 0;
  std::shared_ptr<ImageSetControl> source_;
};

}  // namespace tessera
