// The input method port.

#pragma once

namespace tessera {

class InputMethod {
 public:
  virtual ~InputMethod() = default;
  // Native characters on, or plain English input.
  virtual void setNative(bool native) = 0;
};

}  // namespace tessera
