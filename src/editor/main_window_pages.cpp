#include "editor/main_window.h"
#if __has_include("editor/usable_page.h")
#include "editor/channel_page.h"
#include "editor/common_page.h"
#include "editor/grid_page.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#else
namespace orvane::editor {
using UsablePage = GreyPage;
using CommonPage = GreyPage;
using GridPage = GreyPage;
using ChannelPage = GreyPage;
using WeatherPage = GreyPage;
}  // namespace orvane::editor
#endif

namespace orvane::editor {

void MainWindow::BuildPages() {
  const PageServices services{data_, services_.prompts, services_.clock, *this};
  general_ = new GeneralPage(services);
  const Navigator::Pages pages{.general = general_,
                               .grey = new GreyPage(services),
                               .usable = new UsablePage(services, nullptr),
                               .common = new CommonPage(services, nullptr),
                               .grid = new GridPage(services, nullptr),
                               .channel = new ChannelPage(services, nullptr),
                               .weather = new WeatherPage(services, nullptr)};
  for (Page* page : {pages.general, pages.grey, pages.usable, pages.common, pages.grid,
                     pages.channel, pages.weather}) {
    area_->Add(page);
  }
  navigator_ = new Navigator(*tree_, *area_, pages, *this);
  navigator_->setParent(this);
}

}  // namespace orvane::editor
