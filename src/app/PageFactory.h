#pragma once

class QWidget;

namespace velmora::app {

class AppContext;
class Page;

// The one place where the shell meets the subsystems' pages and tool-bar dialogs.

// Creates page index of the page host: 0 food, 1 health, 2 journal list, 3 journal notes,
// 4 fitness log, 5 graphs.
Page* createPage(int index, AppContext& context, QWidget* parent);

// Tool-bar dialogs of other subsystems.
void openFoodFinder(AppContext& context);
void openDietGoals(AppContext& context);

} // namespace velmora::app
