#include "shared/utf.h"

#include <cstdint>
#include <cstring>

namespace tessera {
namespace {

constexpr char32_t replacement = 0xFFFD;

// Almost all text is ASCII, so runs of it are handled in chunks of this many units, which compilers turn
// into vector instructions.
constexpr std::size_t chunk = 16;

template <class Unit>
bool isAsciiChunk(const Unit* units) {
  std::uint32_t seen = 0;
  for (std::size_t i = 0; i < chunk; ++i) seen |= static_cast<std::make_unsigned_t<Unit>>(units[i]);
  return seen < 0x80;
}

bool isAsciiChunk(const char* bytes) {
  std::uint64_t words[chunk / sizeof(std::uint64_t)];
  std::memcpy(words, bytes, sizeof words);
  return ((words[0] | words[1]) & 0x8080808080808080u) == 0;
}

// How many units at the start of [begin, end) are ASCII, in whole chunks.
template <class Unit>
std::size_t asciiChunks(const Unit* begin, const Unit* end) {
  const Unit* at = begin;
  while (static_cast<std::size_t>(end - at) >= chunk && isAsciiChunk(at)) at += chunk;
  return static_cast<std::size_t>(at - begin);
}

struct Decoded {
  char32_t character;
  bool valid;
};

// What a lead byte asks for. The bounds of the second byte leave out overlong forms, surrogates and values
// past U+10FFFF; later bytes are always 0x80 to 0xBF.
struct Lead {
  std::uint8_t trailing;
  std::uint8_t low;
  std::uint8_t high;
};

constexpr Lead leadOf(std::uint8_t byte) {
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {1, 0x80, 0xBF};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte < 0xF0) return {2, 0x80, 0xBF};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte < 0xF4) return {3, 0x80, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

// Reads one character that is not ASCII, or the longest start of one that goes wrong.
Decoded decode(const char*& at, const char* end) {
  const auto first = static_cast<std::uint8_t>(*at++);
  const Lead lead = leadOf(first);
  if (lead.trailing == 0) return {replacement, false};
  char32_t character = first & (0x3Fu >> lead.trailing);
  for (int i = 0; i < lead.trailing; ++i) {
    const std::uint8_t byte = at < end ? static_cast<std::uint8_t>(*at) : std::uint8_t{0};
    if (byte < (i == 0 ? lead.low : 0x80) || byte > (i == 0 ? lead.high : 0xBF)) return {replacement, false};
    character = character << 6 | (byte & 0x3Fu);
    ++at;
  }
  return {character, true};
}

// Calls onAscii(pointer, count) and onCharacter(decoded) in the order of the text, until one gives false.
template <class OnAscii, class OnCharacter>
bool walkUtf8(std::string_view text, OnAscii onAscii, OnCharacter onCharacter) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    std::size_t run = asciiChunks(at, end);
    while (at + run < end && static_cast<std::uint8_t>(at[run]) < 0x80) ++run;
    onAscii(at, run);
    at += run;
    while (at < end && static_cast<std::uint8_t>(*at) >= 0x80) {
      if (!onCharacter(decode(at, end))) return false;
    }
  }
  return true;
}

constexpr bool isSurrogate(char16_t unit) { return (unit & 0xF800) == 0xD800; }

// Reads one character; an unpaired surrogate is the replacement character.
char32_t decode(const char16_t*& at, const char16_t* end) {
  const char16_t first = *at++;
  if (!isSurrogate(first)) return first;
  if (first >= 0xDC00 || at == end || (*at & 0xFC00) != 0xDC00) return replacement;
  return 0x10000u + (static_cast<char32_t>(first & 0x3FF) << 10 | (*at++ & 0x3FFu));
}

constexpr std::size_t utf8Bytes(char32_t character) {
  return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

char* encode(char32_t character, char* out) {
  constexpr std::uint8_t leadMark[] = {0, 0, 0xC0, 0xE0, 0xF0};
  const std::size_t bytes = utf8Bytes(character);
  for (std::size_t i = bytes - 1; i > 0; --i) {
    out[i] = static_cast<char>(0x80 | (character & 0x3F));
    character >>= 6;
  }
  *out = static_cast<char>(leadMark[bytes == 1 ? 0 : bytes] | character);
  return out + bytes;
}

}  // namespace

std::size_t utf16Length(std::string_view text) {
  std::size_t length = 0;
  walkUtf8(
      text, [&](const char*, std::size_t count) { length += count; },
      [&](Decoded decoded) {
        length += decoded.character >= 0x10000 ? 2 : 1;
        return true;
      });
  return length;
}

char16_t* writeUtf16(std::string_view text, char16_t* out) {
  const auto widen = [&](const char* from, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<std::uint8_t>(from[i]);
    out += count;
  };
  const auto put = [&](Decoded decoded) {
    if (decoded.character >= 0x10000) {
      const char32_t offset = decoded.character - 0x10000;
      *out++ = static_cast<char16_t>(0xD800 | offset >> 10);
      *out++ = static_cast<char16_t>(0xDC00 | (offset & 0x3FF));
    } else {
      *out++ = static_cast<char16_t>(decoded.character);
    }
    return true;
  };
  walkUtf8(text, widen, put);
  return out;
}

std::u16string utf16FromUtf8(std::string_view text) {
  std::u16string wide(utf16Length(text), u'\0');
  writeUtf16(text, wide.data());
  return wide;
}

bool isUtf8(std::string_view text) {
  return walkUtf8(
      text, [](const char*, std::size_t) {}, [](Decoded decoded) { return decoded.valid; });
}

std::size_t utf8Length(std::u16string_view text) {
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  std::size_t length = 0;
  while (at < end) {
    const std::size_t run = asciiChunks(at, end);
    length += run;
    at += run;
    for (std::size_t i = 0; i < chunk && at < end; ++i) length += utf8Bytes(decode(at, end));
  }
  return length;
}

char* writeUtf8(std::u16string_view text, char* out) {
  const char16_t* at = text.data();
  const char16_t* const end = at + text.size();
  while (at < end) {
    const std::size_t run = asciiChunks(at, end);
    for (std::size_t i = 0; i < run; ++i) out[i] = static_cast<char>(at[i]);
    out += run;
    at += run;
    for (std::size_t i = 0; i < chunk && at < end; ++i) out = encode(decode(at, end), out);
  }
  return out;
}

std::string utf8FromUtf16(std::u16string_view text) {
  std::string narrow(utf8Length(text), '\0');
  writeUtf8(text, narrow.data());
  return narrow;
}

}  // namespace tessera
