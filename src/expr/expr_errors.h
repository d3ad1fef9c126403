// Collects what is wrong with one expression.

#pragma once

#include <vector>

#include "expr/xexpr_error.h"

namespace tessera {

// A text that is no expression at all yields several records a character, each with the rest of the text: the
// list ends with the record that fills `mostText`.
class ExprErrors {
 public:
  static constexpr std::int64_t mostText = 1 << 20;  // code units of all messages

  template <class... Args>
  void report(ExprErrorCode code, const Args&... arguments) {
    if (full()) return;
    records_.push_back(XExprError::of(code, arguments...));
    text_ += records_.back().text.length();
  }
  bool empty() const { return records_.empty(); }
  bool full() const { return closed_ || text_ >= mostText; }
  // Nothing more is worth reporting.
  void close() { closed_ = true; }
  std::vector<XExprError> take() { return std::move(records_); }

 private:
  std::vector<XExprError> records_;
  std::int64_t text_ = 0;
  bool closed_ = false;
};

}  // namespace tessera
