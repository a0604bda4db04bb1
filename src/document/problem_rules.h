#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/problems.h"

/// The rules of FindProblems, by what they look at. Each adds what it finds.
namespace orvane::document {

using Problems = std::vector<Problem>;

void AddValueProblems(const core::RadioData& data, Problems& problems);
void AddGroupProblems(const core::RadioData& data, Problems& problems);
/// Priority, stored and last channels.
void AddReferenceProblems(const core::RadioData& data, Problems& problems);
void AddChannelProblems(const core::RadioData& data, core::Date today, Problems& problems);
/// What programming would change, where none of the problems tells of it. Runs after the others.
void AddSilentChanges(const core::RadioData& data, core::Date today, Problems& problems);

/// The group that the radio comes up with: the last one, else the first in use, else kMarineGroups'
/// size.
[[nodiscard]] std::size_t LastGroup(const core::RadioData& data);
/// A name of a channel or a directory: what the radio does not give back is a rule of its own.
[[nodiscard]] bool IsName(const core::Field& field);
/// The name with what a radio does not give back left out or, for a point, put as a comma.
[[nodiscard]] std::string MendedName(core::FieldRef at, std::string_view name);

}  // namespace orvane::document
