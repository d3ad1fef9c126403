// Status and selection of records.

#pragma once

#include <cstdint>
#include <vector>

#include <tessera/data_set_control.h>

#include "components/bits.h"

namespace tessera {

// A record whose row is really gone but which its source still holds, on top of the statuses of the
// interface.
inline constexpr std::int32_t rowGone = 8;

// Nothing is stored until the first record differs from a freshly loaded one.
class RowFlags {
 public:
  std::int32_t status(std::int32_t record) const {
    const auto index = static_cast<std::size_t>(record);
    return index < status_.size() ? status_[index] : rowNormal;
  }
  void setStatus(std::int32_t record, std::int32_t status) {
    const auto index = static_cast<std::size_t>(record);
    if (index >= status_.size()) {
      if (status == rowNormal) return;
      status_.resize(index + 1, rowNormal);
    }
    changed_ += (status != rowNormal ? 1 : 0) - (status_[index] != rowNormal ? 1 : 0);
    status_[index] = static_cast<std::uint8_t>(status);
  }
  // False: every record is normal.
  bool anyStatus() const { return changed_ > 0; }
  void clearStatus() {
    std::vector<std::uint8_t>().swap(status_);
    changed_ = 0;
  }

  bool selected(std::int32_t record) const { return selected_.get(record); }
  void select(std::int32_t record, bool on) { selected_.set(record, on); }

 private:
  std::vector<std::uint8_t> status_;
  std::int32_t changed_ = 0;  // records that are not normal
  Bits selected_;
};

}  // namespace tessera
