#include "food/FoodFinderDialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QHelpEvent>
#include <QRadioButton>
#include <QSettings>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/FoodDetailsDialog.h"
#include "ui/QtText.h"
#include "food/logic/FinderRanking.h"
#include "model/FoodDatabase.h"
#include "model/Store.h"
#include "ui/SettingsKeys.h"

namespace velmora::food {

namespace {
constexpr int NameWidth = 320;
constexpr int ValueWidth = 112;
constexpr int RowHeight = 16;

// Draws as usual; a name cut short by its column shows whole in a tool tip.
class WholeNameTipDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override
    {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const QString text = index.data(Qt::DisplayRole).toString();
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        if (sizeHint(opt, index).width() > option.rect.width()) {
            QToolTip::showText(event->globalPos(), text, view->viewport(), option.rect);
        } else {
            QToolTip::hideText();
            event->ignore();
        }
        return true;
    }
};

} // namespace

FoodFinderDialog::FoodFinderDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(tr("Food Finder"));
    m_first = new QComboBox(this);
    m_second = new QComboBox(this);
    const model::NutrientCatalogue& catalogue = context.store().foods.catalogue();
    for (std::size_t index : catalogue.sortedByName()) {
        const model::NutrientDef& def = catalogue.entries()[index];
        m_first->addItem(ui::toQt(def.name), def.number);
        m_second->addItem(ui::toQt(def.name), def.number);
    }
    m_first->setCurrentIndex(m_first->count() > 0 ? 0 : -1);
    m_second->setCurrentIndex(m_second->count() > 1 ? 1 : m_second->count() - 1);

    m_high1 = new QRadioButton(tr("High"), this);
    m_low1 = new QRadioButton(tr("Low"), this);
    m_high2 = new QRadioButton(tr("High"), this);
    m_low2 = new QRadioButton(tr("Low"), this);
    auto* group1 = new QButtonGroup(this);
    group1->addButton(m_high1);
    group1->addButton(m_low1);
    auto* group2 = new QButtonGroup(this);
    group2->addButton(m_high2);
    group2->addButton(m_low2);
    m_high1->setChecked(true);
    m_low2->setChecked(true);

    m_find = new QPushButton(tr("Find"), this);
    m_find->setDefault(true);

    auto* sortBox = new QGroupBox(tr("Sort Foods By:"), this);
    auto* grid = new QGridLayout(sortBox);
    grid->addWidget(m_high1, 0, 0);
    grid->addWidget(m_low1, 0, 1);
    grid->addWidget(m_first, 0, 2);
    grid->addWidget(m_high2, 1, 0);
    grid->addWidget(m_low2, 1, 1);
    grid->addWidget(m_second, 1, 2);
    grid->addWidget(m_find, 0, 3, 2, 1);
    grid->setColumnStretch(2, 1);

    m_results = new QTreeWidget(this);
    m_results->setObjectName(QStringLiteral("finderResults"));
    m_results->setRootIsDecorated(false);
    m_results->setUniformRowHeights(true);
    m_results->setColumnCount(0);
    m_results->setHeaderHidden(true);
    m_results->setStyleSheet(QStringLiteral("QTreeView::item { height: %1px; }").arg(RowHeight));
    m_results->setItemDelegate(new WholeNameTipDelegate(m_results));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    m_toFoodPage = buttons->addButton(tr("Show on Food &Page"), QDialogButtonBox::ActionRole);
    m_toFoodPage->setToolTip(tr("Close the finder with this food chosen on the food page, ready "
                                "to add"));
    m_toFoodPage->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sortBox);
    layout->addWidget(m_results, 1);
    layout->addWidget(buttons);
    resize(NameWidth + 2 * ValueWidth + 60, 560);

    connect(m_find, &QPushButton::clicked, this, &FoodFinderDialog::find);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_results, &QTreeWidget::itemDoubleClicked, this, &FoodFinderDialog::openDetails);
    connect(m_results, &QTreeWidget::itemSelectionChanged, this,
            [this] { m_toFoodPage->setEnabled(!m_results->selectedItems().isEmpty()); });
    connect(m_toFoodPage, &QPushButton::clicked, this, [this] {
        const QList<QTreeWidgetItem*> selected = m_results->selectedItems();
        if (selected.isEmpty())
            return;
        m_chosen = selected.front()->data(0, Qt::UserRole).toInt();
        accept();
    });
    restoreChoices();
}

void FoodFinderDialog::restoreChoices()
{
    const QSettings settings;
    const auto restore = [&](QComboBox* list, QRadioButton* high, QRadioButton* low,
                             const QString& nutrientKey, const QString& lowKey) {
        const int index = list->findData(settings.value(nutrientKey, -1).toInt());
        if (index >= 0)
            list->setCurrentIndex(index);
        if (settings.contains(lowKey))
            (settings.value(lowKey).toBool() ? low : high)->setChecked(true);
    };
    restore(m_first, m_high1, m_low1, ui::settings::FinderNutrient1, ui::settings::FinderLow1);
    restore(m_second, m_high2, m_low2, ui::settings::FinderNutrient2, ui::settings::FinderLow2);
}

void FoodFinderDialog::rememberChoices() const
{
    QSettings settings;
    if (m_first->currentIndex() >= 0)
        settings.setValue(ui::settings::FinderNutrient1, m_first->currentData().toInt());
    if (m_second->currentIndex() >= 0)
        settings.setValue(ui::settings::FinderNutrient2, m_second->currentData().toInt());
    settings.setValue(ui::settings::FinderLow1, m_low1->isChecked());
    settings.setValue(ui::settings::FinderLow2, m_low2->isChecked());
}

void FoodFinderDialog::done(int result)
{
    rememberChoices();
    QDialog::done(result);
}

void FoodFinderDialog::find()
{
    if (m_first->currentIndex() < 0 || m_second->currentIndex() < 0)
        return;
    const model::FoodDatabase& foods = m_context.store().foods;
    const model::NutrientId first = m_first->currentData().toInt();
    const model::NutrientId second = m_second->currentData().toInt();
    const std::vector<RankRecord> ranking =
        rankFoods(foods, first, m_low1->isChecked() ? RankDirection::Low : RankDirection::High,
                  second, m_low2->isChecked() ? RankDirection::Low : RankDirection::High);

    m_results->setUpdatesEnabled(false);
    m_results->clear();
    m_results->setColumnCount(3);
    m_results->setHeaderLabels({tr("Name"), m_first->currentText(), m_second->currentText()});
    m_results->setHeaderHidden(false);
    m_results->header()->setStretchLastSection(false);
    m_results->setColumnWidth(0, NameWidth);
    m_results->setColumnWidth(1, ValueWidth);
    m_results->setColumnWidth(2, ValueWidth);
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(ranking.size()));
    for (const RankRecord& r : ranking) {
        const model::FoodItem& food = foods.foods()[static_cast<std::size_t>(r.index)];
        auto* item = new QTreeWidgetItem({ui::toQt(food.name),
                                          QString::asprintf("%.2f", static_cast<double>(r.a)),
                                          QString::asprintf("%.2f", static_cast<double>(r.b))});
        item->setData(0, Qt::UserRole, food.number);
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    m_results->addTopLevelItems(items);
    m_results->setUpdatesEnabled(true);
    rememberChoices();
}

void FoodFinderDialog::openDetails()
{
    const QTreeWidgetItem* item = m_results->currentItem();
    if (!item)
        return;
    FoodDetailsDialog dialog(m_context, item->data(0, Qt::UserRole).toInt(), this);
    dialog.exec();
}

} // namespace velmora::food
