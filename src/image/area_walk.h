#pragma once

#include <vector>

#include "image/row.h"

namespace orvane::image {

/// The rows of an area that a model uses in one direction, chosen once for all entries.
template <class Record, class Wanted>
std::vector<const Row<Record>*> ChosenRows(const Area<Record>& area, Wanted wanted) {
  std::vector<const Row<Record>*> rows;
  rows.reserve(area.rows.size());
  for (const Row<Record>& row : area.rows) {
    if (wanted(row)) rows.push_back(&row);
  }
  return rows;
}

/// Visitor that decodes the areas it is shown.
struct AreaDecoder {
  core::RadioData& data;
  const core::ModelProfile& profile;

  template <class Record>
  void operator()(const Area<Record>& area) const {
    if (!Has(profile, area.when)) return;
    const std::vector<const Row<Record>*> rows = ChosenRows(area, [this](const Row<Record>& row) {
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
    const std::vector<const Row<Record>*> rows = ChosenRows(area, [this](const Row<Record>& row) {
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
