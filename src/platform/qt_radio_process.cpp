#include "platform/qt_radio_process.h"

#include <QFileInfo>
#include <QStringList>

#include "link/radio_program.h"
#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

constexpr int kTimeToEnd = 2000;  // ms; it needs a few

}  // namespace

QtRadioProcess::QtRadioProcess(const std::string& folder)
    : path_(folder + '/' + std::string(link::kRadioProgram)) {
  QObject::connect(&process_, &QProcess::readyReadStandardOutput, &process_,
                   [this] { TakeOutput(); });
  QObject::connect(&process_, &QProcess::finished, &process_,
                   [this] { TakeEnd(QObject::tr("It ended without a word.")); });
  QObject::connect(&process_, &QProcess::errorOccurred, &process_,
                   [this](QProcess::ProcessError error) {
                     // Every other failure ends in finished().
                     if (error == QProcess::FailedToStart) TakeEnd(process_.errorString());
                   });
}

QtRadioProcess::~QtRadioProcess() {
  QtRadioProcess::Stop();
}

std::string QtRadioProcess::WhyNone() const {
#ifdef Q_OS_WIN
  return "The simulated radio needs pseudo-terminals, which Windows does not have.";
#else
  const QFileInfo program(FromUtf8(path_));
  if (program.isFile() && program.isExecutable()) return {};
  return "The program " + path_ + " is missing: install Orvane again.";
#endif
}

void QtRadioProcess::Start(std::int16_t model_type, const std::vector<int>& numbers) {
  Stop();
  why_ended_.clear();
  QStringList words;
  for (const std::string& word : link::RadioProgramWords(model_type, numbers)) {
    words << FromUtf8(word);
  }
  process_.start(FromUtf8(path_), words);
}

bool QtRadioProcess::IsRunning() const {
  return process_.state() != QProcess::NotRunning;
}

void QtRadioProcess::TakeOutput() {
  while (process_.canReadLine()) {
    const QByteArray line = process_.readLine().trimmed();
    const auto number = link::NumberOfReadyLine({line.constData(), std::size_t(line.size())});
    if (number) port_number_ = number;
  }
}

void QtRadioProcess::TakeEnd(const QString& system_reason) {
  const QString said = QString::fromLocal8Bit(process_.readAllStandardError()).trimmed();
  why_ended_ = ToUtf8(said.isEmpty() ? system_reason : said);
  const bool had_port = port_number_.has_value();
  port_number_.reset();
  if (had_port && told_) told_();
}

void QtRadioProcess::Stop() {
  if (!IsRunning()) return;
  port_number_.reset();  // not lost: given up
  process_.closeWriteChannel();
  if (process_.waitForFinished(kTimeToEnd)) return;
  process_.kill();
  process_.waitForFinished(kTimeToEnd);
}

}  // namespace orvane::platform
