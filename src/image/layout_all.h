#pragma once

#include "image/layout_carried.h"
#include "image/layout_channels.h"
#include "image/layout_settings.h"

namespace orvane::image::layout {

/// Every area of the memory that has a name.
template <class Visitor>
constexpr void VisitAll(Visitor&& visit) {
  VisitCarried(visit);
  VisitSettings(visit);
  VisitMarineAndWx(visit);
  VisitDirectories(visit);
  VisitExtra(visit);
}

}  // namespace orvane::image::layout
