// An image set over the picture files of a folder.

#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <tessera/image_set_control.h>

#include "components/sink_list.h"
#include "shared/bitmap.h"

namespace tessera {

// Makes a picture of a file's bytes; null when they are none.
using PictureDecoder = std::function<BitmapRef(std::span<const std::byte> bytes)>;

// The key of a picture is its file name without the ending, letters as written, in the narrow text of whoever
// asks. Of several files with one key the first by name counts that the decoder can read. Only files in the
// folder itself are reached. The folder is listed when the set is made and by reload().
class FolderImageSet final : public ImageSetControl, public PictureSource {
 public:
  using Narrow = std::function<std::string(std::u16string_view text)>;

  // A folder that cannot be listed holds no pictures. Without `narrow` keys are UTF-8.
  FolderImageSet(std::string id, std::filesystem::path folder, PictureDecoder decode, Narrow narrow = {});
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
  // Answers at once.
  void GetImage(const std::string& key, Answer answer) override { answer(picture(key)); }

 private:
  void list();
  Picture picture(const std::string& key) const;
  std::string keyOf(const std::filesystem::path& path) const;

  std::string id_;
  std::filesystem::path folder_;
  PictureDecoder decode_;
  Narrow narrow_;
  std::map<std::string, std::vector<std::filesystem::path>> files_;  // by key
  std::string fault_;
  SinkList<ImageSetNotifications> sinks_;
  bool closed_ = false;
};

}  // namespace tessera
