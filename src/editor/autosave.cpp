#include "editor/autosave.h"

#include <chrono>
#include <utility>

#include "core/catalogue.h"
#include "files/snapshot.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr std::chrono::seconds kInterval{30};

}  // namespace

Autosave::Autosave(document::Document& document, core::RecoveryStore& store, core::Clock& clock,
                   std::function<bool()> replaced_is_lost)
    : document_(document),
      store_(store),
      clock_(clock),
      replaced_is_lost_(std::move(replaced_is_lost)) {
  timer_.setObjectName(QStringLiteral("TimerAutosave"));
  timer_.setSingleShot(true);
  timer_.setInterval(kInterval);
  connect(&timer_, &QTimer::timeout, this, &Autosave::KeepNow);
  store_.WhenKept([this](const std::optional<core::SystemError>& failure) { TellResult(failure); });
  document_.Watch(*this);
}

Autosave::~Autosave() {
  document_.Unwatch(*this);
  store_.WhenKept({});
}

void Autosave::KeepNow() {
  timer_.stop();
  kept_ = true;
  Keep(document_.Current(), document_.EditedFields());
}

void Autosave::Keep(const document::Contents& contents, const std::vector<core::FieldRef>& edited) {
  files::SnapshotHeading heading{
      .made = clock_.Timestamp(), .origin = "autosave", .file = contents.file_name};
  if (contents.file_print != 0) heading.print = std::to_string(contents.file_print);
  for (const core::FieldRef& at : edited) {
    if (!heading.edited.empty()) heading.edited += ' ';
    heading.edited += core::PathOf(at);
  }
  store_.Keep(files::SnapshotText(contents.data, heading));
}

void Autosave::Stop() {
  timer_.stop();
  store_.Forget();
}

// What came over the cable took minutes.
void Autosave::Replaced() {
  const document::Contents* const lost =
      replaced_is_lost_() ? document_.ReplacedUnsaved() : nullptr;
  if (lost != nullptr) {
    Keep(*lost, {});
    store_.Leave();
    kept_ = false;
  }
  if (document_.ComesFrom() == document::Origin::kRead) KeepNow();
}

void Autosave::StatusChanged() {
  const document::Origin origin = document_.ComesFrom();
  const bool can_be_had_again =
      origin != document::Origin::kRead && origin != document::Origin::kRecovered;
  const bool nothing_to_lose = document_.IsSaved() || (document_.IsAsItCame() && can_be_had_again);
  if (nothing_to_lose) {
    timer_.stop();
    if (std::exchange(kept_, false)) store_.Forget();
  } else if (!timer_.isActive()) {
    timer_.start();
  }
}

void Autosave::TellResult(const std::optional<core::SystemError>& failure) {
  QString reason = failure ? platform::FromUtf8(failure->description) : QString();
  if (failure && reason.isEmpty()) reason = tr("unknown reason");
  // The next try comes with the next half minute.
  if (failure && !timer_.isActive()) timer_.start();
  if (std::exchange(reason_, reason) != reason) emit FailureChanged(reason);
}

}  // namespace orvane::editor
