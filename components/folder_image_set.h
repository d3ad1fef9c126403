// An image set over the picture files of a folder.

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <tessera/image_set_control.h>

#include "components/sink_list.h"
#include "platform/picture_loader.h"

namespace tessera {

// The key of a picture is its file name without the ending, letters as written. Of several files with one key
// the first by name counts that the loader can read. Only files in the folder itself are reached: a key with
// a path separator or ".." is no picture. The folder is listed when the set is made and by reload().
class FolderImageSet final : public ImageSetControl, public PictureSource {
 public:
  // `loader` is borrowed and must outlive the set. A folder that cannot be listed holds no pictures.
  FolderImageSet(std::string id, std::filesystem::path folder, PictureLoader& loader);
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

  std::string id_;
  std::filesystem::path folder_;
  PictureLoader& loader_;
  std::map<std::string, std::vector<std::filesystem::path>> files_;  // by key
  std::string fault_;
  SinkList<ImageSetNotifications> sinks_;
  bool closed_ = false;
};

}  // namespace tessera
