// What happens to a page from outside.
#pragma once

namespace tarnquill {

class WebPageView;

// Ends the process that draws the loaded page.
void killProcess(WebPageView& view);

} // namespace tarnquill
