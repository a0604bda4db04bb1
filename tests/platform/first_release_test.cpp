#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/app_settings.h"
#include "core/catalogue.h"
#include "files/backup_library.h"
#include "files/snapshot.h"
#include "platform/qt_file_store.h"
#include "platform/qt_settings_store.h"

// The files here are as release 1.0 wrote them into its users' folders. They are never made anew:
// every later program has to open them.
namespace orvane::platform {
namespace {

const std::string kFolder = ORVANE_GOLDEN_DIR;

TEST(FirstRelease, ItsSettingsAreRead) {
  QtSettingsStore store(kFolder + "/settings_1_0.ini");
  const core::AppSettings settings(store);
  EXPECT_EQ(settings.PortNumber(), 7);
  EXPECT_EQ(settings.ModelType(), 4);
  EXPECT_EQ(settings.Destination(4), "KT520-usa");
  EXPECT_FALSE(settings.KeepsCopyFirst());
  EXPECT_TRUE(settings.ReadsBack());
  EXPECT_EQ(settings.RecentFiles(),
            (std::vector<std::string>{"/home/skipper/boat.dat", "/home/skipper/with, comma.dat"}));
  const std::optional<core::WindowGeometry> window = settings.MainWindow();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->left, 120);
  EXPECT_EQ(window->top, 240);
  EXPECT_EQ(window->width, 9105);
  EXPECT_EQ(window->height, 7200);
}

TEST(FirstRelease, ItsBackupsOpen) {
  QtFileStore store;
  const files::BackupLibrary library(store, kFolder + "/backups_1_0");
  const std::vector<files::Backup> backups = library.Entries();
  ASSERT_EQ(backups.size(), 1U);
  EXPECT_EQ(backups[0].id, "5203747B");
  const files::Snapshot snapshot = library.Load(backups[0]);
  ASSERT_TRUE(snapshot.data) << snapshot.error;
  EXPECT_EQ(snapshot.heading.made, "2026-11-25 12:00:00");
  EXPECT_EQ(snapshot.heading.origin, files::kOriginRead);
  EXPECT_EQ(snapshot.heading.port, "COM3");
  EXPECT_EQ(snapshot.heading.file, "/home/skipper/boat.dat");
  EXPECT_EQ(snapshot.data->MODELTYPE, 5);
  const std::optional<core::FieldRef> name = core::RefOf("usa/16/name");
  ASSERT_TRUE(name);
  EXPECT_EQ(core::Get(*snapshot.data, *name), core::Value("HAILING"));
  const std::optional<core::FieldRef> place = core::RefOf("usa/01A/position");
  ASSERT_TRUE(place);
  EXPECT_EQ(core::Get(*snapshot.data, *place), core::Value(3));
  EXPECT_EQ(snapshot.data->Image.All()[0x41], 0xE4);  // of the model code
}

}  // namespace
}  // namespace orvane::platform
