// What a command answers.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include <tessera/xvalue.h>

#include "tools/tessera/value_text.h"

namespace tessera {

// Lines, then the one that ends every reply.
struct Reply {
  std::vector<std::string> lines;
  std::string last = "ok";
  bool isError = false;

  static Reply of(const XValue& value) { return {{}, "= " + valueText(value), false}; }
  static Reply ofText(const XString& text) { return of(XValue::ofText(text)); }
  static Reply ofText(const std::string& utf8) { return ofText(XString::fromNarrow(utf8)); }
  static Reply ofLines(std::vector<std::string> lines) { return {std::move(lines), "ok", false}; }
  static Reply error(const std::string& reason) { return {{}, "error: " + reason, true}; }
};

}  // namespace tessera
