#include "core/model_profile_rows.h"
#include "image/layout_all.h"

/// Proves while compiling that no two fields of a model claim the same bit, except where the
/// upper and the lower one both say so, and that no field lies outside the model's memory.
namespace orvane::image {
namespace {

struct Claims {
  std::array<std::uint8_t, core::MemoryImage::kSize> plain{};
  std::array<std::uint8_t, core::MemoryImage::kSize> above{};
  std::array<std::uint8_t, core::MemoryImage::kSize> may_be_covered{};
};

class Checker {
 public:
  constexpr explicit Checker(const core::ModelProfile& profile) : profile_(profile) {}

  template <class Record>
  constexpr void operator()(const Area<Record>& area) {
    if (!Has(profile_, area.when)) return;
    for (int i = 0; i < area.count; ++i) {
      const int offset = area.EntryOffset(profile_, i);
      for (const Row<Record>& row : area.rows) {
        // A field that is only written claims its bits, too.
        if (!Has(profile_, row.read) && !Has(profile_, row.written)) continue;
        Claim(row.place.bits.MovedBy(offset), row.overlap);
        if (row.place.head.count > 0) Claim(row.place.head.MovedBy(offset), row.overlap);
      }
    }
  }

  [[nodiscard]] constexpr bool Sound() const {
    for (std::size_t i = 0; i < claims_.plain.size(); ++i) {
      if ((claims_.plain[i] & claims_.above[i] & ~claims_.may_be_covered[i]) != 0) return false;
    }
    return sound_;
  }

 private:
  constexpr void Claim(Bits bits, Overlap overlap) {
    if (bits.first < 0 || bits.count < 1 || bits.LastByte() >= profile_.image_size) {
      sound_ = false;
      return;
    }
    const int end = bits.first + bits.count;
    for (int byte = bits.FirstByte(); byte <= bits.LastByte(); ++byte) {
      unsigned mask = 0xFF;
      if (byte * 8 < bits.first) mask &= 0xFFU >> (bits.first - byte * 8);
      if (byte * 8 + 8 > end) mask &= 0xFFU << (byte * 8 + 8 - end);
      const auto index = static_cast<std::size_t>(byte);
      const auto claim = static_cast<std::uint8_t>(mask);
      auto& claims = overlap == Overlap::kAbove ? claims_.above : claims_.plain;
      if ((claims[index] & claim) != 0) sound_ = false;
      claims[index] = static_cast<std::uint8_t>(claims[index] | claim);
      if (overlap == Overlap::kBeneath) {
        claims_.may_be_covered[index] =
            static_cast<std::uint8_t>(claims_.may_be_covered[index] | claim);
      }
    }
  }

  const core::ModelProfile& profile_;
  Claims claims_;
  bool sound_ = true;
};

constexpr bool IsSound(const core::ModelProfile& profile) {
  Checker checker(profile);
  layout::VisitAll(checker);
  return checker.Sound();
}

using core::model_profile_rows::kProfiles;
static_assert(kProfiles.size() == 7);
static_assert(IsSound(kProfiles[0]));
static_assert(IsSound(kProfiles[1]));
static_assert(IsSound(kProfiles[2]));
static_assert(IsSound(kProfiles[3]));
static_assert(IsSound(kProfiles[4]));
static_assert(IsSound(kProfiles[5]));
static_assert(IsSound(kProfiles[6]));

}  // namespace
}  // namespace orvane::image
