#pragma once

class QWidget;

namespace velmora::ui {
class AppContext;
class Page;
} // namespace velmora::ui

namespace velmora::app {

// The parts of the program that need a large Qt library (the graphs page with Qt Charts and Qt
// Print Support, the update check with Qt Network) are modules that are loaded on first use, so
// that starting the program maps none of those libraries. Where the program is built without
// loading, the same code is linked in and these functions call it directly.

// The graphs page. When its module cannot be loaded the page says so and why.
ui::Page* createGraphsPage(ui::AppContext& context, QWidget* parent);

// Help > "Check for Updates"; true when the updater was started and the program should close.
// When the module cannot be loaded, a message says so and why.
bool checkForUpdates(QWidget* parent);

} // namespace velmora::app
