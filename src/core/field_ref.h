#pragma once

#include "core/catalogue.h"
#include "core/catalogue_fields.h"

namespace orvane::core {

/// Where a member of a record stands. REQUIRES: the record is one of the data set's own.
///
///     RefTo<&ChannelRecord::ChTag>(data, data.EXP[3])
template <auto... kPath, class Record>
[[nodiscard]] FieldRef RefTo(const RadioData& data, const Record& record) {
  return RefOf(data, &record, &kMemberTag<kPath...>);
}

/// Whether it is that member, of whichever record.
template <auto... kPath>
[[nodiscard]] bool IsMember(const Field& field) {
  return field.member == &kMemberTag<kPath...>;
}
template <auto... kPath>
[[nodiscard]] bool IsMember(FieldRef at) {
  return IsMember<kPath...>(FieldOf(at));
}

}  // namespace orvane::core
