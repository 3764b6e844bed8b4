// The one place where the shell meets the subsystems' pages and tool-bar dialogs.

#include "app/PageFactory.h"

#include <QLabel>
#include <QVBoxLayout>

#include "analysis/DietGoalsDialog.h"
#include "app/Modules.h"
#include "export-ui/ExportDialog.h"
#include "export-ui/HealthImportDialog.h"
#include "ui/AppContext.h"
#include "ui/Page.h"
#include "fitness/FitnessLogPage.h"
#include "fitness/HealthPage.h"
#include "fitness/NotesPage.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "food/JournalListPage.h"
#include "sync/SyncDialog.h"
#include "ui/Messages.h"

namespace velmora::app {

ui::Page* createPage(ui::PageId id, ui::AppContext& context, QWidget* parent)
{
    switch (id) {
    case ui::PageId::Food:
        return new food::FoodPage(context, parent);
    case ui::PageId::Health:
        return new fitness::HealthPage(context, parent);
    case ui::PageId::JournalList:
        return new food::JournalListPage(context, parent);
    case ui::PageId::JournalNotes:
        return new fitness::NotesPage(context, parent);
    case ui::PageId::FitnessLog:
        return new fitness::FitnessLogPage(context, parent);
    case ui::PageId::Graphs:
        return createGraphsPage(context, parent);
    }
    return nullptr;
}

std::int32_t openFoodFinder(ui::AppContext& context)
{
    food::FoodFinderDialog dialog(context, context.mainWindow());
    dialog.exec();
    return dialog.chosenFood();
}

void showFoodOnPage(ui::Page* foodPage, std::int32_t food)
{
    if (auto* page = qobject_cast<food::FoodPage*>(foodPage))
        page->showFood(food);
}

void openDietGoals(ui::AppContext& context)
{
    analysis::DietGoalsDialog dialog(context, context.mainWindow());
    if (dialog.exec() == QDialog::Accepted)
        context.refreshAllPages(); // the food page's goal pie shows the new goals
}

void openHandheldSync(ui::AppContext& context, bool tandry)
{
    sync::SyncDialog dialog(context, tandry ? sync::Handheld::Tandry : sync::Handheld::Korvel,
                            context.mainWindow());
    dialog.exec();
}

void openExport(ui::AppContext& context)
{
    exchange::ExportDialog dialog(context, context.mainWindow());
    dialog.exec();
}

void openHealthImport(ui::AppContext& context)
{
    exchange::HealthImportDialog dialog(context, context.mainWindow());
    if (dialog.exec() == QDialog::Accepted)
        context.refreshAllPages();
}

} // namespace velmora::app
