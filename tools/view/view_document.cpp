#include "tools/view/view_document.h"

#include <algorithm>
#include <filesystem>

#include "shared/compare.h"
#include "shared/utf.h"

namespace tessera {

std::string ViewDocument::shortName() const { return std::filesystem::path(name_).filename().string(); }

std::shared_ptr<MemoryDataSet> ViewDocument::findDataSet(std::u16string_view id) const {
  const auto& forms = opened_.form.dataSets;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    if (equalNoCase(utf16FromUtf8(forms[i].options.id), id)) return opened_.components.dataSets[i].rows;
  }
  return nullptr;
}

bool ViewDocument::isModified() const {
  const auto& all = opened_.components.dataSets;
  return std::any_of(all.begin(), all.end(), hasChanges);
}

std::string ViewDocument::staleFile() const {
  for (const OpenedDataSet& data : opened_.components.dataSets) {
    if (hasChanges(data) && isStale(data)) return std::filesystem::path(data.source.file).filename().string();
  }
  return {};
}

std::optional<LoadError> ViewDocument::save() {
  for (OpenedDataSet& data : opened_.components.dataSets) {
    if (!hasChanges(data)) continue;
    if (auto fault = saveDataSet(data)) return fault;
  }
  return std::nullopt;
}

}  // namespace tessera
