// Where a host keeps the properties of a control.

#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <tessera/status.h>
#include <tessera/xstring.h>
#include <tessera/xvalue.h>

namespace tessera {

// Named texts and values, as a form stores them.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;
  // `value` comes in with the type wanted. False, and `value` untouched, when the bag lacks the name.
  virtual bool read(const XString& name, XValue& value) = 0;
};

// A sequence of bytes.
class ByteStream {
 public:
  virtual ~ByteStream() = default;
  // True when all of `bytes` could be read or written.
  virtual bool read(std::span<std::byte> bytes) = 0;
  virtual bool write(std::span<const std::byte> bytes) = 0;
};

// A set of named streams.
class Storage {
 public:
  virtual ~Storage() = default;
  // A new, empty stream for this control alone; null when the storage refuses.
  virtual std::unique_ptr<ByteStream> createStream(const XString& name) = 0;
  virtual std::unique_ptr<ByteStream> openStream(const XString& name) = 0;
};

}  // namespace tessera
