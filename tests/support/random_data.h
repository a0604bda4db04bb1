#pragma once

#include <random>
#include <string>

#include "core/catalogue.h"
#include "core/radio_data.h"
#include "support/image_fixtures.h"

/// Data sets with any value that the catalogue lets a field have. A seed gives the same data again.
namespace orvane::testing {

class RandomData {
 public:
  explicit RandomData(unsigned seed) : engine_(seed) {}

  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(engine_); }

  /// A value of the field's type, within its limits.
  core::Value ValueFor(core::FieldRef at) {
    const core::Field& field = core::FieldOf(at);
    const core::Value now = field.get(core::TableOf(at).record(Empty(), at.entry));
    if (std::holds_alternative<bool>(now)) return Below(2) == 1;
    if (std::holds_alternative<double>(now)) return Below(4) == 0 ? 0 : 137 + 0.0125 * Below(2960);
    if (const auto* text = std::get_if<std::string>(&now)) {
      const bool run = core::TableOf(at).kind == core::TableKind::kMemory;
      return Text(run ? static_cast<int>(text->size()) : Below(13));
    }
    return std::uniform_int_distribution<std::int32_t>(field.limits.lowest,
                                                       field.limits.highest)(engine_);
  }

  core::FieldRef AnyField() {
    const auto tables = core::Catalogue();
    // Past the model, which no edit changes.
    core::FieldRef at;
    at.table = static_cast<std::uint8_t>(1 + Below(static_cast<int>(tables.size()) - 1));
    const core::Table& table = tables[at.table];
    at.entry = static_cast<std::uint16_t>(Below(table.count));
    at.field = static_cast<std::uint8_t>(Below(static_cast<int>(table.fields.size())));
    return at;
  }

  void Scatter(core::RadioData& data, int fields) {
    while (fields-- > 0) {
      const core::FieldRef at = AnyField();
      core::Set(data, at, ValueFor(at));
    }
  }

  /// A new data set of the model with some thousand fields changed.
  core::RadioData Of(int model_type) {
    core::RadioData data = NewData(model_type);
    Scatter(data, 3000);
    return data;
  }

 private:
  std::string Text(int length) {
    std::string text;
    while (length-- > 0) text += static_cast<char>('!' + Below(90));
    return text;
  }

  // A static member of that size is more than clang-tidy can evaluate.
  static const core::RadioData& Empty() {
    static const core::RadioData kEmpty;
    return kEmpty;
  }

  std::mt19937 engine_;
};

}  // namespace orvane::testing
