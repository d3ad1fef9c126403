// Collects what is wrong with one expression.

#pragma once

#include <vector>

#include "expr/xexpr_error.h"

namespace tessera {

// A text that is no expression at all yields several records a character, each with the rest of the text: the
// list ends after `most`.
class ExprErrors {
 public:
  static constexpr std::size_t most = 100;

  template <class... Args>
  void report(ExprErrorCode code, const Args&... arguments) {
    if (!full()) records_.push_back(XExprError::of(code, arguments...));
  }
  bool empty() const { return records_.empty(); }
  bool full() const { return closed_ || records_.size() >= most; }
  // Nothing more is worth reporting.
  void close() { closed_ = true; }
  std::vector<XExprError> take() { return std::move(records_); }

 private:
  std::vector<XExprError> records_;
  bool closed_ = false;
};

}  // namespace tessera
