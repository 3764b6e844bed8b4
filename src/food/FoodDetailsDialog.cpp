#include "food/FoodDetailsDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "charts/BarChart.h"
#include "ui/QtText.h"
#include "food/QuarterColumns.h"
#include "food/logic/ProteinQuality.h"
#include "model/Nutrition.h"
#include "model/Store.h"

namespace velmora::food {

FoodDetailsDialog::FoodDetailsDialog(ui::AppContext& context, std::int32_t number, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Food Details"));
    const model::Store& store = context.store();
    const model::FoodItem* food = store.findFood(number);

    m_name = new QLabel(this);
    QFont bold = m_name->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.15);
    m_name->setFont(bold);
    m_name->setWordWrap(true);
    m_name->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_source = new QLabel(this);
    m_nutrients = new QTreeWidget(this);
    m_nutrients->setColumnCount(2);
    m_nutrients->setHeaderLabels({tr("Nutrient"), tr("Value")});
    m_nutrients->setRootIsDecorated(false);
    m_nutrients->setUniformRowHeights(true);
    new QuarterColumns(m_nutrients);
    m_chart = new charts::BarChart(this);
    m_chart->setTitle(tr("Protein Quality Comparison"));
    m_chart->setAxisLabels(tr("mg"), QStringLiteral("  "));
    m_sentence = new QLabel(this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);

    auto* body = new QHBoxLayout;
    body->addWidget(m_nutrients, 4);
    auto* chartColumn = new QVBoxLayout;
    chartColumn->addWidget(m_chart, 1);
    chartColumn->addWidget(m_sentence);
    body->addLayout(chartColumn, 7);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_name);
    layout->addWidget(m_source);
    layout->addLayout(body, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    resize(1040, 600);

    if (!food)
        return;
    m_name->setText(ui::toQt(food->name));
    // Database foods hold their values per 100 g, custom foods per serving.
    m_nutrients->setHeaderLabels(
        {tr("Nutrient"), food->isCustom() ? tr("Value per serving") : tr("Value per 100 g")});
    m_source->setText(ui::toQt(sourceLine(food->number, store.foods.sourceRelease())));

    const model::NutrientCatalogue& catalogue = store.foods.catalogue();
    QList<QTreeWidgetItem*> items;
    for (const NutrientRow& row : allNutrientRows(catalogue, *food)) {
        auto* item = new QTreeWidgetItem({ui::toQt(row.name), QString::fromStdString(row.value)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    m_nutrients->addTopLevelItems(items);

    const int foodSeries = m_chart->addSeries(tr("Food"), QColor(40, 110, 190));
    const int idealSeries = m_chart->addSeries(tr("Ideal Protein"), QColor(230, 150, 30));
    const ProteinComparison comparison = compareProtein(catalogue, *food);
    if (comparison.shown) {
        for (std::size_t i = 0; i < model::IdealProtein.size(); ++i) {
            const QString label = QString::fromLatin1(model::IdealProtein[i].label);
            m_chart->setValue(foodSeries, label, comparison.food[i]);
            m_chart->setValue(idealSeries, label, comparison.ideal[i]);
        }
        m_sentence->setText(QString::fromStdString(completenessSentence(comparison.completeness)));
    }
    m_sentence->setVisible(comparison.shown);
}

} // namespace velmora::food
