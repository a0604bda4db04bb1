// Loaded into a program before it starts (LD_PRELOAD): ends the program when its first window has
// been painted and writes to standard output the monotonic time in seconds at which that was, and
// the resident memory and its peak then, in kB.

#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QMainWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

long KilobytesOf(const QByteArray& status, const char* field) {
  const qsizetype at = status.indexOf(field);
  return at < 0 ? 0 : std::strtol(status.constData() + at + qstrlen(field), nullptr, 10);
}

class FirstPaint : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!painted_ && event->type() == QEvent::Paint &&
        qobject_cast<QMainWindow*>(watched) != nullptr) {
      painted_ = true;
      // The rest of the window is painted before the next event.
      QMetaObject::invokeMethod(this, &FirstPaint::Report, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  void Report() {
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    QFile file(QStringLiteral("/proc/self/status"));
    const QByteArray status = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    std::printf("%.6f %ld %ld\n", now.count(), KilobytesOf(status, "VmRSS:"),
                KilobytesOf(status, "VmHWM:"));
    std::fflush(stdout);
    ::_exit(0);
  }

  bool painted_ = false;
};

void Watch() {
  qApp->installEventFilter(new FirstPaint(qApp));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)
