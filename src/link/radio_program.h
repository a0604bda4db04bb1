#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/port_list.h"

/// What the program that plays a radio at a port of its own (orvane-radio) and those that start it
/// agree on.
namespace orvane::link {

inline constexpr std::string_view kRadioProgram = "orvane-radio";

/// How its port is described wherever ports are listed.
inline constexpr std::string_view kSimulatedRadio = "Simulated radio";
[[nodiscard]] bool IsSimulatedRadio(const PortLabel& port);

/// Its options that others give it.
inline constexpr std::string_view kModelOption = "--model";
inline constexpr std::string_view kPortOption = "--port";
inline constexpr std::string_view kQuietOption = "--quiet";
/// It ends when its standard input does: with whoever started it, whatever ends that.
inline constexpr std::string_view kUntilInputEndsOption = "--until-input-ends";
/// Between the numbers of kPortOption, of which it takes the first that is free.
inline constexpr char kBetweenPorts = ',';

/// The words for a radio of that model that speaks of nothing and ends with its standard input.
[[nodiscard]] std::vector<std::string> RadioProgramWords(std::int16_t model_type,
                                                         const std::vector<int>& numbers);

/// The line it writes to standard output once its port can be opened: "COM16 is /dev/pts/3".
[[nodiscard]] std::string RadioReadyLine(int number, std::string_view device);
/// The number in such a line, nothing for another one.
[[nodiscard]] std::optional<int> NumberOfReadyLine(std::string_view line);

/// Port numbers for a simulated radio, the highest first: devices without a number of their own
/// take the low ones. Left out are the ports there are, and those that `is_spoken_for` knows of.
[[nodiscard]] std::vector<int> NumbersForSimulatedRadio(
    const std::vector<PortEntry>& ports, const std::function<bool(int number)>& is_spoken_for);

}  // namespace orvane::link
