// The operations of a data set by name.

#pragma once

#include <span>
#include <string_view>

#include <tessera/data_set_control.h>

namespace tessera {

struct DataOperation {
  std::string_view name;
  std::int32_t arguments;  // without the result
  bool hasResult;
  HResult (*invoke)(DataSetControl& data, std::span<const XValue> arguments, XValue& result);
};

// All operations but the subscriptions, in the order of the interface.
std::span<const DataOperation> dataOperations();
// Names compare without ASCII case; null when there is no such operation.
const DataOperation* findDataOperation(std::u16string_view name);

}  // namespace tessera
