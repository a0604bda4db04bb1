#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

#include "link/port_name.h"
#include "sim/host_system.h"

namespace orvane::sim {
namespace {

namespace fs = std::filesystem;

/// A link in the `ports` folder. A locked file beside it says that the number is taken and holds
/// the device the link was made for; the lock ends with the process, whatever ends it.
class LinkRegistration final : public PortRegistration {
 public:
  enum class Pinned { kToNothingIsFree, kIsTaken };

  LinkRegistration(fs::path folder, int number, Pinned pinned)
      : folder_(std::move(folder)),
        number_(number),
        pinned_(pinned),
        name_(link::PortName(number)),
        link_(folder_ / name_),
        lock_path_(folder_ / ("." + name_ + ".lock")) {}
  LinkRegistration(const LinkRegistration&) = delete;
  LinkRegistration& operator=(const LinkRegistration&) = delete;
  ~LinkRegistration() override {
    Withdraw();
    if (lock_ < 0) return;
    unlink(lock_path_.c_str());
    close(lock_);
  }

  [[nodiscard]] std::string Register(const std::string& device) override {
    std::error_code error;
    fs::create_directories(folder_, error);
    if (error) return "the folder " + folder_.string() + " cannot be made: " + error.message();
    if (lock_ < 0) {
      if (std::string reason = Lock(); !reason.empty()) return reason;
    }
    if (std::string reason = RemoveLeftover(); !reason.empty()) return reason;
    if (!WriteLock(device)) return CannotWrite(std::error_code(errno, std::generic_category()));
    fs::create_symlink(device, link_, error);
    if (error) return CannotWrite(error);
    device_ = device;
    return {};
  }

  [[nodiscard]] int Number() const override { return number_; }

  void Withdraw() override {
    std::error_code error;
    if (!device_.empty() && fs::read_symlink(link_, error) == device_) fs::remove(link_, error);
    device_.clear();
  }

 private:
  [[nodiscard]] std::string CannotWrite(const std::error_code& error) const {
    return name_ + " cannot be made in " + folder_.string() + ": " + error.message();
  }

  std::string Lock() {
    constexpr int kTries = 10;  // against radios that end just now and take their lock file along
    for (int i = 0; i < kTries; ++i) {
      const int file = open(lock_path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
      if (file < 0) return CannotWrite(std::error_code(errno, std::generic_category()));
      if (flock(file, LOCK_EX | LOCK_NB) != 0) {
        close(file);
        return name_ + " is taken by a simulated radio that is running; choose another number " +
               "with --port";
      }
      if (IsAtItsPath(file)) {
        lock_ = file;
        return {};
      }
      close(file);
    }
    return name_ + " cannot be locked";
  }

  /// Not the file of a radio that removed it between our opening and locking it.
  [[nodiscard]] bool IsAtItsPath(int file) const {
    struct stat opened = {};
    struct stat named = {};
    return fstat(file, &opened) == 0 && stat(lock_path_.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
  }

  /// Removes the link of a radio that was killed; refuses to touch any other.
  std::string RemoveLeftover() {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(link_, error);
    if (!fs::exists(status)) return {};
    const fs::path target = fs::read_symlink(link_, error);
    const bool leads_nowhere = pinned_ == Pinned::kToNothingIsFree && !fs::exists(target, error);
    const bool leftover = fs::is_symlink(status) && (target == ReadLock() || leads_nowhere);
    if (!leftover) {
      return name_ + " is pinned to " + (target.empty() ? link_ : target).string() +
             "; choose another number with --port or remove " + link_.string();
    }
    fs::remove(link_, error);
    return error ? CannotWrite(error) : std::string();
  }

  [[nodiscard]] std::string ReadLock() const {
    std::array<char, 256> buffer{};
    const ssize_t count = pread(lock_, buffer.data(), buffer.size(), 0);
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
  }

  [[nodiscard]] bool WriteLock(const std::string& device) const {
    return ftruncate(lock_, 0) == 0 &&
           pwrite(lock_, device.data(), device.size(), 0) == static_cast<ssize_t>(device.size());
  }

  fs::path folder_;
  int number_;
  Pinned pinned_;
  std::string name_;
  fs::path link_;
  fs::path lock_path_;
  int lock_ = -1;
  std::string device_;  ///< "" while nothing is registered
};

/// The first of several numbers that can be had; it stays the one.
class FirstFreeRegistration final : public PortRegistration {
 public:
  FirstFreeRegistration(fs::path folder, std::vector<int> numbers)
      : folder_(std::move(folder)), numbers_(std::move(numbers)) {}

  [[nodiscard]] std::string Register(const std::string& device) override {
    if (taken_ != nullptr) return taken_->Register(device);
    std::string reason = "there is no number to choose from";
    for (const int number : numbers_) {
      auto one =
          std::make_unique<LinkRegistration>(folder_, number, LinkRegistration::Pinned::kIsTaken);
      reason = one->Register(device);
      if (!reason.empty()) continue;
      taken_ = std::move(one);
      break;
    }
    return reason;
  }

  [[nodiscard]] int Number() const override { return taken_ == nullptr ? 0 : taken_->Number(); }

  void Withdraw() override {
    if (taken_ != nullptr) taken_->Withdraw();
  }

 private:
  fs::path folder_;
  std::vector<int> numbers_;
  std::unique_ptr<LinkRegistration> taken_;
};

}  // namespace

std::unique_ptr<PortRegistration> MakePortRegistration(std::string folder,
                                                       std::vector<int> numbers) {
  if (numbers.size() == 1) {
    return std::make_unique<LinkRegistration>(std::move(folder), numbers.front(),
                                              LinkRegistration::Pinned::kToNothingIsFree);
  }
  return std::make_unique<FirstFreeRegistration>(std::move(folder), std::move(numbers));
}

}  // namespace orvane::sim
