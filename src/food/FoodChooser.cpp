#include "food/FoodChooser.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QVBoxLayout>

#include <algorithm>

#include "ui/AppContext.h"
#include "controls/AmountSpinBox.h"
#include "ui/QtText.h"
#include "food/SuggestionList.h"
#include "food/logic/MealEditing.h"
#include "food/logic/MeasureChoices.h"
#include "model/Clock.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::food {

FoodChooser::FoodChooser(ui::AppContext& context, QWidget* parent)
    : QWidget(parent), m_context(context)
{
    m_custom = new QRadioButton(tr("C&ustom Foods"), this);
    m_recent = new QRadioButton(tr("Re&cent Foods"), this);
    m_all = new QRadioButton(tr("A&ll Foods"), this);
    auto* modes = new QButtonGroup(this);
    modes->addButton(m_custom, static_cast<int>(FoodListMode::Custom));
    modes->addButton(m_recent, static_cast<int>(FoodListMode::Recent));
    modes->addButton(m_all, static_cast<int>(FoodListMode::All));
    m_all->setChecked(true);

    m_searchBox = new QLineEdit(this);
    m_searchBox->setObjectName(QStringLiteral("searchBox"));
    m_searchBox->setPlaceholderText(tr("Food name, e.g. egg"));
    m_searchBox->setClearButtonEnabled(true);
    m_searchBox->installEventFilter(this);
    m_searchButton = new QPushButton(tr("&Search"), this);
    m_groups = new QComboBox(this);
    m_groups->setObjectName(QStringLiteral("groupList"));

    m_foods = new QListWidget(this);
    m_foods->setObjectName(QStringLiteral("foodList"));
    m_foods->setUniformItemSizes(true);
    m_foods->setSelectionMode(QAbstractItemView::SingleSelection);

    m_amount = new controls::AmountSpinBox(AmountFloor, AmountMaximum, AmountStep, this);
    m_amount->setObjectName(QStringLiteral("amountBox"));
    // Wide enough for grams and ounces up to 1000 from the start, so that the row keeps still.
    m_amount->setMaximum(WeightAmountMaximum);
    m_amount->setMinimumWidth(m_amount->sizeHint().width());
    m_amount->setMaximum(AmountMaximum);
    m_amount->setValue(AmountDefault);
    m_amount->setToolTip(tr("How many of the chosen measure (steps of 0.25)"));
    auto* times = new QLabel(QStringLiteral("x"), this);
    m_measures = new QComboBox(this);
    m_measures->setObjectName(QStringLiteral("measureList"));
    m_measures->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_measures->setMinimumContentsLength(12);
    m_add = new QPushButton(tr("&Add >>"), this);
    m_add->setToolTip(tr("Add to the meal (Ctrl+Enter)"));
    m_hint = new QLabel(this);
    m_hint->setObjectName(QStringLiteral("amountHint"));
    m_hint->setStyleSheet(QStringLiteral("color: #b00020;"));
    m_hint->setWordWrap(true);
    m_hint->hide();

    auto* modeRow = new QHBoxLayout;
    modeRow->addWidget(m_custom);
    modeRow->addWidget(m_recent);
    modeRow->addWidget(m_all);
    modeRow->addStretch();
    auto* searchRow = new QHBoxLayout;
    searchRow->addWidget(m_searchBox, 1);
    searchRow->addWidget(m_searchButton);
    auto* amountRow = new QHBoxLayout;
    amountRow->addWidget(m_amount);
    amountRow->addWidget(times);
    amountRow->addWidget(m_measures, 1);
    amountRow->addWidget(m_add);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(modeRow);
    layout->addLayout(searchRow);
    layout->addWidget(m_groups);
    layout->addWidget(m_foods, 1);
    layout->addLayout(amountRow);
    layout->addWidget(m_hint);

    // Made last, so that it lies above the group and food lists it covers.
    m_suggestions = new SuggestionList(m_searchBox, this);

    setTabOrder(m_searchBox, m_searchButton);
    setTabOrder(m_searchButton, m_groups);
    setTabOrder(m_groups, m_foods);
    setTabOrder(m_foods, m_amount);
    setTabOrder(m_amount, m_measures);
    setTabOrder(m_measures, m_add);

    connect(modes, &QButtonGroup::idClicked, this,
            [this](int id) { setMode(static_cast<FoodListMode>(id)); });
    connect(m_searchButton, &QPushButton::clicked, this, [this] { search(); });
    connect(m_searchBox, &QLineEdit::returnPressed, this, [this] { search(); });
    // Only what the user types asks for suggestions; a name put in the box by a choice does not.
    connect(m_searchBox, &QLineEdit::textEdited, this, &FoodChooser::suggest);
    connect(m_suggestions, &SuggestionList::chosen, this, &FoodChooser::chooseSuggestion);
    connect(m_groups, &QComboBox::currentIndexChanged, m_suggestions, &QWidget::hide);
    // A mouse click makes the row current before it selects it, the arrow keys do both at once:
    // both signals are followed, and the food is taken up once it is both current and selected.
    connect(m_foods, &QListWidget::currentRowChanged, this, &FoodChooser::onFoodChanged);
    connect(m_foods, &QListWidget::itemSelectionChanged, this, &FoodChooser::onFoodChanged);
    connect(m_foods, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        emit detailsRequested(item->data(Qt::UserRole).toInt());
    });
    connect(m_measures, &QComboBox::currentIndexChanged, this, &FoodChooser::onMeasureChanged);
    connect(m_amount, &QDoubleSpinBox::valueChanged, this, [this] { emit highlightChanged(); });
    connect(m_amount, &controls::AmountSpinBox::inputRefused, this, [this](const QString& hint) {
        m_hint->setText(hint);
        m_hint->show();
    });
    connect(m_amount, &controls::AmountSpinBox::inputAccepted, m_hint, &QLabel::hide);
    connect(m_add, &QPushButton::clicked, this, &FoodChooser::addRequested);

    applyEnabling();
}

QRadioButton* FoodChooser::modeButton(FoodListMode mode) const
{
    switch (mode) {
    case FoodListMode::Custom:
        return m_custom;
    case FoodListMode::Recent:
        return m_recent;
    case FoodListMode::All:
        break;
    }
    return m_all;
}

void FoodChooser::refresh()
{
    const model::FoodDatabase& foods = m_context.store().foods;
    const int previous =
        m_groups->currentData().isValid() ? m_groups->currentData().toInt() : AllGroupsValue;
    m_groups->blockSignals(true);
    m_groups->clear();
    for (const GroupChoice& g : groupChoices(foods))
        m_groups->addItem(ui::toQt(g.name), g.value);
    const int index = m_groups->findData(previous);
    m_groups->setCurrentIndex(index >= 0 ? index : 0);
    m_groups->blockSignals(false);

    const std::int32_t selected = selectedFood() ? selectedFood()->number : -1;
    fillForMode(false);
    if (selected >= 0)
        selectFood(selected);
}

void FoodChooser::fillForMode(bool reportNoMatches)
{
    switch (m_mode) {
    case FoodListMode::Custom:
        fillList(customFoodList(m_context.store().shared.customFoods));
        break;
    case FoodListMode::Recent:
        fillList(recentFoodList(m_context.store(), m_context.store().journal.user));
        break;
    case FoodListMode::All:
        // An empty box leaves the list empty; a box holding text (blanks too) searches again.
        fillList({});
        if (!m_searchBox->text().isEmpty())
            search(reportNoMatches);
        break;
    }
}

void FoodChooser::setMode(FoodListMode mode)
{
    m_mode = mode;
    m_suggestions->hide();
    modeButton(mode)->setChecked(true);
    if (mode != FoodListMode::All)
        m_searchBox->clear();
    fillForMode(true);
    applyEnabling();
}

int FoodChooser::chosenGroup() const
{
    return m_groups->currentData().isValid() ? m_groups->currentData().toInt() : AllGroupsValue;
}

void FoodChooser::search(bool announce, std::int32_t lead)
{
    m_suggestions->hide();
    const model::Store& store = m_context.store();
    const std::string text = ui::fromQt(m_searchBox->text());
    const int group = chosenGroup();
    std::vector<std::int32_t> listed =
        searchFoods(store.foods, store.shared.customFoods, text, group);
    if (const auto it = std::find(listed.begin(), listed.end(), lead); it != listed.end())
        std::rotate(listed.begin(), it, it + 1);
    fillList(listed, moreSearchResults(wordSearch(), text, group, listed));
    if (m_foods->count() > 0)
        m_foods->setCurrentRow(0);
    else if (announce)
        ui::showMessage(this, ui::MsgNoMatches);
}

void FoodChooser::fillList(const std::vector<std::int32_t>& numbers,
                           const std::vector<std::int32_t>& more)
{
    const model::Store& store = m_context.store();
    m_foods->setUpdatesEnabled(false);
    m_foods->blockSignals(true);
    m_foods->clear();
    const auto add = [&](std::int32_t number) {
        const model::FoodItem* food = store.findFood(number);
        if (!food)
            return;
        auto* item = new QListWidgetItem(ui::toQt(food->name));
        item->setData(Qt::UserRole, number);
        m_foods->addItem(item);
    };
    for (std::int32_t number : numbers)
        add(number);
    if (m_foods->count() > 0 && !more.empty()) {
        // A row that can be neither chosen nor reached with the keys marks where the names that
        // hold every word, not the text as typed, begin.
        auto* marker = new QListWidgetItem(tr("More foods holding every word:"));
        marker->setFlags(Qt::NoItemFlags);
        marker->setData(Qt::UserRole, -1);
        QFont font = m_foods->font();
        font.setItalic(true);
        marker->setFont(font);
        m_foods->addItem(marker);
    }
    for (std::int32_t number : more)
        add(number);
    m_foods->blockSignals(false);
    m_foods->setUpdatesEnabled(true);
    m_shownFood = -1;
    onFoodChanged();
}

const model::FoodItem* FoodChooser::selectedFood() const
{
    const QListWidgetItem* item = m_foods->currentItem();
    if (!item || !item->isSelected())
        return nullptr;
    return m_context.store().findFood(item->data(Qt::UserRole).toInt());
}

double FoodChooser::amountToAdd() const
{
    return m_amount->value() * m_measureFactor;
}

void FoodChooser::commitAmount()
{
    m_amount->interpretText();
}

void FoodChooser::selectFood(std::int32_t number)
{
    for (int row = 0; row < m_foods->count(); ++row) {
        if (m_foods->item(row)->data(Qt::UserRole).toInt() == number) {
            m_foods->setCurrentRow(row);
            return;
        }
    }
}

void FoodChooser::onFoodChanged()
{
    const model::FoodItem* food = selectedFood();
    const std::int32_t number = food ? food->number : -1;
    if (number == m_shownFood && number >= 0)
        return; // the same food again: its measure and amount stay as the user set them
    m_shownFood = number;
    m_measures->blockSignals(true);
    m_measures->clear();
    m_choices.clear();
    if (food) {
        m_choices = measureChoices(*food, m_context.store().journal.user.isMetric());
        for (std::size_t i = 0; i < m_choices.size(); ++i)
            m_measures->addItem(ui::toQt(m_choices[i].description), static_cast<int>(i) + 1);
        if (!m_choices.empty())
            m_measures->setCurrentIndex(0);
    }
    m_measures->blockSignals(false);
    applyMeasure();
    applyEnabling();
    emit highlightChanged();
}

void FoodChooser::onMeasureChanged(int)
{
    applyMeasure();
    emit highlightChanged();
}

void FoodChooser::applyMeasure()
{
    const int index = m_measures->currentIndex();
    const MeasureChoice* choice = index >= 0 && static_cast<std::size_t>(index) < m_choices.size()
                                      ? &m_choices[static_cast<std::size_t>(index)]
                                      : nullptr;
    m_measureFactor = choice ? choice->grams * 0.01 : 1.0;
    // Grams and ounces go up to 1000, the food's own measures to the box's usual maximum; a
    // larger number already in the box comes down to the new maximum.
    m_amount->setMaximum(choice ? choice->maximum : AmountMaximum);
}

void FoodChooser::applyEnabling()
{
    const model::FoodItem* food = selectedFood();
    const bool all = m_mode == FoodListMode::All;
    m_searchBox->setEnabled(all);
    m_searchButton->setEnabled(all);
    m_groups->setEnabled(all);
    m_add->setEnabled(food != nullptr);
    m_amount->setEnabled(food != nullptr);
    m_measures->setEnabled(food != nullptr && !m_choices.empty());
    if (!food) {
        m_amount->blockSignals(true);
        m_amount->setValue(AmountDefault);
        m_amount->blockSignals(false);
        m_hint->hide();
    }
}

WordSearchContext FoodChooser::wordSearch()
{
    const model::Store& store = m_context.store();
    const std::vector<model::FoodItem>& foods = store.foods.foods();
    if (foods.data() != m_indexedFoods || foods.size() != m_indexedCount) {
        m_wordIndex = FoodWordIndex(foods);
        m_indexedFoods = foods.data();
        m_indexedCount = foods.size();
    }
    if (!m_history)
        m_history = eatingHistory(store.journal.days);
    const long today = model::CalendarDate::fromTime(model::now()).dayNumber();
    return {m_wordIndex, store.shared.customFoods, *m_history, today};
}

void FoodChooser::suggest(const QString& text)
{
    std::vector<std::pair<QString, std::int32_t>> rows;
    if (m_mode == FoodListMode::All) {
        const model::Store& store = m_context.store();
        for (std::int32_t number : suggestFoods(wordSearch(), ui::fromQt(text), chosenGroup()))
            if (const model::FoodItem* food = store.findFood(number))
                rows.emplace_back(ui::toQt(food->name), number);
    }
    m_suggestions->showRows(rows);
}

void FoodChooser::chooseSuggestion(std::int32_t number)
{
    const model::FoodItem* food = m_context.store().findFood(number);
    m_suggestions->hide();
    if (!food)
        return;
    m_searchBox->setText(ui::toQt(food->name));
    search(true, number);
}

void FoodChooser::showFood(std::int32_t number)
{
    const model::FoodItem* food = m_context.store().findFood(number);
    if (!food)
        return;
    if (m_mode != FoodListMode::All) {
        m_mode = FoodListMode::All;
        m_all->setChecked(true);
        applyEnabling();
    }
    const int group = chosenGroup();
    if (!food->isCustom() && group != AllGroupsValue && group != food->group)
        m_groups->setCurrentIndex(std::max(0, m_groups->findData(AllGroupsValue)));
    chooseSuggestion(number);
}

bool FoodChooser::suggestionKey(int key)
{
    switch (key) {
    case Qt::Key_Down:
        m_suggestions->step(1);
        return true;
    case Qt::Key_Up:
        m_suggestions->step(-1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Without a suggestion chosen, Enter searches as it always does.
        if (m_suggestions->currentFood() < 0)
            return false;
        chooseSuggestion(m_suggestions->currentFood());
        return true;
    case Qt::Key_Escape:
        m_suggestions->hide();
        return true;
    default:
        return false;
    }
}

void FoodChooser::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_suggestions->isVisible())
        m_suggestions->place();
}

bool FoodChooser::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_searchBox && event->type() == QEvent::FocusOut)
        m_suggestions->hide();
    // Up, Down and the page keys in the search box move in the food list, so that a food is found
    // and chosen without leaving the keyboard's home position; while suggestions are shown, Up,
    // Down, Enter and Escape act on them.
    if (watched == m_searchBox && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (m_suggestions->isVisible() && suggestionKey(key))
            return true;
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
            key == Qt::Key_PageDown) {
            if (m_foods->count() > 0 && !m_foods->currentItem())
                m_foods->setCurrentRow(0);
            else
                QCoreApplication::sendEvent(m_foods, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace velmora::food
