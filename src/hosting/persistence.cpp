#include "hosting/persistence.h"

#include "hosting/variant_stream.h"
#include "shared/change_type.h"

namespace tessera {

namespace {

constexpr std::u16string_view extentNames[] = {u"_cx", u"_cy"};

// True when the bag has the name and its value can be taken as `value`'s type.
bool readFromBag(PropertyBag& bag, std::u16string_view name, XValue& value) {
  const VarType type = value.type();
  return bag.read(name, value) && succeeded(changeType(value, type, value));
}

HResult loadProperty(PropertyTarget& target, ByteStream& stream, const PersistedProperty& property) {
  XValue value;
  if (HResult status = readVariant(stream, value); !succeeded(status)) return status;
  if (HResult status = changeType(value, property.type, value); !succeeded(status)) return status;
  return target.putProperty(property.name, value);
}

}  // namespace

HResult loadFromBag(PropertyTarget& target, PropertyBag& bag) {
  std::int32_t* extents[] = {&target.extent().width, &target.extent().height};
  for (std::size_t i = 0; i < std::size(extents); ++i) {
    XValue value = XValue::ofInt(*extents[i]);
    if (readFromBag(bag, extentNames[i], value)) *extents[i] = value.asInt();
  }
  for (const PersistedProperty& property : propertyMap) {
    XValue value;
    if (HResult status = target.getProperty(property.name, value); !succeeded(status)) return status;
    if (readFromBag(bag, property.name, value)) target.putProperty(property.name, value);
  }
  return S_OK;
}

HResult saveToBag(PropertyTarget&, PropertyBag&) { return S_OK; }

HResult saveToStream(PropertyTarget& target, ByteStream& stream) {
  const Size extent = target.extent();
  for (std::uint32_t word :
       {streamVersion, static_cast<std::uint32_t>(extent.width), static_cast<std::uint32_t>(extent.height)}) {
    if (HResult status = writeUInt32(stream, word); !succeeded(status)) return status;
  }
  for (const PersistedProperty& property : propertyMap) {
    XValue value;
    if (HResult status = target.getProperty(property.name, value); !succeeded(status)) return status;
    if (HResult status = writeVariant(stream, value); !succeeded(status)) return status;
  }
  return S_OK;
}

HResult loadFromStream(PropertyTarget& target, ByteStream& stream) {
  std::uint32_t version = 0;
  if (HResult status = readUInt32(stream, version); !succeeded(status)) return status;
  if (version > streamVersion) return E_FAIL;
  for (std::int32_t* side : {&target.extent().width, &target.extent().height}) {
    std::uint32_t word = 0;
    if (HResult status = readUInt32(stream, word); !succeeded(status)) return status;
    *side = static_cast<std::int32_t>(word);
  }
  for (const PersistedProperty& property : propertyMap) {
    if (HResult status = loadProperty(target, stream, property); !succeeded(status)) return status;
  }
  return S_OK;
}

HResult saveToStorage(PropertyTarget& target, Storage& storage) {
  const auto stream = storage.createStream(contentsStream);
  return stream ? saveToStream(target, *stream) : E_FAIL;
}

HResult loadFromStorage(PropertyTarget& target, Storage& storage) {
  const auto stream = storage.openStream(contentsStream);
  return stream ? loadFromStream(target, *stream) : E_FAIL;
}

}  // namespace tessera
