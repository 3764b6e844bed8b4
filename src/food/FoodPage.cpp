#include "food/FoodPage.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QSplitter>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "food/ConfigureDisplaysDialog.h"
#include "food/CopyMealDialog.h"
#include "food/CustomFoodsDialog.h"
#include "food/FoodChooser.h"
#include "food/FoodDetailsDialog.h"
#include "controls/AmountSpinBox.h"
#include "food/MacroPanel.h"
#include "ui/QtText.h"
#include "food/SaveMealDialog.h"
#include "food/logic/MealCopy.h"
#include "food/logic/MealEditing.h"
#include "model/Store.h"
#include "ui/Messages.h"
#include "model/Clock.h"
#include "model/ProfileEdits.h"

namespace velmora::food {

using ui::fromQDate;

FoodPage::FoodPage(ui::AppContext& context, QWidget* parent) : ui::Page(context, parent)
{
    m_chooser = new FoodChooser(context, this);
    // The page host gives the shown page the focus: typing then goes to the search box, so a
    // keyboard user starts with the food's name.
    setFocusProxy(m_chooser->searchBox());

    m_meals = new QComboBox(this);
    m_meals->setObjectName(QStringLiteral("mealChoice"));
    for (int k = 0; k < model::MealKindCount; ++k)
        m_meals->addItem(QString::fromLatin1(model::MealNames[static_cast<std::size_t>(k)]), k);
    m_date = new QDateEdit(QDateTime::fromSecsSinceEpoch(model::now()).date(), this);
    m_date->setCalendarPopup(true);
    ui::limitToStorableDates(m_date);
    m_time = new QTimeEdit(QTime(8, 0), this);

    m_mealList = new QListWidget(this);
    m_mealList->setObjectName(QStringLiteral("mealList"));
    m_mealList->setSelectionMode(QAbstractItemView::SingleSelection);

    m_remove = new QPushButton(tr("&Remove"), this);
    m_saveCustom = new QPushButton(tr("Sa&ve as custom food..."), this);
    m_defineFoods = new QPushButton(tr("&Define foods..."), this);
    m_copyMeal = new QPushButton(tr("Cop&y meal from..."), this);
    m_copyMeal->setToolTip(tr("Add the foods of a meal of another day to this meal"));
    m_copyDay = new QPushButton(tr("C&opy day from..."), this);
    m_copyDay->setToolTip(tr("Add every meal of another day to the meals of this day"));
    m_display = new QPushButton(tr("D&isplay..."), this);

    m_panel = new MacroPanel(this);

    auto* mealRow = new QHBoxLayout;
    m_meals->setMinimumContentsLength(12);
    mealRow->addWidget(m_meals);
    mealRow->addWidget(m_date);
    mealRow->addWidget(m_time);
    mealRow->addStretch();
    auto* mealButtons = new QHBoxLayout;
    mealButtons->addWidget(m_remove);
    mealButtons->addWidget(m_copyMeal);
    mealButtons->addWidget(m_copyDay);
    mealButtons->addStretch();
    auto* customButtons = new QHBoxLayout;
    customButtons->addWidget(m_saveCustom);
    customButtons->addWidget(m_defineFoods);
    customButtons->addStretch();
    customButtons->addWidget(m_display);

    auto* right = new QWidget(this);
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addLayout(mealRow);
    rightLayout->addWidget(m_mealList, 2);
    rightLayout->addLayout(mealButtons);
    rightLayout->addLayout(customButtons);
    rightLayout->addWidget(m_panel, 3);

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_chooser);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(splitter);

    setTabOrder(m_chooser->addButton(), m_meals);

    connect(m_chooser, &FoodChooser::highlightChanged, this, [this] {
        m_highlight = Highlight::Food;
        updateDisplays();
        applyEnabling();
    });
    connect(m_chooser, &FoodChooser::addRequested, this, &FoodPage::addSelectedFood);
    connect(m_chooser, &FoodChooser::detailsRequested, this, &FoodPage::openDetails);
    connect(m_chooser->foodList(), &QListWidget::itemPressed, this, [this] {
        m_highlight = Highlight::Food;
        updateDisplays();
    });
    // A click selects the row after making it current; the selection is what counts.
    connect(m_mealList, &QListWidget::itemSelectionChanged, this, [this] {
        m_highlight = Highlight::MealEntry;
        updateDisplays();
        applyEnabling();
    });
    connect(m_mealList, &QListWidget::itemPressed, this, [this] {
        m_highlight = Highlight::MealEntry;
        updateDisplays();
    });
    connect(m_mealList, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { openDetails(item->data(Qt::UserRole + 1).toInt()); });
    connect(m_meals, &QComboBox::currentIndexChanged, this, &FoodPage::rebuildMeal);
    connect(m_date, &QDateEdit::dateChanged, this, &FoodPage::rebuildMeal);
    connect(m_time, &QTimeEdit::timeChanged, this, &FoodPage::onTimeChanged);
    connect(m_remove, &QPushButton::clicked, this, &FoodPage::removeSelectedEntry);
    connect(m_saveCustom, &QPushButton::clicked, this, &FoodPage::openSaveAsCustomFood);
    connect(m_defineFoods, &QPushButton::clicked, this, &FoodPage::openCustomFoods);
    connect(m_copyMeal, &QPushButton::clicked, this, &FoodPage::openCopyMeal);
    connect(m_copyDay, &QPushButton::clicked, this, &FoodPage::openCopyDay);
    connect(m_display, &QPushButton::clicked, this, &FoodPage::openDisplaySettings);

    // Ctrl+Enter adds from anywhere on the page (Alt+A is the button's own mnemonic).
    for (QKeySequence keys :
         {QKeySequence(Qt::CTRL | Qt::Key_Return), QKeySequence(Qt::CTRL | Qt::Key_Enter)}) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this] {
            if (m_chooser->addButton()->isEnabled())
                addSelectedFood();
        });
    }

    // Tabbing into the list makes its first line current without selecting it; a current line is
    // always the selected one, so that Remove and Delete act on the line the user sees marked.
    connect(m_mealList, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item && m_mealList->selectedItems().isEmpty())
            item->setSelected(true);
    });
    // Delete in the meal list removes the selected line, as on the journal list.
    auto* deleteKey =
        new QShortcut(QKeySequence::Delete, m_mealList, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &FoodPage::removeSelectedEntry);

    applyEnabling();
}

QString FoodPage::pageTitle() const
{
    return tr("Food");
}

model::CalendarDate FoodPage::currentDate() const
{
    return fromQDate(m_date->date());
}
int FoodPage::currentMealKind() const
{
    return std::max(0, m_meals->currentIndex());
}

const model::Meal* FoodPage::currentMeal() const
{
    const model::JournalDay* day = model::findDay(context().store().journal, currentDate());
    return day ? day->findMeal(currentMealKind()) : nullptr;
}

void FoodPage::refreshPage()
{
    const model::User& user = context().store().journal.user;
    // The program's date and time texts: day-first and 24-hour in metric mode.
    m_date->setDisplayFormat(user.isMetric() ? QStringLiteral("d/M/yyyy")
                                             : QStringLiteral("M/d/yyyy"));
    m_time->setDisplayFormat(user.isMetric() ? QStringLiteral("H:mm") : QStringLiteral("h:mm AP"));
    if (!m_refreshed) {
        m_chooser->refresh();
        const int mode = user.foodListMode;
        m_chooser->setMode(mode >= 0 && mode <= 2 ? static_cast<FoodListMode>(mode)
                                                  : FoodListMode::All);
        m_refreshed = true;
    } else {
        m_chooser->refresh();
    }
    rebuildMeal();
}

void FoodPage::showEvent(QShowEvent* event)
{
    ui::Page::showEvent(event);
    // Other pages edit the same days (the journal list deletes meals and foods): coming into view
    // the page shows the meal as the store holds it. The chooser keeps its list and selection.
    if (!event->spontaneous())
        rebuildMeal();
}

void FoodPage::storePage()
{
    // The meals are written as they change; only the list mode is a page setting.
    const auto mode = static_cast<std::int32_t>(m_chooser->mode());
    if (model::setFoodListMode(context().store().journal.user, mode))
        context().notifyChanged(ui::Change::Profile);
}

void FoodPage::rebuildMeal()
{
    // Every change of the journal this page makes or meets passes here: what the suggestions rank
    // by may have changed with it.
    m_chooser->forgetHistory();
    const model::Meal* meal = currentMeal();
    m_mealList->blockSignals(true);
    m_mealList->clear();
    if (meal) {
        for (const MealRow& row : mealRows(context().store(), *meal)) {
            auto* item = new QListWidgetItem(ui::toQt(row.text));
            item->setData(Qt::UserRole, static_cast<int>(row.entry));
            item->setData(Qt::UserRole + 1, row.food);
            m_mealList->addItem(item);
        }
        const QDateTime when = QDateTime::fromSecsSinceEpoch(meal->time);
        m_time->blockSignals(true);
        m_time->setTime(when.time());
        m_time->blockSignals(false);
    } else {
        // A meal not yet stored starts at the time it had last, or at a usual time for its kind.
        const int minutes =
            defaultMealMinutes(context().store().journal.days, currentDate(), currentMealKind());
        m_time->blockSignals(true);
        m_time->setTime(QTime(minutes / 60, minutes % 60));
        m_time->blockSignals(false);
    }
    m_mealList->blockSignals(false);
    if (m_highlight == Highlight::MealEntry)
        m_highlight = Highlight::None;
    updateDisplays();
    applyEnabling();
}

void FoodPage::updateDisplays()
{
    const model::Store& store = context().store();
    const model::User& user = store.journal.user;
    const model::NutrientCatalogue& catalogue = store.foods.catalogue();

    // The highlighted item: a food of the food list (sized as "&Add >>" would add it) or an
    // entry of the meal list.
    const model::FoodItem* food = nullptr;
    double amount = 0;
    if (m_highlight == Highlight::Food) {
        food = m_chooser->selectedFood();
        amount = m_chooser->amountToAdd();
    } else if (m_highlight == Highlight::MealEntry) {
        const QListWidgetItem* item = m_mealList->currentItem();
        const model::Meal* meal = currentMeal();
        if (item && item->isSelected() && meal) {
            const auto entry = static_cast<std::size_t>(item->data(Qt::UserRole).toInt());
            if (entry < meal->entries.size()) {
                food = store.findFood(meal->entries[entry].food);
                amount = meal->entries[entry].amount;
            }
        }
    }

    if (food)
        m_panel->setDetails(detailsRows(catalogue, *food, amount, user.detailsList()));
    else
        m_panel->clearDetails();

    const model::JournalDay* day = model::findDay(store.journal, currentDate());
    const model::Meal* meal = day ? day->findMeal(currentMealKind()) : nullptr;
    const std::int32_t modes[2] = {user.pie1Mode, user.pie2Mode};
    for (int i = 0; i < 2; ++i) {
        switch (pieModeFromSetting(modes[i])) {
        case PieMode::SelectedItem:
            m_panel->setPie(i, food ? foodShares(catalogue, *food) : EnergyShares{},
                            tr("Highlighted Food"));
            break;
        case PieMode::Meal:
            m_panel->setPie(i, mealShares(store, meal), tr("Meal"));
            break;
        case PieMode::Day:
            m_panel->setPie(
                i, dayShares(store, day),
                ui::toQt(model::shortDateText(currentDate().toTime(), user.isMetric(), true)));
            break;
        case PieMode::Goals:
            m_panel->setPie(i, goalShares(user), tr("Goal"));
            break;
        }
    }
}

void FoodPage::applyEnabling()
{
    const QListWidgetItem* entry = m_mealList->currentItem();
    m_remove->setEnabled(entry && entry->isSelected());
    m_saveCustom->setEnabled(m_mealList->count() > 0);
}

void FoodPage::addSelectedFood()
{
    m_chooser->commitAmount();
    const model::FoodItem* food = m_chooser->selectedFood();
    if (!food)
        return;
    const std::int32_t number = food->number;
    const auto amount = static_cast<float>(m_chooser->amountToAdd());
    model::Store& store = context().store();
    const QTime t = m_time->time();
    model::Meal& meal = mealForAdding(store.journal, currentDate(), currentMealKind(),
                                      mealTimeOn(currentDate(), t.hour(), t.minute()));
    addToMeal(meal, number, amount);
    store.journal.user.noteRecentFood(number);
    context().notifyChanged(ui::Change::Journal);
    if (m_chooser->mode() == FoodListMode::Recent)
        m_chooser->refresh();
    m_highlight = Highlight::Food;
    rebuildMeal();
}

void FoodPage::showFood(std::int32_t number)
{
    m_chooser->showFood(number);
    m_chooser->amountBox()->setFocus();
}

void FoodPage::removeSelectedEntry()
{
    const QListWidgetItem* item = m_mealList->currentItem();
    if (!item || !item->isSelected())
        return;
    const auto entry = static_cast<std::size_t>(item->data(Qt::UserRole).toInt());
    const int food = item->data(Qt::UserRole + 1).toInt();
    // The line must still be the entry the store holds; otherwise the page shows the meal anew
    // and removes nothing.
    const model::Meal* meal = currentMeal();
    if (!meal || entry >= meal->entries.size() || meal->entries[entry].food != food) {
        rebuildMeal();
        return;
    }
    if (!ui::confirmDelete(this, ui::MsgDeleteFoodItem))
        return;
    if (removeMealEntry(context().store().journal, currentDate(), currentMealKind(), entry))
        context().notifyChanged(ui::Change::Journal);
    rebuildMeal();
}

int FoodPage::copyMealFrom(const model::CalendarDate& date, int kind)
{
    model::Store& store = context().store();
    const model::JournalDay* day = model::findDay(store.journal, date);
    const model::Meal* source = day ? day->findMeal(kind) : nullptr;
    if (!source || source->entries.empty())
        return 0;
    // A copy first: creating the current day may move the source day in memory.
    const model::Meal from = *source;
    const QTime t = m_time->time();
    model::Meal& meal = mealForAdding(store.journal, currentDate(), currentMealKind(),
                                      mealTimeOn(currentDate(), t.hour(), t.minute()));
    const int copied = copyMealEntries(from, meal);
    context().notifyChanged(ui::Change::Journal);
    rebuildMeal();
    return copied;
}

int FoodPage::copyDayFrom(const model::CalendarDate& date)
{
    const int copied = model::copyDayMeals(context().store().journal, date, currentDate());
    if (copied > 0)
        context().notifyChanged(ui::Change::Journal);
    rebuildMeal();
    return copied;
}

void FoodPage::onTimeChanged()
{
    // Only a stored meal takes the new time; for a meal without foods the time waits for the
    // first food.
    const QTime t = m_time->time();
    if (model::setMealTime(context().store().journal, currentDate(), currentMealKind(),
                           mealTimeOn(currentDate(), t.hour(), t.minute())))
        context().notifyChanged(ui::Change::Journal);
}

void FoodPage::openDetails(std::int32_t food)
{
    if (!context().store().findFood(food))
        return;
    FoodDetailsDialog dialog(context(), food, this);
    dialog.exec();
}

void FoodPage::openDisplaySettings()
{
    ConfigureDisplaysDialog dialog(context(), this);
    if (dialog.exec() == QDialog::Accepted)
        updateDisplays();
}

void FoodPage::openCustomFoods()
{
    CustomFoodsDialog dialog(context(), this);
    dialog.exec();
    m_chooser->refresh();
    rebuildMeal();
}

void FoodPage::openSaveAsCustomFood()
{
    const model::Meal* meal = currentMeal();
    if (!meal || meal->entries.empty())
        return;
    SaveMealDialog dialog(context(), *meal, this);
    if (dialog.exec() == QDialog::Accepted)
        m_chooser->refresh();
}

void FoodPage::openCopyMeal()
{
    const model::Store& store = context().store();
    model::CalendarDate from = currentDate();
    if (const model::JournalDay* day =
            defaultCopySource(store.journal.days, currentDate(), currentMealKind()))
        from = model::CalendarDate::fromTime(day->date);
    else
        from = fromQDate(m_date->date().addDays(-1));
    CopyMealDialog dialog(context(), from, currentMealKind(), this);
    if (dialog.exec() == QDialog::Accepted)
        copyMealFrom(dialog.sourceDate(), dialog.sourceKind());
}

void FoodPage::openCopyDay()
{
    const model::Store& store = context().store();
    const model::JournalDay* latest = latestDayWithFoods(store.journal.days, currentDate());
    const model::CalendarDate from = latest ? model::CalendarDate::fromTime(latest->date)
                                            : fromQDate(m_date->date().addDays(-1));
    CopyMealDialog dialog(context(), from, currentMealKind(), this, true);
    dialog.setTargetDate(currentDate());
    if (dialog.exec() == QDialog::Accepted)
        copyDayFrom(dialog.sourceDate());
}

} // namespace velmora::food
