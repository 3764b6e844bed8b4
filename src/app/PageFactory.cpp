// The one place where the shell meets the subsystems' pages and tool-bar dialogs. Pages that are
// not built yet show their title.

#include "app/PageFactory.h"

#include <QLabel>
#include <QVBoxLayout>

#include "analysis/DietGoalsDialog.h"
#include "analysis/GraphsPage.h"
#include "ui/AppContext.h"
#include "ui/Page.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "food/JournalListPage.h"
#include "ui/Messages.h"

namespace velmora::app {

namespace {

// A placeholder page that shows its title until the subsystem's page exists.
class TitlePage : public ui::Page
{
public:
    TitlePage(const QString& title, ui::AppContext& context, QWidget* parent)
        : ui::Page(context, parent), m_title(title)
    {
        auto* layout = new QVBoxLayout(this);
        auto* label = new QLabel(title, this);
        label->setObjectName(QStringLiteral("pageTitle"));
        label->setAlignment(Qt::AlignCenter);
        QFont font = label->font();
        font.setPointSizeF(font.pointSizeF() * 1.6);
        label->setFont(font);
        layout->addWidget(label);
    }

    void refreshPage() override {}
    void storePage() override {}
    QString pageTitle() const override { return m_title; }

private:
    QString m_title;
};

} // namespace

ui::Page* createPage(ui::PageId id, ui::AppContext& context, QWidget* parent)
{
    switch (id) {
    case ui::PageId::Food:
        return new food::FoodPage(context, parent);
    case ui::PageId::Health:
        return new TitlePage(QStringLiteral("Health"), context, parent);
    case ui::PageId::JournalList:
        return new food::JournalListPage(context, parent);
    case ui::PageId::JournalNotes:
        return new TitlePage(QStringLiteral("Journal Notes"), context, parent);
    case ui::PageId::FitnessLog:
        return new TitlePage(QStringLiteral("Fitness Log"), context, parent);
    case ui::PageId::Graphs:
        return new analysis::GraphsPage(context, parent);
    }
    return nullptr;
}

void openFoodFinder(ui::AppContext& context)
{
    food::FoodFinderDialog dialog(context, context.mainWindow());
    dialog.exec();
}

void openDietGoals(ui::AppContext& context)
{
    analysis::DietGoalsDialog dialog(context, context.mainWindow());
    if (dialog.exec() == QDialog::Accepted)
        context.refreshAllPages(); // the food page's goal pie shows the new goals
}

} // namespace velmora::app
