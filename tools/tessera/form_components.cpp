#include "tools/tessera/form_components.h"

#include "backends/native/iconv_code_pages.h"
#include "binding/ambient_code_page.h"

namespace tessera {

namespace {

// A fault without a line of its own is told at the place that named the file.
FormError placed(const Form& form, int line, const LoadError& error) {
  return error.line > 0 || line == 0 ? error : FormError{form.path, line, error.message()};
}

}  // namespace

Loaded<FormComponents> loadComponents(const Form& form, const PictureDecoder& decode,
                                      const LoadProgress& progress) {
  FormComponents components;
  for (const DataSetForm& data : form.dataSets) {
    auto opened = openDataSet(data.source, data.options, progress);
    if (!opened) return placed(form, data.line, opened.error());
    components.dataSets.push_back(std::move(*opened));
  }
  const auto narrow = [page = codePageOf(form.codePage)](std::u16string_view text) {
    return IconvCodePages().toNarrow(page, text);
  };
  for (const ImageSetForm& images : form.imageSets) {
    auto set = std::make_shared<FolderImageSet>(images.id, images.folder, decode, narrow);
    if (!set->fault().empty()) return placed(form, images.line, {images.folder, 0, set->fault()});
    components.imageSets.push_back(std::move(set));
  }
  return Loaded<FormComponents>(std::move(components));
}

}  // namespace tessera
