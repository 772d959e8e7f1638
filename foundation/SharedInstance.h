// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace qf {

/// The one object of a class in this process, made on first use and kept until the process ends.
///
/// app/ gives the maker, being the one place that knows every collaborator; tests build the objects
/// directly instead. Making the object is thread-safe; using it follows the object's own rules.
template <class T>
class SharedInstance {
 public:
  using Maker = std::function<std::unique_ptr<T>()>;

  /// Call before the first `get`; later calls have no effect.
  static void setMaker(Maker maker) { state().maker = std::move(maker); }

  static T& get() { return get(state().maker); }
  /// The first `get` uses this maker: for a class whose callers choose the subclass.
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
    // Never destroyed, so that the order in which statics end does not matter.
    static State& shared = *new State;
    return shared;
  }
};

}  // namespace qf
