#include "image/memory_differences.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>

#include "core/catalogue.h"
#include "core/number_text.h"
#include "image/layout_all.h"
#include "image/piece_name.h"

namespace orvane::image {
namespace {

constexpr int kHexDigits = 2;      // of a byte
constexpr int kAddressDigits = 4;  // of an address
constexpr std::uint8_t kAllBits = 0xFF;
// As the catalogue cuts the memory, so that each difference lies in one run.
constexpr int kStretch = core::kRunLength;

/// Calls with each byte of the bits and the mask of those in it.
template <class Visit>
void ForEachByte(Bits bits, Visit visit) {
  const int end = bits.first + bits.count;
  for (int byte = bits.FirstByte(); byte <= bits.LastByte(); ++byte) {
    unsigned mask = kAllBits;
    if (byte * 8 < bits.first) mask &= 0xFFU >> (bits.first - byte * 8);
    if (byte * 8 + 8 > end) mask &= 0xFFU << (byte * 8 + 8 - end);
    visit(static_cast<std::size_t>(byte), static_cast<std::uint8_t>(mask));
  }
}

std::string BytesText(const core::MemoryImage& image, Bits bits) {
  std::string text;
  for (int byte = bits.FirstByte(); byte <= bits.LastByte(); ++byte) {
    if (!text.empty()) text += ' ';
    text += core::HexText(image[byte], kHexDigits);
  }
  return text;
}

std::string AddressName(Bits bits) {
  std::string name =
      "Memory " + core::HexText(static_cast<unsigned>(bits.FirstByte()), kAddressDigits);
  if (bits.LastByte() != bits.FirstByte()) {
    name += "-" + core::HexText(static_cast<unsigned>(bits.LastByte()), kAddressDigits);
  }
  const std::string part = BitsText(bits);
  return part.empty() ? name : name + " bits " + part;
}

class Finder {
 public:
  Finder(const core::ModelProfile& profile, const core::MemoryImage& ours,
         const core::MemoryImage& theirs)
      : profile_(profile), ours_(ours), theirs_(theirs) {
    for (int byte = 0; byte < profile.image_size; ++byte) {
      left_[static_cast<std::size_t>(byte)] = ours[byte] ^ theirs[byte];
    }
    nobodys_.fill(kAllBits);
  }

  std::vector<MemoryDifference> Find() {
    layout::VisitAll([this](const auto& area) { Claim(area); });
    layout::VisitAll([this](const auto& area) { Name(area); });
    AddUnnamed();
    std::sort(found_.begin(), found_.end(),
              [](const MemoryDifference& a, const MemoryDifference& b) {
                return a.bits.first < b.bits.first;
              });
    return std::move(found_);
  }

 private:
  // A record tells of it, or nobody asks for it.
  template <class Record>
  static bool IsForgotten(const Row<Record>& row) {
    return row.decode != nullptr || row.encode != nullptr || row.housekeeping;
  }

  template <class Record>
  void Claim(const Area<Record>& area) {
    if (!Has(profile_, area.when)) return;
    for (const Row<Record>& row : area.rows) {
      if (!Has(profile_, row.read) && !Has(profile_, row.written)) continue;
      for (int i = 0; i < area.count; ++i) {
        const int offset = area.EntryOffset(profile_, i);
        Claim(row.place.bits.MovedBy(offset), IsForgotten(row));
        if (row.place.head.count > 0) Claim(row.place.head.MovedBy(offset), IsForgotten(row));
      }
    }
  }

  void Claim(Bits bits, bool forget) {
    ForEachByte(bits, [&](std::size_t byte, std::uint8_t mask) {
      nobodys_[byte] = static_cast<std::uint8_t>(nobodys_[byte] & ~mask);
      if (forget) left_[byte] = static_cast<std::uint8_t>(left_[byte] & ~mask);
    });
  }

  template <class Record>
  void Name(const Area<Record>& area) {
    if (!Has(profile_, area.when)) return;
    for (const Row<Record>& row : area.rows) {
      if (IsForgotten(row) || !Has(profile_, row.read)) continue;
      for (int i = 0; i < area.count; ++i) Name(area, row, i);
    }
  }

  template <class Record>
  void Name(const Area<Record>& area, const Row<Record>& row, int index) {
    const Bits bits = row.place.bits.MovedBy(area.EntryOffset(profile_, index));
    bool differs = false;
    ForEachByte(bits, [&](std::size_t byte, std::uint8_t mask) {
      differs = differs || (left_[byte] & mask) != 0;
      left_[byte] = static_cast<std::uint8_t>(left_[byte] & ~mask);
    });
    if (!differs) return;
    std::string ours = row.text(ours_.All().data(), bits);
    std::string theirs = row.text(theirs_.All().data(), bits);
    if (ours == theirs) {
      ours = BytesText(ours_, bits);
      theirs = BytesText(theirs_, bits);
    }
    found_.push_back({bits, EntryName(area, index, row), std::move(ours), std::move(theirs)});
  }

  void AddUnnamed() {
    for (int byte = 0; byte < profile_.image_size; ++byte) {
      if (!IsLeft(byte)) continue;
      const int first = byte;
      if (!IsNobodys(byte)) {
        AddParts(byte);
        continue;
      }
      while (byte + 1 < profile_.image_size && (byte + 1) % kStretch != 0 && IsLeft(byte + 1) &&
             IsNobodys(byte + 1)) {
        ++byte;
      }
      AddUnnamed(BytesAt(first, byte - first + 1));
    }
  }

  // A byte some of whose bits belong to a field.
  void AddParts(int byte) {
    const auto index = static_cast<std::size_t>(byte);
    for (int high = 7; high >= 0; --high) {
      if ((nobodys_[index] >> high & 1) == 0) continue;
      int low = high;
      while (low > 0 && (nobodys_[index] >> (low - 1) & 1) != 0) --low;
      const Bits bits = BitRange(byte, high, low);
      if (ReadBits(left_.data(), bits) != 0) AddUnnamed(bits);
      high = low;
    }
  }

  void AddUnnamed(Bits bits) {
    const bool whole = bits.count % 8 == 0;
    const auto text = [&](const core::MemoryImage& image) {
      return whole ? BytesText(image, bits) : std::to_string(ReadBits(image.All().data(), bits));
    };
    found_.push_back({bits, AddressName(bits), text(ours_), text(theirs_)});
  }

  [[nodiscard]] bool IsLeft(int byte) const { return left_[static_cast<std::size_t>(byte)] != 0; }
  [[nodiscard]] bool IsNobodys(int byte) const {
    return nobodys_[static_cast<std::size_t>(byte)] == kAllBits;
  }

  const core::ModelProfile& profile_;
  const core::MemoryImage& ours_;
  const core::MemoryImage& theirs_;
  std::array<std::uint8_t, core::MemoryImage::kSize> left_{};  ///< differing bits not yet told of
  std::array<std::uint8_t, core::MemoryImage::kSize> nobodys_{};  ///< bits that no row claims
  std::vector<MemoryDifference> found_;
};

}  // namespace

std::vector<MemoryDifference> MemoryDifferences(const core::ModelProfile& profile,
                                                const core::MemoryImage& ours,
                                                const core::MemoryImage& theirs) {
  if (std::equal(ours.All().begin(), ours.All().end(), theirs.All().begin())) return {};
  return std::make_unique<Finder>(profile, ours, theirs)->Find();
}

void CopyBits(core::MemoryImage& to, const core::MemoryImage& from, Bits bits) {
  if (bits.first % 8 == 0 && bits.count % 8 == 0) {
    std::copy_n(from.All().begin() + bits.FirstByte(), bits.Length(),
                to.All().begin() + bits.FirstByte());
  } else {
    WriteBits(to.All().data(), bits, ReadBits(from.All().data(), bits));
  }
}

}  // namespace orvane::image
