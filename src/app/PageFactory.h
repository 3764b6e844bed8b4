#pragma once

#include <cstdint>

#include "ui/PageId.h"

class QWidget;

namespace velmora::ui {
class AppContext;
class Page;
} // namespace velmora::ui

namespace velmora::app {

// The one place where the shell meets the subsystems' pages and tool-bar dialogs.

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

} // namespace velmora::app
