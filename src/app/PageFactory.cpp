// The one place where the shell meets the subsystems' pages and tool-bar dialogs. Pages that are
// not built yet show their title.

#include "app/PageFactory.h"

#include <QLabel>
#include <QVBoxLayout>

#include "app/AppContext.h"
#include "app/Page.h"
#include "fitness/FitnessLogPage.h"
#include "fitness/HealthPage.h"
#include "fitness/NotesPage.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "food/JournalListPage.h"
#include "update/Messages.h"

namespace velmora::app {

namespace {

// A placeholder page that shows its title until the subsystem's page exists.
class TitlePage : public Page
{
public:
    TitlePage(const QString& title, AppContext& context, QWidget* parent)
        : Page(context, parent), m_title(title)
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

Page* createPage(int index, AppContext& context, QWidget* parent)
{
    switch (index) {
    case 0:
        return new food::FoodPage(context, parent);
    case 1:
        return new fitness::HealthPage(context, parent);
    case 2:
        return new food::JournalListPage(context, parent);
    case 3:
        return new fitness::NotesPage(context, parent);
    case 4:
        return new fitness::FitnessLogPage(context, parent);
    case 5:
        return new TitlePage(QStringLiteral("Graphs"), context, parent);
    default:
        return nullptr;
    }
}

void openFoodFinder(AppContext& context)
{
    food::FoodFinderDialog dialog(context, context.mainWindow());
    dialog.exec();
}

void openDietGoals(AppContext& context)
{
    update::showMessageText(context.mainWindow(),
                            QStringLiteral("The Diet Goals are not available yet."));
}

} // namespace velmora::app
