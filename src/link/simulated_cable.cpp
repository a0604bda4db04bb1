#include "link/simulated_cable.h"

#include <algorithm>

namespace orvane::link {
namespace {

constexpr double kBitsPerByte = 10;  ///< start bit, 8 data bits, stop bit

}  // namespace

SimulatedCable::SimulatedCable(SimulatedRadio& radio, double baud)
    : radio_(radio), seconds_per_byte_(baud > 0 ? kBitsPerByte / baud : 0) {}

void SimulatedCable::Transmit(std::span<const std::uint8_t> bytes, double now) {
  double time = std::max(now, wire_free_at_);
  for (const std::uint8_t byte : bytes) {
    if (!radio_.Plugged()) break;
    time += seconds_per_byte_;
    const CableReaction reaction = radio_.Receive(byte, time);
    if (reaction.echo) Queue({time, reaction.echo});
    double answer_time = time + reaction.answer_delay;
    for (const char c : reaction.answer) {
      answer_time += seconds_per_byte_;
      Queue({answer_time, static_cast<std::uint8_t>(c)});
    }
    // While a late answer is still awaited the wire is free.
    if (reaction.answer_delay == 0) time = answer_time;
    if (reaction.unplugged) {
      unplug_at_ = answer_time;
      Queue({answer_time, std::nullopt});
    }
  }
  wire_free_at_ = time;
}

std::optional<double> SimulatedCable::NextArrival() const {
  if (arrivals_.empty()) return std::nullopt;
  return arrivals_.front().at;
}

std::optional<SimulatedCable::Arrival> SimulatedCable::Take(double now) {
  if (arrivals_.empty() || arrivals_.front().at > now) return std::nullopt;
  const Arrival arrival = arrivals_.front();
  arrivals_.pop_front();
  return arrival;
}

void SimulatedCable::Queue(const Arrival& arrival) {
  if (arrivals_.empty() || arrivals_.back().at <= arrival.at) {
    arrivals_.push_back(arrival);
    return;
  }
  // Something overtakes a late answer.
  const auto later =
      std::upper_bound(arrivals_.begin(), arrivals_.end(), arrival,
                       [](const Arrival& a, const Arrival& b) { return a.at < b.at; });
  arrivals_.insert(later, arrival);
}

}  // namespace orvane::link
