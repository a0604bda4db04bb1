#include <QCoreApplication>
#include <iostream>

#include "platform/paths.h"

// Says where a program that stands here looks for its data, and where for its error log.
int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  std::cout << orvane::platform::DataFolder() << "\n"
            << orvane::platform::ErrorLogPath() << std::endl;
  return 0;
}
