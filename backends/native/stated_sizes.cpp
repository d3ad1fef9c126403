#include "backends/native/stated_sizes.h"

#include <algorithm>
#include <limits>

namespace tessera {
namespace {

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

// Past the end it reads zeros; done() tells.
class ByteCursor {
 public:
  explicit ByteCursor(std::span<const std::byte> bytes, bool bigEndian = false)
      : bytes_(bytes), bigEndian_(bigEndian) {}

  bool done() const { return at_ == bytes_.size(); }
  void seek(std::size_t place) { at_ = std::min(place, bytes_.size()); }
  void skip(std::size_t count) { at_ += std::min(count, bytes_.size() - at_); }

  std::uint32_t byte() { return done() ? 0u : std::to_integer<std::uint32_t>(bytes_[at_++]); }
  std::uint32_t word() { return number(2); }
  std::uint32_t longWord() { return number(4); }

 private:
  std::uint32_t number(std::uint32_t count) {
    std::uint32_t value = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
      value = bigEndian_ ? value << 8 | byte() : value | byte() << (8 * i);
    }
    return value;
  }

  std::span<const std::byte> bytes_;
  std::size_t at_ = 0;
  bool bigEndian_;
};

// GIF: blocks with a length byte each, up to the empty one.
void skipBlocks(ByteCursor& cursor) {
  while (const std::uint32_t length = cursor.byte()) cursor.skip(length);
}

// GIF: the colour table that a flag byte announces.
void skipColors(ByteCursor& cursor, std::uint32_t flags) {
  if (flags & 0x80) cursor.skip(std::size_t{3} << ((flags & 7) + 1));
}

std::uint64_t readGifFrame(ByteCursor& cursor) {
  cursor.skip(4);  // place
  const std::uint64_t width = cursor.word();
  const std::uint64_t height = cursor.word();
  skipColors(cursor, cursor.byte());
  cursor.skip(1);  // code size
  skipBlocks(cursor);
  return width * height;
}

struct TiffSizes {
  std::uint64_t width = 0;
  std::uint64_t height = 0;
  std::uint64_t tileWidth = 0;
  std::uint64_t tileHeight = 0;
  std::uint64_t samples = 1;

  std::uint64_t* fieldOf(std::uint32_t tag) {
    switch (tag) {
      case 256:
        return &width;
      case 257:
        return &height;
      case 277:
        return &samples;
      case 322:
        return &tileWidth;
      case 323:
        return &tileHeight;
      default:
        return nullptr;
    }
  }
};

// The value of a directory entry of type SHORT or LONG; it stands in the first bytes of a field of four.
std::uint64_t readTiffValue(ByteCursor& cursor) {
  const std::uint32_t type = cursor.word();
  cursor.skip(4);  // count
  if (type == 4) return cursor.longWord();
  const std::uint64_t value = cursor.word();
  cursor.skip(2);
  return type == 3 ? value : unlimited;
}

std::uint64_t timesAtMost(std::uint64_t a, std::uint64_t b) {
  return b != 0 && a > unlimited / b ? unlimited : a * b;
}

}  // namespace

std::uint64_t largestGifFrame(std::span<const std::byte> bytes) {
  constexpr std::size_t signatureAndSize = 10;
  constexpr std::uint32_t extensionMark = 0x21;
  constexpr std::uint32_t frameMark = 0x2C;

  ByteCursor cursor(bytes);
  cursor.skip(signatureAndSize);
  const std::uint32_t flags = cursor.byte();
  cursor.skip(2);  // background, aspect
  skipColors(cursor, flags);
  std::uint64_t largest = 0;
  while (!cursor.done()) {
    const std::uint32_t mark = cursor.byte();
    if (mark == frameMark) {
      largest = std::max(largest, readGifFrame(cursor));
    } else if (mark == extensionMark) {
      cursor.skip(1);  // label
      skipBlocks(cursor);
    } else {
      break;
    }
  }
  return largest;
}

std::uint64_t largestTiffPiece(std::span<const std::byte> bytes) {
  constexpr std::size_t signature = 4;
  constexpr std::uint64_t bytesPerSample = 2;  // the decoder takes 1 to 16 bits

  ByteCursor cursor(bytes, !bytes.empty() && bytes[0] == std::byte{'M'});
  cursor.skip(signature);
  cursor.seek(cursor.longWord());
  TiffSizes sizes;
  for (std::uint32_t left = cursor.word(); left > 0 && !cursor.done(); --left) {
    std::uint64_t* field = sizes.fieldOf(cursor.word());
    const std::uint64_t value = readTiffValue(cursor);
    if (field) *field = std::max(*field, value);
  }
  const std::uint64_t pixels =
      std::max(timesAtMost(sizes.width, sizes.height), timesAtMost(sizes.tileWidth, sizes.tileHeight));
  return timesAtMost(pixels, timesAtMost(sizes.samples, bytesPerSample));
}

}  // namespace tessera
