#include "food/FoodFinderDialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/FoodDetailsDialog.h"
#include "ui/QtText.h"
#include "food/logic/FinderRanking.h"
#include "model/FoodDatabase.h"
#include "model/Store.h"

namespace velmora::food {

namespace {
constexpr int NameWidth = 320;
constexpr int ValueWidth = 112;
constexpr int RowHeight = 16;
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

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(sortBox);
    layout->addWidget(m_results, 1);
    layout->addWidget(buttons);
    resize(NameWidth + 2 * ValueWidth + 60, 560);

    connect(m_find, &QPushButton::clicked, this, &FoodFinderDialog::find);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_results, &QTreeWidget::itemDoubleClicked, this, &FoodFinderDialog::openDetails);
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
