// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>
#include <variant>

#include "foundation/Error.h"

namespace qf {

/// A value, or the error that explains why there is none.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : _content(std::move(value)) {}
  Result(Error error) : _content(std::move(error)) {}

  explicit operator bool() const { return std::holds_alternative<T>(_content); }
  const T& operator*() const& { return std::get<T>(_content); }
  T&& operator*() && { return std::get<T>(std::move(_content)); }
  const T* operator->() const { return &std::get<T>(_content); }
  /// Call only without a value.
  const Error& error() const { return std::get<Error>(_content); }

 private:
  std::variant<T, Error> _content;
};

}  // namespace qf
