#include "hosting/variant_stream.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <vector>

#include "shared/change_type.h"

namespace tessera {

namespace {

// A text of a persisted property; a count beyond this is a damaged stream, not a text.
constexpr std::uint32_t maxTextBytes = 1u << 30;

template <std::size_t Width>
HResult writeBits(ByteStream& stream, std::uint64_t bits) {
  std::array<std::byte, Width> bytes;
  for (std::size_t i = 0; i < Width; ++i) bytes[i] = static_cast<std::byte>(bits >> (8 * i));
  return stream.write(bytes) ? S_OK : E_FAIL;
}

HResult readBits(ByteStream& stream, std::size_t width, std::uint64_t& bits) {
  std::array<std::byte, 8> bytes{};
  if (!stream.read(std::span(bytes).first(width))) return E_FAIL;
  bits = 0;
  for (std::size_t i = 0; i < width; ++i) bits |= std::to_integer<std::uint64_t>(bytes[i]) << (8 * i);
  return S_OK;
}

constexpr double currencyScale = 10000.0;

// 0 for types that stand as text.
std::size_t widthOf(VarType type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_R4:
    case VT_ERROR:
    case VT_INT:
    case VT_UINT:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
      return 8;
    default:
      return 0;
  }
}

std::uint64_t bitsOf(const XValue& value) {
  switch (value.type()) {
    case VT_R4:
      return std::bit_cast<std::uint32_t>(static_cast<float>(value.asDouble()));
    case VT_R8:
    case VT_DATE:
      return std::bit_cast<std::uint64_t>(value.asDouble());
    default:
      return static_cast<std::uint64_t>(value.asInt64());
  }
}

void setFromBits(XValue& value, VarType type, std::uint64_t bits) {
  switch (type) {
    case VT_R4:
      return value.setFloat(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
    case VT_R8:
      return value.setDouble(std::bit_cast<double>(bits));
    case VT_DATE:
      return value.setDate(std::bit_cast<double>(bits));
    case VT_BOOL:
      return value.setRawBool(static_cast<VariantBool>(bits));
    case VT_I4:
    case VT_INT:
      return value.setInt(static_cast<std::int32_t>(bits));
    case VT_UINT:
      return value.setInteger(VT_UI4, static_cast<std::int64_t>(bits));
    case VT_CY:
      return value.setDouble(static_cast<double>(static_cast<std::int64_t>(bits)) / currencyScale);
    case VT_ERROR:
      return value.setError(static_cast<HResult>(bits));
    default:
      return value.setInteger(type, static_cast<std::int64_t>(bits));
  }
}

HResult writeText(ByteStream& stream, const XString& text) {
  const auto units = static_cast<std::uint32_t>(text.length()) + 1;
  if (HResult status = writeUInt32(stream, units * 2); !succeeded(status)) return status;
  std::vector<std::byte> bytes;
  bytes.reserve(units * 2);
  for (std::uint32_t i = 0; i < units; ++i) {
    const char16_t unit = text.chars()[i];
    bytes.push_back(static_cast<std::byte>(unit));
    bytes.push_back(static_cast<std::byte>(unit >> 8));
  }
  return stream.write(bytes) ? S_OK : E_FAIL;
}

// Reads in pieces, so that a damaged count ends at the end of the stream and not in a huge allocation.
HResult readText(ByteStream& stream, XString& text) {
  std::uint32_t count = 0;
  if (HResult status = readUInt32(stream, count); !succeeded(status)) return status;
  if (count % 2 != 0 || count > maxTextBytes) return E_FAIL;
  std::u16string units;
  std::array<std::byte, 4096> piece;
  while (count > 0) {
    const auto bytes = std::span(piece).first(std::min<std::size_t>(count, piece.size()));
    if (!stream.read(bytes)) return E_FAIL;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
      units.push_back(static_cast<char16_t>(std::to_integer<unsigned>(bytes[i]) |
                                            std::to_integer<unsigned>(bytes[i + 1]) << 8));
    }
    count -= static_cast<std::uint32_t>(bytes.size());
  }
  if (!units.empty() && units.back() == 0) units.pop_back();
  text.assign(units);
  return S_OK;
}

}  // namespace

HResult writeUInt32(ByteStream& stream, std::uint32_t value) { return writeBits<4>(stream, value); }

HResult readUInt32(ByteStream& stream, std::uint32_t& value) {
  std::uint64_t bits = 0;
  const HResult status = readBits(stream, 4, bits);
  value = static_cast<std::uint32_t>(bits);
  return status;
}

HResult writeVariant(ByteStream& stream, const XValue& value) {
  if (value.type() == VT_DISPATCH || value.type() == VT_UNKNOWN) return E_FAIL;
  if (HResult status = writeBits<2>(stream, value.type()); !succeeded(status)) return status;
  switch (widthOf(value.type())) {
    case 1:
      return writeBits<1>(stream, bitsOf(value));
    case 2:
      return writeBits<2>(stream, bitsOf(value));
    case 4:
      return writeBits<4>(stream, bitsOf(value));
    case 8:
      return writeBits<8>(stream, bitsOf(value));
    default:
      return writeText(stream, textOf(value));
  }
}

HResult readVariant(ByteStream& stream, XValue& value) {
  std::uint64_t bits = 0;
  if (HResult status = readBits(stream, 2, bits); !succeeded(status)) return status;
  const auto type = static_cast<VarType>(bits);
  if (type == VT_DISPATCH || type == VT_UNKNOWN) return E_FAIL;
  if (const std::size_t width = widthOf(type); width > 0) {
    if (HResult status = readBits(stream, width, bits); !succeeded(status)) return status;
    setFromBits(value, type, bits);
    return S_OK;
  }
  XString text;
  if (HResult status = readText(stream, text); !succeeded(status)) return status;
  if (type == VT_EMPTY || type == VT_NULL) {
    value = type == VT_NULL ? XValue::null() : XValue();
    return S_OK;
  }
  return changeType(XValue::ofText(text), type, value);
}

}  // namespace tessera
