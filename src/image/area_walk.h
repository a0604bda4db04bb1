#pragma once

#include <array>
#include <cassert>
#include <span>

#include "image/row.h"

namespace orvane::image {

/// The rows of an area that a model uses in one direction, chosen once for all entries.
template <class Record>
class ChosenRows {
 public:
  template <class Wanted>
  ChosenRows(const Area<Record>& area, Wanted wanted) {
    assert(area.rows.size() <= rows_.size());
    for (const Row<Record>& row : area.rows) {
      if (wanted(row)) rows_[count_++] = &row;
    }
  }
  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.begin() + static_cast<std::ptrdiff_t>(count_); }

 private:
  std::array<const Row<Record>*, 32> rows_{};
  std::size_t count_ = 0;
};

/// Visitor that decodes the areas it is shown.
struct AreaDecoder {
  core::RadioData& data;
  const core::ModelProfile& profile;

  template <class Record>
  void operator()(const Area<Record>& area) const {
    if (!Has(profile, area.when)) return;
    const ChosenRows<Record> rows(area, [this](const Row<Record>& row) {
      return row.decode != nullptr && Has(profile, row.read);
    });
    for (int i = 0; i < area.count; ++i) {
      Record& record = area.entry(data, i);
      const std::uint8_t* base = data.Image.All().data() + area.EntryOffset(profile, i);
      for (const Row<Record>* row : rows) row->decode(record, base, row->place);
    }
  }
};

/// Visitor that encodes the areas it is shown.
struct AreaEncoder {
  core::RadioData& data;
  EncodeContext context;

  template <class Record>
  void operator()(const Area<Record>& area) const {
    if (!Has(context.profile, area.when)) return;
    const ChosenRows<Record> rows(area, [this](const Row<Record>& row) {
      return row.encode != nullptr && Has(context.profile, row.written);
    });
    for (int i = 0; i < area.count; ++i) {
      const Record& record = area.entry(data, i);
      std::uint8_t* base = data.Image.All().data() + area.EntryOffset(context.profile, i);
      for (const Row<Record>* row : rows) row->encode(record, base, row->place, context);
    }
  }
};

}  // namespace orvane::image
