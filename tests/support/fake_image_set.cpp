#include "support/fake_image_set.h"

#include "support/one_object_site.h"

namespace tessera {
namespace {

class SilentClient : public ImageClient {
 public:
  HResult ImageSortReset(std::int32_t) override { return S_OK; }
  HResult ImageDataChanged(std::int32_t, std::int32_t) override { return S_OK; }
  HResult ImageSourceClosing(std::int32_t) override { return S_OK; }
};

}  // namespace

void FakeImageSet::add(const std::string& key, std::int32_t width, std::int32_t height) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  pictures[key] = {width, height, std::vector<std::uint32_t>(count, 0xFF336699)};
}

void FakeImageSet::GetImage(const std::string& key, Answer answer) {
  asked += key + " ";
  const auto found = pictures.find(key);
  answer(found == pictures.end() ? Picture() : found->second);
}

void bindTo(DataLink& link, std::shared_ptr<ImageSetControl> imageSet) {
  static SilentClient client;
  OneObjectSite site(std::move(imageSet));
  link.bindImageSet(client, &site, XString(u"images"));
}

}  // namespace tessera
