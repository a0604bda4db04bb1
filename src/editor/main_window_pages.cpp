#include "editor/channel_page.h"
#include "editor/common_page.h"
#include "editor/grid_page.h"
#include "editor/main_window.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "help/help_opener.h"

namespace orvane::editor {

void MainWindow::BuildPages() {
  const PageServices services{data_, services_.prompts, services_.clock, *this};
  general_ = new GeneralPage(services);
  const Navigator::Pages pages{.general = general_,
                               .grey = new GreyPage(services),
                               .usable = new UsablePage(services),
                               .common = new CommonPage(services),
                               .grid = new GridPage(services),
                               .channel = new ChannelPage(services),
                               .weather = new WeatherPage(services)};
  for (Page* page : {pages.general, pages.grey, pages.usable, pages.common, pages.grid,
                     pages.channel, pages.weather}) {
    area_->Add(page);
  }
  setProperty(kHelpContextProperty, help::kProgramContext);
  pages.usable->setProperty(kHelpContextProperty, help::kGroupsPageContext);
  pages.common->setProperty(kHelpContextProperty, help::kCommonPageContext);
  pages.grid->setProperty(kHelpContextProperty, help::kTablePageContext);
  pages.channel->setProperty(kHelpContextProperty, help::kChannelPageContext);
  pages.weather->setProperty(kHelpContextProperty, help::kWeatherPageContext);
  navigator_ = new Navigator(*tree_, *area_, pages, *this);
  navigator_->setParent(this);
}

}  // namespace orvane::editor
