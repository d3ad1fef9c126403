// What GIF and TIFF files state about their parts, beside the size of the picture itself.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessera {

// Both parts below are as large as the file likes, whatever the size of the picture: one pixel may come in a
// frame or a tile of four thousand million, and the decoders take the memory for it.

// The pixels of the largest frame of a GIF file, up to the first thing that is no block.
std::uint64_t largestGifFrame(std::span<const std::byte> bytes);

// An upper bound for the bytes of a decoded strip or tile of a TIFF file's first page; the largest number
// when the file gives a size in a form that nobody writes.
std::uint64_t largestTiffPiece(std::span<const std::byte> bytes);

}  // namespace tessera
