#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "core/radio_data.h"
#include "document/find.h"
#include "document/find_words.h"

/// The channels that a search goes through.
namespace orvane::document {

/// One of the tables that hold channels. The data outlive it.
class ChannelTable {
 public:
  /// marine_group: of a marine table, by MarineGroup.
  ChannelTable(const core::RadioData& data, const core::Table& table, std::size_t marine_group)
      : data_(data), table_(table), marine_group_(marine_group) {}

  [[nodiscard]] int Count() const { return table_.count; }
  /// The member's place among the table's fields; nothing where the model has no such field.
  [[nodiscard]] std::optional<std::uint8_t> FieldOf(const char* member) const;
  [[nodiscard]] Candidate CandidateAt(int entry) const;
  /// asked: the field that the query is about, if it is about one.
  [[nodiscard]] Hit HitOf(int entry, const Candidate& candidate,
                          std::optional<std::uint8_t> asked) const;

 private:
  [[nodiscard]] core::FieldRef RefTo(std::uint8_t field, int entry) const;
  [[nodiscard]] const core::Flag& GroupSwitch(bool lmr) const;
  [[nodiscard]] core::FieldRef GroupSwitchRef(bool lmr) const;
  [[nodiscard]] Use UseOf(const core::ChannelRecord& channel, bool lmr) const;
  [[nodiscard]] std::string GroupName(bool lmr) const;
  void AddNumbers(int entry, Candidate& candidate) const;
  [[nodiscard]] std::string FrequencyOf(const Candidate& candidate) const;

  const core::RadioData& data_;
  const core::Table& table_;
  std::size_t marine_group_;
};

/// In the window's order.
[[nodiscard]] std::vector<ChannelTable> ChannelTables(const core::RadioData& data);

}  // namespace orvane::document
