// Saving and loading the persisted properties.

#pragma once

#include <tessera/persistence.h>

#include "hosting/property_map.h"
#include "shared/rect.h"

namespace tessera {

// The control as persistence sees it.
class PropertyTarget {
 public:
  virtual ~PropertyTarget() = default;
  virtual Size& extent() = 0;  // _cx, _cy in units of 0.01 millimetre
  virtual HResult getProperty(std::u16string_view name, XValue& value) = 0;
  // `value` has the type of the property map.
  virtual HResult putProperty(std::u16string_view name, const XValue& value) = 0;
};

// Version word of the stream; streams with a higher one are refused.
inline constexpr std::uint32_t streamVersion = 768;
inline constexpr std::u16string_view contentsStream = u"Contents";

// Puts every property that the bag has, in map order. A value that does not convert to the property's type is
// skipped like a missing one.
HResult loadFromBag(PropertyTarget& target, PropertyBag& bag);

// The control keeps nothing in a bag: success, and nothing is written.
HResult saveToBag(PropertyTarget& target, PropertyBag& bag);

// Version, extent, then each property as a typed value, little-endian.
HResult saveToStream(PropertyTarget& target, ByteStream& stream);
// E_FAIL for a higher version and for a stream that ends early; what was put before stays.
HResult loadFromStream(PropertyTarget& target, ByteStream& stream);

HResult saveToStorage(PropertyTarget& target, Storage& storage);
HResult loadFromStorage(PropertyTarget& target, Storage& storage);

}  // namespace tessera
