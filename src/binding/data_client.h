// The control's face towards its sinks.

#pragma once

#include <cstdint>

#include <tessera/status.h>
#include <tessera/xvalue.h>

namespace tessera {

// Cookies tell which sink a notification came through.
inline constexpr std::int32_t dataSetCookie = 1;
inline constexpr std::int32_t imageSetCookie = 2;
// The control's own call of CurrentRowChanged at the end of a row operation.
inline constexpr std::int32_t ownCallCookie = -1;

// The data set's notifications in their order, the cookie put in front.
class DataClient {
 public:
  virtual ~DataClient() = default;
  virtual HResult SortReset(std::int32_t cookie) = 0;
  virtual HResult StructureChanged(std::int32_t cookie, std::int32_t value) = 0;
  virtual HResult RowsAdded(std::int32_t cookie, std::int32_t rowCount) = 0;
  virtual HResult DataChanged(std::int32_t cookie, std::int32_t value) = 0;
  virtual HResult CanChange(std::int32_t cookie, std::int32_t value, VariantBool& allowed) = 0;
  virtual HResult CurrentRowChanged(std::int32_t cookie, std::int32_t row) = 0;
  virtual HResult RowsReset(std::int32_t cookie) = 0;
  virtual HResult Reserved(std::int32_t cookie, std::int32_t value) = 0;
  virtual HResult RowInserted(std::int32_t cookie, std::int32_t row) = 0;
  virtual HResult RowDeleted(std::int32_t cookie, std::int32_t row) = 0;
  virtual HResult CellChanged(std::int32_t cookie, std::int32_t row, std::int32_t column) = 0;
  virtual HResult SourceClosing(std::int32_t cookie, VariantBool flag) = 0;
};

// The image set's notifications. The first two do what the data set's notifications of the same names do.
class ImageClient {
 public:
  virtual ~ImageClient() = default;
  virtual HResult ImageSortReset(std::int32_t cookie) = 0;
  virtual HResult ImageDataChanged(std::int32_t cookie, std::int32_t value) = 0;
  virtual HResult ImageSourceClosing(std::int32_t cookie) = 0;
};

}  // namespace tessera
