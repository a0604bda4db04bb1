#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace orvane::testing {

/// A program that runs, with its standard output and error on a pipe of their own each. It is
/// killed when the object goes.
class Program {
 public:
  /// The first word is the path. Settings are NAME=VALUE, before those of this process.
  Program(const std::vector<std::string>& words, const std::vector<std::string>& settings);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  /// Reads standard output until the text so far satisfies the condition; false when the program
  /// ended or half a minute passed before.
  [[nodiscard]] bool AwaitOutput(const std::function<bool(const std::string&)>& condition);
  void Signal(int number) const;
  /// Reads both outputs to their end. Exit status, or 128 and the signal that ended the program.
  int Wait();

  [[nodiscard]] const std::string& Out() const { return out_.text; }
  [[nodiscard]] const std::string& Err() const { return err_.text; }

 private:
  struct Stream {
    int end = -1;  ///< -1 when it is closed
    std::string text;
  };
  /// Takes what comes next on either output; false when both are closed or time is up.
  bool Collect();
  static void Take(Stream& stream);

  pid_t child_ = -1;
  Stream out_;
  Stream err_;
};

}  // namespace orvane::testing
