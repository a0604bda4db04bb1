#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/catalogue.h"
#include "core/member_path.h"

/// What the rows of the catalogue are made of.
namespace orvane::core {

/// Its address tells members apart: Field::member of the row that the path leads to.
template <auto... kPath>
inline constexpr char kMemberTag = 0;

namespace catalogue {

/// Which alternative of Value a member's type travels in.
template <class Member>
using Carrier = std::conditional_t<
    std::is_same_v<Member, Flag>, bool,
    std::conditional_t<std::is_same_v<Member, std::string>, std::string,
                       std::conditional_t<std::is_floating_point_v<Member>, double, std::int32_t>>>;

template <class Member>
constexpr const Notation* DefaultNotation() {
  if constexpr (std::is_same_v<Member, Flag>) return &notation::kOnOff;
  if constexpr (std::is_same_v<Member, std::string>) return &notation::kText;
  if constexpr (std::is_floating_point_v<Member>) return &notation::kFrequency;
  return &notation::kNumber;
}

template <class Member>
constexpr Limits DefaultLimits() {
  if constexpr (std::is_integral_v<Member>) {
    return {std::numeric_limits<Member>::min(), std::numeric_limits<Member>::max()};
  }
  return {};
}

/// How a row differs from what the member's type says.
struct More {
  std::string_view name{};  ///< "": the label serves
  std::optional<const Notation*> notation{};
  Limits limits{1, 0};  ///< lowest above highest: those of the member's type
  Refusal refusal = nullptr;
  Presence presence{};
  bool derived = false;
};

/// The row of one member. Each member's is a type of its own, so that a look-up by member is one
/// by type: the compiler finds the row or refuses, and no addresses are compared.
template <auto... kPath>
struct RowOf {
  static constexpr std::size_t kCount = 1;

  Field field;

  template <std::size_t kSize>
  constexpr void AddTo(std::array<Field, kSize>& fields, std::size_t& end) const {
    fields[end++] = field;
  }
};

/// Rows one after the other; a part may be such a list itself.
template <class... Part>
struct Rows : Part... {
  static constexpr std::size_t kCount = (Part::kCount + ... + 0);

  template <std::size_t kSize>
  constexpr void AddTo(std::array<Field, kSize>& fields, std::size_t& end) const {
    (static_cast<const Part&>(*this).AddTo(fields, end), ...);
  }
};
template <class... Part>
Rows(Part...) -> Rows<Part...>;

template <class List>
constexpr std::array<Field, List::kCount> FieldsOf(const List& rows) {
  std::array<Field, List::kCount> fields{};
  std::size_t end = 0;
  rows.AddTo(fields, end);
  return fields;
}

template <class Record, auto... kPath>
constexpr RowOf<kPath...> Row(std::string_view id, std::string_view label, const More& more = {}) {
  using Member = std::remove_cvref_t<decltype(Follow<kPath...>(std::declval<Record&>()))>;
  using C = Carrier<Member>;
  return {Field{
      .id = id,
      .label = label,
      .name = more.name.empty() ? label : more.name,
      .member = &kMemberTag<kPath...>,
      .get = [](const void* record) -> Value {
        return static_cast<C>(Follow<kPath...>(*static_cast<const Record*>(record)));
      },
      .set =
          [](void* record, const Value& value) {
            Follow<kPath...>(*static_cast<Record*>(record)) =
                static_cast<Member>(std::get<C>(value));
          },
      .notation = more.notation.value_or(DefaultNotation<Member>()),
      .limits = more.limits.lowest <= more.limits.highest ? more.limits : DefaultLimits<Member>(),
      .refusal = more.refusal,
      .presence = more.presence,
      .in_list = (std::is_integral_v<decltype(kPath)> || ...),
      .derived = more.derived}};
}

}  // namespace catalogue

}  // namespace orvane::core
