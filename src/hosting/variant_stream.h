// Typed values in byte streams.

#pragma once

#include <tessera/persistence.h>

namespace tessera {

// 16-bit type code, then: types of 1, 2, 4 and 8 bytes as they are; every other type as a 32-bit byte count
// (terminating zero included) and its UTF-16 text. Objects are not written: E_FAIL.
HResult writeVariant(ByteStream& stream, const XValue& value);
HResult readVariant(ByteStream& stream, XValue& value);

HResult writeUInt32(ByteStream& stream, std::uint32_t value);
HResult readUInt32(ByteStream& stream, std::uint32_t& value);

}  // namespace tessera
