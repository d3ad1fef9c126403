// An image set over the picture files of a folder.

#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <tessera/image_set_control.h>

#include "components/sink_list.h"
#include "platform/picture_loader.h"

namespace tessera {

// The key of a picture is its file name without the ending, letters as written, in the narrow text of whoever
// asks. Of several files with one key the first by name counts that the loader can read. Only files in the
// folder itself are reached. The folder is listed when the set is made and by reload().
class FolderImageSet final : public ImageSetControl, public PictureSource {
 public:
  using Narrow = std::function<std::string(std::u16string_view text)>;

  // `loader` is borrowed and must outlive the set. A folder that cannot be listed holds no pictures. Without
  // `narrow` keys are UTF-8.
  FolderImageSet(std::string id, std::filesystem::path folder, PictureLoader& loader, Narrow narrow = {});
  ~FolderImageSet() override;
  FolderImageSet(const FolderImageSet&) = delete;
  FolderImageSet& operator=(const FolderImageSet&) = delete;

  // Why the folder could not be listed; empty when it could.
  const std::string& fault() const { return fault_; }
  // Lists the folder anew; sends DataChanged.
  void reload();
  // Sends SourceClosing(false) once and lets go of all subscribers; Advise fails from then on.
  void close();

  HResult Advise(ImageSetNotifications* sink) override;
  void Unadvise(ImageSetNotifications* sink) override;
  void GetID(XString& id) override;
  bool GetImage(const std::string& key, Picture& picture) override;

 private:
  void list();
  std::string keyOf(const std::filesystem::path& path) const;

  std::string id_;
  std::filesystem::path folder_;
  PictureLoader& loader_;
  Narrow narrow_;
  std::map<std::string, std::vector<std::filesystem::path>> files_;  // by key
  std::string fault_;
  SinkList<ImageSetNotifications> sinks_;
  bool closed_ = false;
};

}  // namespace tessera
