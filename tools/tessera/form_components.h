// The data sets and image sets of a form.

#pragma once

#include <memory>
#include <vector>

#include "components/folder_image_set.h"
#include "components/load_progress.h"
#include "tools/tessera/form.h"

namespace tessera {

// In the order of the form's lists.
struct FormComponents {
  std::vector<OpenedDataSet> dataSets;
  std::vector<std::shared_ptr<FolderImageSet>> imageSets;
};

// A fault in the data names the data's file and line, any other fault the form's.
Loaded<FormComponents> loadComponents(const Form& form, const PictureDecoder& decode,
                                      const LoadProgress& progress = {});

}  // namespace tessera
