// A picture that may come later.

#pragma once

#include <concepts>
#include <memory>
#include <utility>

#include "shared/bitmap.h"

namespace tessera {

// Copies wait for the same picture. For the grid's thread.
class LateBitmap {
 public:
  // There is none, and none will come.
  LateBitmap() = default;
  template <std::convertible_to<BitmapRef> Ref>
  LateBitmap(Ref bitmap) : place_(std::make_shared<BitmapRef>(std::move(bitmap))) {}
  static LateBitmap awaited() { return BitmapRef(); }

  // For all copies of what awaited() gave.
  void arrive(BitmapRef bitmap) const { *place_ = std::move(bitmap); }

  // Null while there is none.
  const Bitmap* get() const { return place_ ? place_->get() : nullptr; }
  explicit operator bool() const { return get() != nullptr; }
  // The same picture now, or both none.
  bool operator==(const LateBitmap& other) const { return get() == other.get(); }

 private:
  std::shared_ptr<BitmapRef> place_;
};

}  // namespace tessera
