// Faults of reading and writing data as values.

#pragma once

#include <cassert>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace tessera {

struct LoadError {
  std::string file;
  std::int64_t line = 0;  // from 1; 0 where no line can be named
  std::string reason;

  // "FILE:LINE: REASON", without the line "FILE: REASON".
  std::string message() const {
    return line > 0 ? file + ":" + std::to_string(line) + ": " + reason : file + ": " + reason;
  }
};

// A value or the reason why there is none.
template <class T>
class Loaded {
 public:
  Loaded(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Loaded(LoadError error) : state_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return state_.index() == 0; }
  T& operator*() { return std::get<0>(state_); }
  T* operator->() { return &std::get<0>(state_); }
  const T& operator*() const { return std::get<0>(state_); }
  const T* operator->() const { return &std::get<0>(state_); }
  const LoadError& error() const { return std::get<1>(state_); }

 private:
  std::variant<T, LoadError> state_;
};

}  // namespace tessera
