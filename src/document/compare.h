#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/catalogue.h"
#include "core/radio_data.h"
#include "image/bits.h"

/// How two data sets of one model differ, as a user reads it, and how to take differences over.
namespace orvane::document {

/// One row of a comparison. Texts are 8-bit Windows-1252, like the data.
struct Difference {
  core::FieldRef at;  ///< the field; for memory without a field the run in which it lies
  std::string name;   ///< "USA 22A CH Name"; for memory "USA 3 stored channel", "Memory 1F00"
  std::string ours;   ///< in the field's notation; for memory a number or hexadecimal bytes
  std::string theirs;
  image::Bits bits{};  ///< memory without a field: which bits; none for a field

  [[nodiscard]] bool IsMemory() const { return bits.count > 0; }
};

/// In catalogue order, so that the rows of one table stand together; core::TableOf(row.at).label
/// names the group.
struct Comparison {
  bool different_models = false;  ///< then there are no rows, and nothing can be taken over
  std::vector<Difference> rows;

  [[nodiscard]] bool AreEqual() const { return !different_models && rows.empty(); }
};

/// A field of both data sets, by its place alone: the texts of thousands of rows are made for those
/// that somebody looks at.
struct ComparedField {
  core::FieldRef at;
  bool differs = false;
};
enum class Listed : std::uint8_t { kDifferences, kAll };
/// The fields that Compare looks at, in catalogue order; memory without a field is not among them.
/// Nothing for data sets of different models.
[[nodiscard]] std::vector<ComparedField> CompareFields(const core::RadioData& ours,
                                                       const core::RadioData& theirs,
                                                       Listed listed);
/// The row of a field, whether it differs or not.
[[nodiscard]] Difference RowOf(const core::RadioData& ours, const core::RadioData& theirs,
                               core::FieldRef at);
/// Whether the two differ in a row that came from comparing data sets of their model.
[[nodiscard]] bool Differs(const core::RadioData& ours, const core::RadioData& theirs,
                           const Difference& row);
/// Where memory without a field differs. REQUIRES: data sets of one model.
[[nodiscard]] std::vector<Difference> CompareMemory(const core::RadioData& ours,
                                                    const core::RadioData& theirs);

/// All that differs: the fields, then the memory. Left out is what the model lacks, what follows
/// from other fields or from the channel plan, and memory that a record tells of or that radio and
/// program write by themselves (checksum, model code, product). So data sets that compare equal may
/// still differ in bytes that no user set.
[[nodiscard]] Comparison Compare(const core::RadioData& ours, const core::RadioData& theirs);

/// The data set as a radio holds and gives it back after programming: encoded, repaired, decoded.
/// To tell whether a radio holds what a data set says, compare this one with what was read: a data
/// set may say more than a radio can hold (Tx Enable of a channel with power code 0).
[[nodiscard]] std::unique_ptr<core::RadioData> AfterProgramming(const core::RadioData& data,
                                                                core::Date today);

/// A field that could not become what the other data set has there.
struct TakeOverRefusal {
  core::FieldRef at;
  std::string name;
  std::string reason;  ///< a sentence
};

/// Body of the edit "Take over": the chosen rows of Compare(data, theirs) become as in theirs, each
/// by the rule of SetField. What a rule drags along is put back where both were equal before, so
/// that taking over makes no new differences; those not chosen may follow the rule. All that is not
/// refused has been taken over. REQUIRES: data sets of one model.
std::vector<TakeOverRefusal> TakeOver(core::RadioData& data, const core::RadioData& theirs,
                                      std::span<const Difference> chosen, core::Date today);

/// Body of an import: the given fields become as in `wanted`, each by the rule of SetField; of them
/// also those that are so already stay so. What is not given follows the rules. All that is not
/// refused has been taken. REQUIRES: data sets of one model.
std::vector<TakeOverRefusal> TakeGiven(core::RadioData& data, const core::RadioData& wanted,
                                       std::span<const core::FieldRef> given, core::Date today);

}  // namespace orvane::document
