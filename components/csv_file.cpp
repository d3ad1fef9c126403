#include "components/csv_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "components/replace_file.h"

namespace tessera {

Loaded<CsvRows> loadCsvFile(const std::string& path, std::span<const FieldSpec> fields,
                            const LoadProgress& progress) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored))
    return LoadError{path, 0, "it is a folder and not a file"};
  errno = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) return LoadError{path, 0, std::string("it cannot be opened: ") + std::strerror(errno)};
  return loadCsv(in, path, fields, progress);
}

std::optional<LoadError> writeCsvFile(const MemoryDataSet& rows, const std::string& path,
                                      const CsvForm& form) {
  FileReplacement file(path);
  writeCsv(
      rows, [&file](std::string_view bytes) { file.write(bytes); }, form);
  return file.commit();
}

std::optional<LoadError> saveCsvFile(MemoryDataSet& rows, const std::string& path, const CsvForm& form) {
  auto fault = writeCsvFile(rows, path, form);
  if (!fault) rows.acceptChanges();
  return fault;
}

}  // namespace tessera
