#pragma once

#include <cstdint>

#include "ui/PageId.h"

class QWidget;

namespace velmora::ui {
class AppContext;
class Page;
} // namespace velmora::ui

namespace velmora::app {

// The one place where the shell meets the subsystems' pages and tool-bar dialogs. The parts that
// need a large Qt library (the graphs page with Qt Charts and Qt Print Support, the update check
// with Qt Network) are modules loaded here on first use, so that starting the program maps none
// of those libraries; where the program is built without loading, their code is linked in and
// called directly.

// Creates a page of the page host.
ui::Page* createPage(ui::PageId id, ui::AppContext& context, QWidget* parent);

// Tool-bar dialogs of other subsystems.
// The food finder; returns the food the user chose to put on the food page, or -1.
std::int32_t openFoodFinder(ui::AppContext& context);
// Shows a food on the food page (created and shown by the caller), selected for "&Add >>".
void showFoodOnPage(ui::Page* foodPage, std::int32_t food);
void openDietGoals(ui::AppContext& context);
// The handheld sync dialog; tandry chooses the diet handheld, otherwise the workout one.
void openHandheldSync(ui::AppContext& context, bool tandry);
// File > "Export..." and File > "Import Health Values..."; after an import every page shows the
// new values.
void openExport(ui::AppContext& context);
void openHealthImport(ui::AppContext& context);
// Help > "Check for Updates"; true when the updater was started and the program should close.
// When its module cannot be loaded, a message says so and why.
bool checkForUpdates(QWidget* parent);

} // namespace velmora::app
