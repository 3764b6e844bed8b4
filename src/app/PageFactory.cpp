// The one place where the shell meets the subsystems' pages and tool-bar dialogs.

#include "app/PageFactory.h"

#include <QLabel>
#include <QVBoxLayout>

#include "analysis/DietGoalsDialog.h"
#include "analysis/GraphsModule.h"
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
#include "update/UpdateCheckModule.h"

#ifdef VELMORA_LOADABLE_MODULES
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QLibrary>
#endif

namespace velmora::app {

namespace {

#ifdef VELMORA_LOADABLE_MODULES

// The file of a module: beside the program (a build, or a copy of the program folder), else in
// the installed program's "lib/velmora" folder.
QString modulePath(const QString& module)
{
    const QString file = module + QStringLiteral(VELMORA_MODULE_SUFFIX);
    const QDir programDir(QCoreApplication::applicationDirPath());
    const QString beside = programDir.filePath(file);
    if (QFileInfo::exists(beside))
        return beside;
    return QDir::cleanPath(programDir.filePath(QStringLiteral("../lib/velmora/") + file));
}

// The entry `symbol` of `module`, loaded on the first call and kept for the rest of the run;
// nullptr with the reason in `error` when the file is missing, damaged or does not fit this
// program (the reason is kept too: a failed module is not tried again).
QFunctionPointer moduleEntry(const QString& module, const char* symbol, QString& error)
{
    struct Loaded
    {
        QFunctionPointer entry = nullptr;
        QString error;
    };
    static QHash<QString, Loaded> loaded;
    const auto found = loaded.constFind(module);
    if (found != loaded.constEnd()) {
        error = found->error;
        return found->entry;
    }
    Loaded result;
    const QString path = modulePath(module);
    if (!QFileInfo::exists(path)) {
        result.error = QStringLiteral("The file %1 is missing.").arg(QDir::toNativeSeparators(path));
    } else {
        auto* library = new QLibrary(path, qApp);
        // Every symbol is resolved on loading, so a module that does not fit fails here.
        library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
        if (library->load()) {
            result.entry = library->resolve(symbol);
            if (!result.entry)
                result.error = library->errorString();
        } else {
            result.error = library->errorString();
            delete library;
        }
    }
    loaded.insert(module, result);
    error = result.error;
    return result.entry;
}

// Shown in place of the graphs page when its module could not be loaded.
class MissingModulePage : public ui::Page
{
public:
    MissingModulePage(ui::AppContext& context, const QString& reason, QWidget* parent)
        : ui::Page(context, parent)
    {
        auto* layout = new QVBoxLayout(this);
        auto* label = new QLabel(
            QStringLiteral("The graphs could not be loaded, so this page cannot be shown.\n\n%1\n\n"
                           "Reinstalling Velmora restores the missing or damaged file.")
                .arg(reason),
            this);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(label);
        layout->addStretch();
    }
    void refreshPage() override {}
    void storePage() override {}
    QString pageTitle() const override { return QStringLiteral("Graphs"); }
};

#endif

// The graphs page, from its module; when the module cannot be loaded the page says so and why.
ui::Page* createGraphsPage(ui::AppContext& context, QWidget* parent)
{
#ifdef VELMORA_LOADABLE_MODULES
    QString error;
    auto* create = reinterpret_cast<decltype(&velmora_graphs_create_page)>(moduleEntry(
        QStringLiteral("velmora-graphs"), "velmora_graphs_create_page", error));
    if (!create)
        return new MissingModulePage(context, error, parent);
    return create(&context, parent);
#else
    return velmora_graphs_create_page(&context, parent);
#endif
}

} // namespace


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

bool checkForUpdates(QWidget* parent)
{
#ifdef VELMORA_LOADABLE_MODULES
    QString error;
    auto* check = reinterpret_cast<decltype(&velmora_network_check_for_updates)>(moduleEntry(
        QStringLiteral("velmora-network"), "velmora_network_check_for_updates", error));
    if (!check) {
        ui::showMessageText(parent,
                            QStringLiteral("The update check could not be started.\n\n%1").arg(error));
        return false;
    }
    return check(parent);
#else
    return velmora_network_check_for_updates(parent);
#endif
}

} // namespace velmora::app
