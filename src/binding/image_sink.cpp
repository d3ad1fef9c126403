#include "binding/image_sink.h"

#include <utility>

#include "binding/component_locator.h"

namespace tessera {

ImageSink::~ImageSink() { Unbind(); }

HResult ImageSink::Bind(ImageClient* client, ClientSite* site, const XString& id, std::int32_t cookie) {
  client_ = client;
  id_ = id;
  cookie_ = cookie;
  leaveSource();
  if (!client_) return S_OK;
  const auto found = locateImageSet(site, id_);
  source_ = found;
  if (!found) return S_OK;
  const HResult status = found->Advise(this);
  if (!succeeded(status) && source_ == found) source_.reset();
  return status;
}

void ImageSink::Unbind() {
  leaveSource();
  client_ = nullptr;
}

void ImageSink::leaveSource() {
  if (const auto source = std::exchange(source_, nullptr)) source->Unadvise(this);
}

HResult ImageSink::SortReset() { return client_ ? client_->ImageSortReset(cookie_) : S_OK; }

HResult ImageSink::DataChanged(std::int32_t value) {
  return client_ ? client_->ImageDataChanged(cookie_, value) : S_OK;
}

// The sink stays in place, unbound: the next Bind starts afresh.
HResult ImageSink::SourceClosing(VariantBool) {
  leaveSource();
  return client_ ? client_->ImageSourceClosing(cookie_) : S_OK;
}

}  // namespace tessera
