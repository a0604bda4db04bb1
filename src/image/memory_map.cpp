#include "image/memory_map.h"

#include <algorithm>
#include <bitset>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <tuple>
#include <utility>

#include "core/model_profile.h"
#include "core/number_text.h"
#include "core/rendering.h"
#include "image/layout_all.h"
#include "image/piece_name.h"

namespace orvane::image {
namespace {

constexpr std::string_view kUnowned = "(not used)";

/// Visitor that makes a row of every piece of every field.
class MapBuilder {
 public:
  MapBuilder(const core::MemoryImage& image, const core::ModelProfile& profile)
      : image_(image), profile_(profile) {}

  template <class Record>
  void operator()(const Area<Record>& area) {
    if (!Has(profile_, area.when)) return;
    for (int i = 0; i < area.count; ++i) {
      const int offset = area.EntryOffset(profile_, i);
      // Offsets may be negative within an entry, so the base is no pointer into the array yet.
      for (const Row<Record>& row : area.rows) {
        if (!Has(profile_, row.read) && !Has(profile_, row.written)) continue;
        const Bits bits = row.place.bits.MovedBy(offset);
        const Bits head = row.place.head.MovedBy(offset);
        const std::string name = EntryName(area, i, row);
        const std::string value = row.text(image_.All().data(), {bits, head});
        Add(bits, name, value);
        if (head.count > 0) Add(head, name, value);
      }
    }
  }

  std::vector<MapRow> Finish() {
    AddUnowned();
    std::sort(pieces_.begin(), pieces_.end(), [](const Piece& a, const Piece& b) {
      return std::tie(a.bits.first, a.bits.count, a.row.name) <
             std::tie(b.bits.first, b.bits.count, b.row.name);
    });
    std::vector<MapRow> rows;
    rows.reserve(pieces_.size());
    for (Piece& piece : pieces_) rows.push_back(std::move(piece.row));
    return rows;
  }

 private:
  struct Piece {
    Bits bits;
    MapRow row;
  };

  void Add(Bits bits, std::string name, std::string value) {
    for (int i = bits.first; i < bits.first + bits.count; ++i) {
      owned_.set(static_cast<std::size_t>(i));
    }
    MapRow row{.offset = bits.FirstByte(),
               .length = bits.LastByte() - bits.FirstByte() + 1,
               .bits = BitsText(bits),
               .name = std::move(name),
               .bytes = {},
               .value = std::move(value)};
    for (int i = bits.FirstByte(); i <= bits.LastByte(); ++i) {
      if (!row.bytes.empty()) row.bytes += ' ';
      row.bytes += core::HexText(image_[i], 2);
    }
    pieces_.push_back({bits, std::move(row)});
  }

  // Runs of unowned bits; whole bytes are kept apart from the bits before and after them.
  void AddUnowned() {
    const int end = image_.UsedSize() * 8;
    int first = 0;
    while (first < end) {
      if (owned_.test(static_cast<std::size_t>(first))) {
        ++first;
        continue;
      }
      int last = first;
      while (last < end && !owned_.test(static_cast<std::size_t>(last))) ++last;
      const int next_byte = (first + 7) / 8 * 8;
      int stop = std::min(last, next_byte);
      if (stop == first) stop = last - first >= 8 ? last / 8 * 8 : last;
      Add({first, stop - first}, std::string(kUnowned), {});
      first = stop;
    }
  }

  const core::MemoryImage& image_;
  const core::ModelProfile& profile_;
  std::bitset<static_cast<std::size_t>(core::MemoryImage::kSize) * 8> owned_;
  std::vector<Piece> pieces_;
};

/// Visitor that makes a line of the page of each piece of each field. Of equal entries it shows the
/// first.
class PageBuilder {
 public:
  /// Kept in the order in which the page shows them.
  using Lines = std::map<std::pair<int, std::string>, std::string>;

  explicit PageBuilder(const core::ModelProfile& profile) : profile_(profile) {}

  template <class Record>
  void operator()(const Area<Record>& area) {
    if (!Has(profile_, area.when)) return;
    const int offset = area.EntryOffset(profile_, 0);
    std::string repeats;
    if (area.count > 1) {
      repeats = std::to_string(area.count) + " times, every " + std::to_string(area.stride);
    }
    for (const Row<Record>& row : area.rows) {
      if (!Has(profile_, row.read) && !Has(profile_, row.written)) continue;
      const std::string name = EntryName(area, 0, row);
      std::string notes = repeats;
      if (row.overlap == Overlap::kBeneath) {
        notes.append(notes.empty() ? "" : "; ").append("gives way");
      }
      for (const Bits bits : {row.place.bits, row.place.head}) {
        if (bits.count > 0) Add(bits.MovedBy(offset), name, notes);
      }
    }
  }

  [[nodiscard]] const Lines& Finished() const { return lines_; }

 private:
  void Add(Bits bits, const std::string& name, const std::string& notes) {
    std::string line;
    for (const std::string& cell :
         {std::to_string(bits.FirstByte()), std::to_string(bits.LastByte() - bits.FirstByte() + 1),
          BitsText(bits), name, notes}) {
      line.append("| ").append(cell).append(cell.empty() ? "" : " ");
    }
    lines_[{bits.first, line}] = line + "|\n";
  }

  const core::ModelProfile& profile_;
  Lines lines_;
};

constexpr std::string_view kPageHead =
    "# The memory of the radios\n\n"
    "Where each field lies in the memory image, printed from the tables that read and write it.\n"
    "A field stands in the section of the models that have it in that place: first what all have,\n"
    "then what some have. Bytes that no table names are carried through as they came.\n\n"
    "- *offset*, *length*: first byte and number of bytes, counted from 0.\n"
    "- *bits*: 7 is the most significant; from a bit of the first byte to one of the last. Empty:\n"
    "  whole bytes.\n"
    "- *notes*: of equal entries the first is shown; how many there are and how many bytes lie "
    "from\n"
    "  one to the next. A field that gives way has its bits only where no other field of the "
    "model\n"
    "  claims them.\n\n"
    "`orvane-cli map` prints the same for one image, with every entry and its value.\n";
constexpr std::string_view kTableHead =
    "| offset | length | bits | name | notes |\n|---|---|---|---|---|\n";

// Long stretches would hide the table; the report is no hex dump.
std::string Shortened(const std::string& bytes) {
  constexpr std::size_t kWidth = 47;  // sixteen bytes
  return bytes.size() <= kWidth ? bytes : bytes.substr(0, kWidth) + " ...";
}

}  // namespace

std::vector<MapRow> MemoryMap(const core::RadioData& data) {
  const auto builder = std::make_unique<MapBuilder>(data.Image, core::ProfileOf(data));
  layout::VisitAll(*builder);
  return builder->Finish();
}

std::string MemoryMapText(const core::RadioData& data) {
  std::string text =
      "offset length bits  " + core::Cell("name", 36) + " value                        bytes\n";
  for (const MapRow& row : MemoryMap(data)) {
    text += core::Cell(std::to_string(row.offset), 6) + ' ' +
            core::Cell(std::to_string(row.length), 6) + ' ' + core::Cell(row.bits, 5) + ' ' +
            core::Cell(row.name, 36) + ' ' + core::Cell(row.value, 28) + ' ' +
            Shortened(row.bytes) + '\n';
  }
  return text;
}

std::string MemoryMapPage() {
  std::map<PageBuilder::Lines::value_type, std::vector<std::string_view>> owners;
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    PageBuilder builder(profile);
    layout::VisitAll(builder);
    for (const auto& line : builder.Finished()) owners[line].push_back(profile.model);
  }
  // The larger families first.
  std::map<std::pair<std::size_t, std::vector<std::string_view>>, std::string, std::greater<>>
      sections;
  for (const auto& [line, models] : owners) sections[{models.size(), models}] += line.second;

  std::string page(kPageHead);
  for (const auto& [family, lines] : sections) {
    std::string title;
    for (const std::string_view model : family.second) {
      title.append(title.empty() ? "" : ", ").append(model);
    }
    if (family.first == core::ModelProfiles().size()) title = "All models";
    page.append("\n## ").append(title).append("\n\n").append(kTableHead).append(lines);
  }
  return page;
}

}  // namespace orvane::image
