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
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "controls/AmountSpinBox.h"
#include "ui/QtText.h"
#include "food/logic/MealEditing.h"
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
    modeButton(mode)->setChecked(true);
    if (mode != FoodListMode::All)
        m_searchBox->clear();
    fillForMode(true);
    applyEnabling();
}

void FoodChooser::search(bool announce)
{
    const model::Store& store = m_context.store();
    const int group =
        m_groups->currentData().isValid() ? m_groups->currentData().toInt() : AllGroupsValue;
    fillList(
        searchFoods(store.foods, store.shared.customFoods, ui::fromQt(m_searchBox->text()), group));
    if (m_foods->count() > 0)
        m_foods->setCurrentRow(0);
    else if (announce)
        ui::showMessage(this, ui::MsgNoMatches);
}

void FoodChooser::fillList(const std::vector<std::int32_t>& numbers)
{
    const model::Store& store = m_context.store();
    m_foods->setUpdatesEnabled(false);
    m_foods->blockSignals(true);
    m_foods->clear();
    for (std::int32_t number : numbers) {
        const model::FoodItem* food = store.findFood(number);
        if (!food)
            continue;
        auto* item = new QListWidgetItem(ui::toQt(food->name));
        item->setData(Qt::UserRole, number);
        m_foods->addItem(item);
    }
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
    m_measureFactor = 1.0;
    if (food) {
        for (std::size_t i = 0; i < food->measures.size(); ++i)
            m_measures->addItem(ui::toQt(food->measures[i].description), static_cast<int>(i) + 1);
        if (!food->measures.empty()) {
            m_measures->setCurrentIndex(0);
            m_measureFactor = measureFactor(*food, 0);
        }
    }
    m_measures->blockSignals(false);
    applyEnabling();
    emit highlightChanged();
}

void FoodChooser::onMeasureChanged(int index)
{
    const model::FoodItem* food = selectedFood();
    m_measureFactor = food ? measureFactor(*food, index) : 1.0;
    emit highlightChanged();
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
    m_measures->setEnabled(food != nullptr && !food->measures.empty());
    if (!food) {
        m_amount->blockSignals(true);
        m_amount->setValue(AmountDefault);
        m_amount->blockSignals(false);
        m_hint->hide();
    }
}

bool FoodChooser::eventFilter(QObject* watched, QEvent* event)
{
    // Up, Down and the page keys in the search box move in the food list, so that a food is found
    // and chosen without leaving the keyboard's home position.
    if (watched == m_searchBox && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
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
