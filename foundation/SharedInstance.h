// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace qf {

/// The one object of a class in this process, made on first use and kept until the process ends.
///
/// The maker is given by app/, the one place that knows every collaborator; tests build the objects
/// directly and never come here. Making is guarded (any thread); the objects have rules of their
/// own.
template <class T>
class SharedInstance {
 public:
  using Maker = std::function<std::unique_ptr<T>()>;

  /// Before the first `get`; a maker given later has no effect.
  static void setMaker(Maker maker) { state().maker = std::move(maker); }

  static T& get() { return get(state().maker); }
  /// Made by this maker, if this is the first `get`: for a class whose callers choose what is made.
  static T& get(const Maker& maker) {
    State& shared = state();
    std::call_once(shared.once, [&] { shared.object = maker(); });
    return *shared.object;
  }
  /// For a class whose maker may fail: null where it did.
  static T* find() {
    State& shared = state();
    std::call_once(shared.once, [&] { shared.object = shared.maker(); });
    return shared.object.get();
  }

 private:
  struct State {
    std::once_flag once;
    Maker maker;
    std::unique_ptr<T> object;
  };

  static State& state() {
    // Never destroyed: the objects live until the process ends, whatever order statics end in.
    static State& shared = *new State;
    return shared;
  }
};

}  // namespace qf
