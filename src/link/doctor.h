#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/model_profile.h"
#include "link/port_list.h"

/// What is wrong between the program and a radio, told from what was observed at its port. Pure:
/// the observations come from PortCheck and from DeviceFacts.
namespace orvane::link {

/// A program that has a port open.
struct PortHolder {
  std::string program;
  int process = 0;  ///< its number

  bool operator==(const PortHolder&) const = default;
  [[nodiscard]] std::string Text() const;  ///< "minicom (process 4711)"
};

/// "in use by minicom (process 4711), cat (process 9)", or that none is known.
[[nodiscard]] std::string UseText(const std::vector<PortHolder>& holders);

/// Who may use a device by joining a group.
struct DeviceGroup {
  std::string group;  ///< "": no group would help
  std::string user;   ///< who runs this program
};

/// What the system tells about serial devices beside their list.
class DeviceFacts {
 public:
  virtual ~DeviceFacts() = default;
  /// For each device the other programs that have it open. The programs of other users, and those
  /// at the other end of a pseudo-terminal, are not among them. What is no terminal has none.
  [[nodiscard]] virtual std::vector<std::vector<PortHolder>> HoldersOf(
      const std::vector<std::string>& devices) = 0;
  /// The running programs of that name, whoever runs them.
  [[nodiscard]] virtual std::vector<PortHolder> Running(std::string_view program) = 0;
  [[nodiscard]] virtual DeviceGroup GroupOf(const std::string& device) = 0;
};

/// Of each port those that have it open; none where devices is null.
[[nodiscard]] std::vector<std::vector<PortHolder>> HoldersOf(DeviceFacts* devices,
                                                             const std::vector<PortEntry>& ports);

/// Programs that are known to take ports by themselves.
inline constexpr std::string_view kModemManagerProgram = "ModemManager";
inline constexpr std::string_view kBrlttyProgram = "brltty";

/// Those of them that run.
[[nodiscard]] std::vector<PortHolder> TakersAmong(DeviceFacts& devices);

enum class Verdict {
  kNoDevice,
  kNoDeviceBrltty,  ///< which may be the reason
  kNotSerial,
  kBusy,
  kBusyUnknown,  ///< by whom
  kModemManager,
  kBrltty,
  kNoPermission,
  kNoGroup,  ///< no permission, and no group would help
  kCannotOpen,
  kNothingBack,
  kOtherDevice,
  kNoRadio,
  kNotReady,
  kOtherModel,
  kUnknownModel,
  kOtherProduct,
  kReady,
  kBrokeOff,
  kCancelled
};

/// Texts may hold places for facts and links, as those of core::MessageRow do.
struct VerdictRow {
  Verdict verdict;
  std::string_view name;  ///< for programs: "no-device"
  std::string_view text;
  std::string_view remedy;     ///< one sentence
  std::string_view command{};  ///< what carries it out in a terminal, if anything
};
/// In the order of Verdict.
[[nodiscard]] std::span<const VerdictRow> VerdictRows();
[[nodiscard]] const VerdictRow& RowOf(Verdict verdict);

struct Observations {
  std::string device{};               ///< what was to be opened
  std::vector<PortHolder> holders{};  ///< seen before it was opened; it was not opened then
  /// The system's number and words for why it could not be opened; nothing when it could.
  std::optional<int> open_failure{};
  std::string reason{};
  std::vector<PortHolder> takers{};  ///< what TakersAmong() found
  DeviceGroup permission{};

  bool echo = false;       ///< the cable sent back what was sent
  bool stranger = false;   ///< something else came back
  bool answer = false;     ///< something came behind the echo
  bool broke_off = false;  ///< the device failed, or the echo was missing after it had been there
  bool cancelled = false;
  std::string complaint{};  ///< why a radio that answers could not be asked, a sentence or nothing
  /// Codes of the radio, as the program's model or the one they name has them.
  std::optional<core::CodePair> codes{};
  std::optional<std::uint8_t> product{};
};

struct Diagnosis {
  Verdict verdict = Verdict::kCannotOpen;
  std::string text;
  std::string remedy;
  std::string command;  ///< "" when there is none
};
/// wanted: the program's model; null when a radio of any known model will do.
[[nodiscard]] Diagnosis Diagnose(const Observations& seen, const core::ModelProfile* wanted);

/// What the number of a failed opening alone tells, with what the system tells about the device;
/// nothing when it tells nothing.
[[nodiscard]] std::optional<Diagnosis> DiagnoseOpening(const Observations& seen);

/// Text, remedy and command in one line.
[[nodiscard]] std::string OneLine(const Diagnosis& diagnosis);

}  // namespace orvane::link
