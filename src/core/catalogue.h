#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/model_profile.h"
#include "core/notation.h"
#include "core/presence.h"
#include "core/radio_data.h"

/// Every field of the data set, once. History, comparison, get and set by path and the JSON tree
/// are walks over these tables.
namespace orvane::core {

/// One field of one entry of one table. Small, so that a history can keep them by the thousand;
/// valid in the process that made it (what is kept longer keeps paths).
struct FieldRef {
  std::uint8_t table = 0;
  std::uint8_t field = 0;
  std::uint16_t entry = 0;  ///< from 0

  bool operator==(const FieldRef&) const = default;
};

/// One difference between two data sets.
struct Change {
  FieldRef at;
  Value before;
  Value after;

  bool operator==(const Change&) const = default;
};

/// Why the model does not take the value, as a sentence; "" when it does.
using Refusal = std::string (*)(const ModelProfile& profile, const Value& value);

/// Whole numbers outside are refused.
struct Limits {
  std::int32_t lowest = INT32_MIN;
  std::int32_t highest = INT32_MAX;
};

/// A member of a record. Getters and setters take the record that a table's record gives.
struct Field {
  std::string_view id;     ///< "rx_frequency", "pos_request/hi": path and JSON key
  std::string_view label;  ///< "Rx Frequency": what a user reads
  std::string_view name;   ///< "Rxfreq": what the settings file and the memory map call it
  const char* member;      ///< which member it is; see kMemberTag
  Value (*get)(const void* record);
  void (*set)(void* record, const Value& value);  ///< the value has the type that get returns
  const Notation* notation;
  Limits limits{};
  Refusal refusal = nullptr;  ///< null: every value within the limits goes
  Presence presence{};        ///< whose radio or settings file has a place for it
  bool in_list = false;       ///< the second part of the id names an item of a list
  /// Follows from other fields or from the channel plan: kept by the history, not set by hand.
  bool derived = false;
};

struct Table {
  std::string_view id;     ///< "usa"
  std::string_view label;  ///< "USA"
  TableKind kind = TableKind::kOnce;
  int count = 1;
  std::span<const Field> fields;
  const void* (*record)(const RadioData&, int entry) = nullptr;
  void* (*record_to_write)(RadioData&, int entry) = nullptr;
  bool (*same)(const void* a, const void* b) = nullptr;
  std::string (*entry_name)(int entry) = nullptr;  ///< "22A", "7"; null where there is one entry
  When when = When::kAlways;                       ///< the models that have the table
};

/// All tables in the order in which a user meets them. The last one is the memory image in runs of
/// kRunLength bytes, so that what no record holds is undone and recovered as well.
[[nodiscard]] std::span<const Table> Catalogue();
inline constexpr int kRunLength = 16;

[[nodiscard]] const Table& TableOf(FieldRef at);
[[nodiscard]] const Field& FieldOf(FieldRef at);
[[nodiscard]] bool HasField(const ModelProfile& profile, const Table& table, const Field& field);

/// "usa/22A/name", "common/scan", "exp_present". Letter case is ignored when reading.
[[nodiscard]] std::string PathOf(FieldRef at);
[[nodiscard]] std::optional<FieldRef> RefOf(std::string_view path);
/// By the record's address and its member, see RefTo. REQUIRES: the record is the data set's own
/// and has the member.
[[nodiscard]] FieldRef RefOf(const RadioData& data, const void* record, const char* member);
/// "USA 22A CH Name", "Common Setup SCAN".
[[nodiscard]] std::string NameOf(FieldRef at);

[[nodiscard]] Value Get(const RadioData& data, FieldRef at);
/// The value has the type that Get returns; nothing is checked.
void Set(RadioData& data, FieldRef at, const Value& value);
/// Limits and the field's own rule. "" when the model takes the value.
[[nodiscard]] std::string RefusalOf(const ModelProfile& profile, FieldRef at, const Value& value);

/// In catalogue order, fields that the model lacks included: a history must miss nothing.
/// Empty exactly when the data sets are equal.
[[nodiscard]] std::vector<Change> Differences(const RadioData& before, const RadioData& after);
void Apply(RadioData& data, std::span<const Change> changes);   ///< befores are not looked at
void Revert(RadioData& data, std::span<const Change> changes);  ///< last change first

}  // namespace orvane::core
