#pragma once

#include <type_traits>

namespace orvane::core {

/// The member reached by following member pointers and indexes one after the other.
template <class T>
constexpr T& Follow(T& object) {
  return object;
}
template <auto First, auto... Rest, class T>
constexpr auto& Follow(T& object) {
  if constexpr (std::is_member_pointer_v<decltype(First)>) {
    return Follow<Rest...>(object.*First);
  } else {
    return Follow<Rest...>(object[First]);
  }
}

}  // namespace orvane::core
