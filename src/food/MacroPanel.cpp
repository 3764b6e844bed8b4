#include "food/MacroPanel.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "charts/PieChart.h"
#include "ui/QtText.h"
#include "food/QuarterColumns.h"

namespace velmora::food {

namespace {
const QColor SliceColours[3] = {QColor(0, 0, 255), QColor(0, 160, 0), QColor(255, 0, 0)};
}

MacroPanel::MacroPanel(QWidget* parent) : QWidget(parent)
{
    m_graphs = new QPushButton(tr("Macronutrient Graphs"), this);
    m_list = new QPushButton(tr("Details List"), this);
    for (QPushButton* b : {m_graphs, m_list})
        b->setCheckable(true);
    auto* toggles = new QButtonGroup(this);
    toggles->setExclusive(true);
    toggles->addButton(m_graphs, 0);
    toggles->addButton(m_list, 1);
    m_graphs->setChecked(true);

    m_pie1 = new charts::PieChart(this);
    m_pie1->setObjectName(QStringLiteral("pie1"));
    m_pie2 = new charts::PieChart(this);
    m_pie2->setObjectName(QStringLiteral("pie2"));
    auto* pies = new QWidget(this);
    auto* pieRow = new QHBoxLayout(pies);
    pieRow->setContentsMargins(0, 0, 0, 0);
    pieRow->addWidget(m_pie1);
    pieRow->addWidget(m_pie2);

    m_details = new QTreeWidget(this);
    m_details->setObjectName(QStringLiteral("detailsList"));
    m_details->setColumnCount(2);
    m_details->setHeaderLabels({tr("Nutrient"), tr("Value")});
    m_details->setRootIsDecorated(false);
    m_details->setUniformRowHeights(true);
    new QuarterColumns(m_details);

    m_stack = new QStackedWidget(this);
    m_stack->addWidget(pies);
    m_stack->addWidget(m_details);

    auto* toggleRow = new QHBoxLayout;
    toggleRow->addWidget(m_graphs);
    toggleRow->addWidget(m_list);
    toggleRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(toggleRow);
    layout->addWidget(m_stack, 1);

    connect(toggles, &QButtonGroup::idClicked, this, [this](int id) { showPies(id == 0); });
}

void MacroPanel::setPie(int which, const EnergyShares& shares, const QString& title)
{
    charts::PieChart* chart = pie(which);
    chart->removeAllSlices();
    const std::array<double, 3> percents = pieSlicePercents(shares);
    for (std::size_t i = 0; i < percents.size(); ++i)
        chart->addSlice(SliceColours[i], PieSliceNutrients[i], percents[i],
                        QString::fromLatin1(PieSliceLabels[i]), true);
    chart->setTitle(title);
}

void MacroPanel::setDetails(const std::vector<NutrientRow>& rows)
{
    m_details->setUpdatesEnabled(false);
    m_details->clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const NutrientRow& r : rows) {
        auto* item = new QTreeWidgetItem({ui::toQt(r.name), QString::fromStdString(r.value)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    m_details->addTopLevelItems(items);
    m_details->setUpdatesEnabled(true);
}

void MacroPanel::clearDetails()
{
    m_details->clear();
}

void MacroPanel::showPies(bool pies)
{
    (pies ? m_graphs : m_list)->setChecked(true);
    m_stack->setCurrentIndex(pies ? 0 : 1);
}

bool MacroPanel::piesShown() const
{
    return m_stack->currentIndex() == 0;
}

} // namespace velmora::food
