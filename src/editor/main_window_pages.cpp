#include "editor/channel_page.h"
#include "editor/common_page.h"
#include "editor/grid_page.h"
#include "editor/main_window.h"
#include "editor/usable_page.h"
#include "editor/weather_page.h"
#include "help/help_opener.h"

namespace orvane::editor {

template <class PageType>
PageType* MainWindow::MakePage(int help_context) {
  auto* page = new PageType(
      PageServices{document_.Data(), state_, services_.prompts, services_.clock, *this});
  if (help_context != 0) page->setProperty(kHelpContextProperty, help_context);
  page->ModelChanged();
  area_->Add(page);
  return page;
}

template <class PageType>
LazyPage MainWindow::PageLater(int help_context) {
  return LazyPage([this, help_context] { return MakePage<PageType>(help_context); });
}

void MainWindow::BuildPages() {
  setProperty(kHelpContextProperty, help::kProgramContext);
  general_ = MakePage<GeneralPage>(0);
  navigator_ = new Navigator(*tree_, *area_,
                             {.general = LazyPage(general_),
                              .grey = PageLater<GreyPage>(0),
                              .usable = PageLater<UsablePage>(help::kGroupsPageContext),
                              .common = PageLater<CommonPage>(help::kCommonPageContext),
                              .grid = PageLater<GridPage>(help::kTablePageContext),
                              .channel = PageLater<ChannelPage>(help::kChannelPageContext),
                              .weather = PageLater<WeatherPage>(help::kWeatherPageContext)},
                             *this);
  navigator_->setParent(this);
}

}  // namespace orvane::editor
