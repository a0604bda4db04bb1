#include "core/app_settings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>
#include <utility>

#include "core/model_profile.h"
#include "core/number_text.h"
#include "core/text.h"

namespace orvane::core {
namespace {

constexpr std::string_view kPortSection = "ComPath";
constexpr std::string_view kPortKey = "ComNum";
constexpr std::string_view kModelSection = "ModelPath";
constexpr std::string_view kModelKey = "ModelNum";
constexpr std::string_view kDestinationSection = "IniFilePath";
constexpr std::string_view kDestinationKey = "IniFileName_";  // followed by the MODELTYPE
constexpr std::string_view kWindowSection = "Settings";
constexpr std::string_view kRecentSection = "RecentFiles";
constexpr std::string_view kRecentKey = "File";  // followed by its place, from 1

constexpr std::string_view kProgramSection = "Programming";
constexpr std::string_view kCopyKey = "KeepCopyFirst";
constexpr std::string_view kReadBackKey = "ReadBack";
constexpr std::string_view kTableSection = "Tables";
constexpr std::string_view kSeparatorKey = "Separator";
constexpr std::string_view kOff = "0";
constexpr std::string_view kOn = "1";

constexpr int kDefaultPort = 1;
/// Destinations that need no template file; the first is the one of a fresh installation.
constexpr std::array<std::string_view, 2> kBuiltInDestinations = {"KT740-usa", "KT520-usa"};
constexpr std::size_t kMaxDestinations = 10;

struct WindowKey {
  std::string_view key;
  int WindowGeometry::*member;
};
constexpr std::array<WindowKey, 4> kWindowKeys = {{{"MainLeft", &WindowGeometry::left},
                                                   {"MainTop", &WindowGeometry::top},
                                                   {"MainWidth", &WindowGeometry::width},
                                                   {"MainHeight", &WindowGeometry::height}}};

std::optional<std::int32_t> ReadNumber(const SettingsStore& store, std::string_view section,
                                       std::string_view key) {
  const std::optional<std::string> text = store.Read(section, key);
  return text ? ParseInt32(*text) : std::nullopt;
}

std::string DestinationKey(std::int16_t model_type) {
  return std::string(kDestinationKey) + std::to_string(model_type);
}

std::string RecentKey(std::size_t place) {
  return std::string(kRecentKey) + std::to_string(place);
}

/// What a template's file name ends with: it says which model the template is for.
std::string TemplateEnding(std::int16_t model_type) {
  return "_" + HexText(ProfileOf(model_type).code, 4) + ".ini";
}

bool IsTemplate(std::string_view file_name, std::string_view ending) {
  if (!file_name.ends_with(ending)) return false;
  const std::string_view stem = file_name.substr(0, file_name.size() - ending.size());
  return stem.find("KT") != std::string_view::npos;
}

/// The destination of a template file.
std::string_view NameOf(std::string_view file_name) {
  return file_name.substr(0, file_name.find('_'));
}

bool TakeWord(std::string_view word, StartWords& read) {
  const std::string upper = UpperCase(word);
  if (upper == "/D") return read.debug = true;
  if (upper == "--HELP" || upper == "-H") return read.help = true;
  if (upper == "--READ") return read.read = true;
  if (upper == "--SIMULATED-RADIO") return read.simulated_radio = true;
  return upper == "--VERSION" && (read.version = true);
}

/// Meant as a word and not as a file: "-x", "/X".
bool IsWord(std::string_view argument) {
  if (argument.empty() || argument.front() == '-') return true;
  return argument.front() == '/' && argument.find_first_of("/.", 1) == std::string_view::npos;
}

/// How many of the argument's words the program knows, and how many there are.
std::pair<int, int> TakeWords(std::string_view argument, StartWords& read) {
  int known = 0;
  int words = 0;
  while (!argument.empty()) {
    const std::size_t end = std::min(argument.find(' '), argument.size());
    if (end > 0) ++words;
    if (end > 0 && TakeWord(argument.substr(0, end), read)) ++known;
    argument.remove_prefix(std::min(end + 1, argument.size()));
  }
  return {known, words};
}

}  // namespace

StartWords ReadStartWords(const std::vector<std::string>& arguments) {
  StartWords read;
  for (const std::string& argument : arguments) {
    const auto [known, words] = TakeWords(argument, read);
    if (known == words && words > 0) continue;
    if (known > 0 || IsWord(argument)) {
      read.unknown.push_back(argument);
    } else if (read.file.empty()) {
      read.file = argument;
    } else {
      read.refused.push_back(argument);
    }
  }
  return read;
}

bool AppSettings::WereKept() const {
  const auto has = [this](std::string_view section, std::string_view key) {
    return store_.Read(section, key).has_value();
  };
  return MainWindow() || has(kPortSection, kPortKey) || has(kModelSection, kModelKey) ||
         has(kProgramSection, kCopyKey) || has(kProgramSection, kReadBackKey) ||
         !RecentFiles().empty();
}

int AppSettings::PortNumber() const {
  return ReadNumber(store_, kPortSection, kPortKey).value_or(kDefaultPort);
}

void AppSettings::SetPortNumber(int number) {
  store_.Write(kPortSection, kPortKey, std::to_string(number));
}

std::int16_t AppSettings::ModelType() const {
  const std::int32_t stored =
      ReadNumber(store_, kModelSection, kModelKey).value_or(kDefaultModelType);
  const auto models = static_cast<std::int32_t>(ModelProfiles().size());
  return stored >= 0 && stored < models ? static_cast<std::int16_t>(stored) : kDefaultModelType;
}

void AppSettings::SetModelType(std::int16_t model_type) {
  store_.Write(kModelSection, kModelKey, std::to_string(model_type));
}

std::string AppSettings::Destination(std::int16_t model_type) const {
  return store_.Read(kDestinationSection, DestinationKey(model_type))
      .value_or(std::string(kBuiltInDestinations.front()));
}

void AppSettings::SetDestination(std::int16_t model_type, std::string_view name) {
  store_.Write(kDestinationSection, DestinationKey(model_type), name);
}

std::vector<std::string> AppSettings::RecentFiles() const {
  std::vector<std::string> paths;
  for (std::size_t place = 1; place <= kRecentFiles; ++place) {
    std::optional<std::string> path = store_.Read(kRecentSection, RecentKey(place));
    if (path && !path->empty()) paths.push_back(std::move(*path));
  }
  return paths;
}

void AppSettings::AddRecentFile(const std::string& path) {
  std::vector<std::string> paths = RecentFiles();
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  paths.resize(kRecentFiles);
  std::vector<SettingsEntry> entries;
  entries.reserve(kRecentFiles);
  for (std::size_t place = 1; place <= kRecentFiles; ++place) {
    entries.push_back({std::string(kRecentSection), RecentKey(place), paths[place - 1]});
  }
  store_.WriteAll(entries);
}

bool AppSettings::KeepsCopyFirst() const {
  return store_.Read(kProgramSection, kCopyKey) != kOff;
}

void AppSettings::SetKeepsCopyFirst(bool keeps) {
  store_.Write(kProgramSection, kCopyKey, keeps ? kOn : kOff);
}

bool AppSettings::ReadsBack() const {
  return store_.Read(kProgramSection, kReadBackKey) != kOff;
}

void AppSettings::SetReadsBack(bool reads) {
  store_.Write(kProgramSection, kReadBackKey, reads ? kOn : kOff);
}

std::optional<int> AppSettings::TableSeparator() const {
  return ReadNumber(store_, kTableSection, kSeparatorKey);
}

void AppSettings::SetTableSeparator(int place) {
  store_.Write(kTableSection, kSeparatorKey, std::to_string(place));
}

std::optional<WindowGeometry> AppSettings::MainWindow() const {
  WindowGeometry geometry;
  for (const WindowKey& entry : kWindowKeys) {
    const std::optional<std::int32_t> number = ReadNumber(store_, kWindowSection, entry.key);
    if (!number) return std::nullopt;
    geometry.*entry.member = *number;
  }
  return geometry;
}

void AppSettings::SetMainWindow(const WindowGeometry& geometry) {
  std::vector<SettingsEntry> entries;
  entries.reserve(kWindowKeys.size());
  for (const WindowKey& entry : kWindowKeys) {
    entries.push_back({std::string(kWindowSection), std::string(entry.key),
                       std::to_string(geometry.*entry.member)});
  }
  store_.WriteAll(entries);
}

std::string_view BuiltInDestination(bool sel1) {
  return kBuiltInDestinations[sel1 ? 0 : 1];
}

std::string DestinationFileName(std::string_view name, std::int16_t model_type) {
  return std::string(name) + TemplateEnding(model_type);
}

std::vector<std::string> DestinationNames(const std::vector<std::string>& file_names,
                                          std::int16_t model_type) {
  const std::string ending = TemplateEnding(model_type);
  std::vector<std::string> templates;
  std::copy_if(file_names.begin(), file_names.end(), std::back_inserter(templates),
               [&](const std::string& file_name) { return IsTemplate(file_name, ending); });
  // Two files of one name, or names that differ in letter case only, have an order, too.
  const auto order = [](const std::string& file_name) {
    return std::tuple(LowerCase(NameOf(file_name)), LowerCase(file_name), file_name);
  };
  std::sort(templates.begin(), templates.end(),
            [&](const std::string& a, const std::string& b) { return order(a) < order(b); });
  if (templates.size() > kMaxDestinations) templates.resize(kMaxDestinations);

  std::vector<std::string> names;
  names.reserve(templates.size());
  for (const std::string& file_name : templates) names.emplace_back(NameOf(file_name));
  for (const std::string_view built_in : kBuiltInDestinations) {
    const bool listed = std::any_of(names.begin(), names.end(), [=](const std::string& name) {
      return EqualsIgnoringCase(name, built_in);
    });
    if (!listed && names.size() < kMaxDestinations) names.emplace_back(built_in);
  }
  return names;
}

}  // namespace orvane::core
