#include "analysis/GraphsPage.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineSeries>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "analysis/AnalysisPreview.h"
#include "analysis/ExerciseFieldDialog.h"
#include "analysis/GraphView.h"
#include "ui/QtText.h"
#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "model/Clock.h"
#include "model/Store.h"
#include "model/User.h"
#include "ui/Messages.h"

namespace velmora::analysis {

namespace {

using ui::fromQDate;
using ui::toQDate;

const QColor PlanColour(0, 0, 255);

} // namespace

GraphsPage::GraphsPage(ui::AppContext& context, QWidget* parent) : ui::Page(context, parent)
{
    const QDate today = toQDate(model::CalendarDate::fromTime(model::now()));
    m_from = new QDateEdit(today.addDays(-30), this);
    m_from->setObjectName(QStringLiteral("from"));
    m_to = new QDateEdit(today, this);
    m_to->setObjectName(QStringLiteral("to"));
    for (QDateEdit* edit : {m_from, m_to}) {
        edit->setCalendarPopup(true);
        ui::limitToStorableDates(edit);
    }

    m_nutrient = new QPushButton(QStringLiteral("Nutrient"), this);
    m_health = new QPushButton(QStringLiteral("Health"), this);
    m_fitness = new QPushButton(QStringLiteral("Fitness"), this);
    m_clear = new QPushButton(QStringLiteral("Clear"), this);
    m_print = new QPushButton(QStringLiteral("Print"), this);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("From:"), this));
    top->addWidget(m_from);
    top->addWidget(new QLabel(QStringLiteral("To:"), this));
    top->addWidget(m_to);
    top->addSpacing(12);
    for (QPushButton* b : {m_nutrient, m_health, m_fitness, m_clear, m_print})
        top->addWidget(b);
    top->addStretch();

    m_modes = new QButtonGroup(this);
    auto* modes = new QHBoxLayout;
    const std::array<const char*, 3> modeNames{"Nutrient Goals", "Diet Plan and Progress",
                                               "Advanced Graphing"};
    for (int i = 0; i < 3; ++i) {
        auto* radio =
            new QRadioButton(QString::fromUtf8(modeNames[static_cast<std::size_t>(i)]), this);
        m_modes->addButton(radio, i);
        modes->addWidget(radio);
    }
    m_modes->button(0)->setChecked(true);
    m_legend = new QCheckBox(QStringLiteral("Show Legend"), this);
    modes->addSpacing(12);
    modes->addWidget(m_legend);
    m_trend = new QCheckBox(QStringLiteral("Trend"), this);
    m_trend->setToolTip(QStringLiteral("Add the smoothed curve of every health item shown"));
    modes->addWidget(m_trend);
    modes->addStretch();
    // The quick ranges set the pickers of the row above.
    const std::array<std::pair<const char*, const char*>, 5> ranges{
        {{"7 days", "the last 7 days"},
         {"30 days", "the last 30 days"},
         {"90 days", "the last 90 days"},
         {"Year", "the last year"},
         {"All", "every day of the journal"}}};
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        auto* button = new QPushButton(QString::fromUtf8(ranges[i].first), this);
        button->setToolTip(QStringLiteral("Graph %1").arg(QString::fromUtf8(ranges[i].second)));
        button->setMaximumWidth(button->fontMetrics().horizontalAdvance(button->text()) + 24);
        const auto range = static_cast<QuickRange>(i);
        connect(button, &QPushButton::clicked, this, [this, range] { onRange(range); });
        m_ranges[i] = button;
        modes->addWidget(button);
    }

    m_graph = new GraphView(this);
    m_graph->setObjectName(QStringLiteral("graphView"));
    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("graphText"));
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setWordWrap(true);
    m_text->setAutoFillBackground(true);
    QPalette white = m_text->palette();
    white.setColor(QPalette::Window, Qt::white);
    m_text->setPalette(white);

    m_analysis = new QWidget(this);
    auto* analysisLayout = new QVBoxLayout(m_analysis);
    analysisLayout->setContentsMargins(0, 0, 0, 0);
    m_analysisMessage = new QLabel(m_analysis);
    m_analysisMessage->setObjectName(QStringLiteral("analysisMessage"));
    m_analysisMessage->hide();
    m_table = new QTreeWidget(m_analysis);
    m_table->setObjectName(QStringLiteral("analysisTable"));
    m_table->setRootIsDecorated(false);
    m_table->setAlternatingRowColors(true);
    m_table->setUniformRowHeights(true);
    m_table->setColumnCount(4);
    m_table->setHeaderLabels(
        {QString::fromUtf8(AnalysisHeadings[0]), QString::fromUtf8(AnalysisHeadings[1]),
         QString::fromUtf8(AnalysisHeadings[2]), QString::fromUtf8(AnalysisHeadings[3])});
    m_table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->header()->setStretchLastSection(false);
    for (int c = 1; c < 4; ++c) {
        m_table->header()->setSectionResizeMode(c, QHeaderView::Fixed);
        m_table->setColumnWidth(c, 130);
        m_table->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    }
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_printAnalysis = new QAction(QStringLiteral("Print Analysis..."), this);
    m_saveAnalysisPdf = new QAction(QStringLiteral("Save Analysis as PDF..."), this);
    m_table->addAction(m_printAnalysis);
    m_table->addAction(m_saveAnalysisPdf);
    connect(m_printAnalysis, &QAction::triggered, this, &GraphsPage::printAnalysis);
    connect(m_saveAnalysisPdf, &QAction::triggered, this, &GraphsPage::saveAnalysisPdf);
    auto* note = new QLabel(QString::fromUtf8(AnalysisPageNote), m_analysis);
    note->setObjectName(QStringLiteral("analysisNote"));
    analysisLayout->addWidget(m_analysisMessage);
    analysisLayout->addWidget(m_table, 1);
    analysisLayout->addWidget(note);

    m_stack = new QStackedWidget(this);
    m_stack->addWidget(m_analysis);
    m_stack->addWidget(m_graph);
    m_stack->addWidget(m_text);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(modes);
    layout->addWidget(m_stack, 1);

    connect(m_from, &QDateEdit::dateChanged, this, &GraphsPage::onDatesChanged);
    connect(m_to, &QDateEdit::dateChanged, this, &GraphsPage::onDatesChanged);
    connect(m_modes, &QButtonGroup::idClicked, this,
            [this](int id) { chooseMode(static_cast<Mode>(id)); });
    connect(m_legend, &QCheckBox::toggled, m_graph, &GraphView::setLegendShown);
    connect(m_trend, &QCheckBox::toggled, this, &GraphsPage::onTrend);
    connect(m_nutrient, &QPushButton::clicked, this, &GraphsPage::onNutrient);
    connect(m_health, &QPushButton::clicked, this, &GraphsPage::onHealth);
    connect(m_fitness, &QPushButton::clicked, this, &GraphsPage::onFitness);
    connect(m_clear, &QPushButton::clicked, this, [this] { resetGraph(); });
    connect(m_print, &QPushButton::clicked, this, &GraphsPage::onPrint);
    chooseMode(Mode::NutrientGoals);
}

QString GraphsPage::pageTitle() const
{
    return QStringLiteral("Graphs");
}

model::CalendarDate GraphsPage::from() const
{
    return fromQDate(m_from->date());
}

model::CalendarDate GraphsPage::to() const
{
    return fromQDate(m_to->date());
}

void GraphsPage::setDates(model::CalendarDate from, model::CalendarDate to)
{
    const QSignalBlocker blockFrom(m_from);
    const QSignalBlocker blockTo(m_to);
    m_from->setDate(toQDate(from));
    m_to->setDate(toQDate(to));
}

void GraphsPage::refreshPage()
{
    const bool metric = context().store().journal.user.isMetric();
    const QString format = metric ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy");
    m_from->setDisplayFormat(format);
    m_to->setDisplayFormat(format);
    // The records may have changed under every curve: start the mode afresh.
    chooseMode(m_mode);
}

void GraphsPage::showEvent(QShowEvent* event)
{
    ui::Page::showEvent(event);
    if (event->spontaneous())
        return; // the window came back from the task bar: nothing changed meanwhile
    // Curves the user added stay; the table and the diet plan follow the records.
    if (m_mode == Mode::Advanced)
        updateEnabling();
    else
        refreshPage();
}

void GraphsPage::updateEnabling()
{
    const bool advanced = m_mode == Mode::Advanced;
    const bool pickers = m_mode != Mode::DietPlan;
    m_from->setEnabled(pickers);
    m_to->setEnabled(pickers);
    m_nutrient->setEnabled(advanced);
    m_health->setEnabled(advanced);
    m_fitness->setEnabled(advanced && !context().store().shared.exercises.empty());
    m_clear->setEnabled(advanced);
    m_legend->setEnabled(m_mode != Mode::NutrientGoals);
    m_trend->setEnabled(m_mode != Mode::NutrientGoals);
    for (QPushButton* range : m_ranges)
        range->setEnabled(pickers);
}

void GraphsPage::chooseMode(Mode mode)
{
    m_mode = mode;
    m_modes->button(static_cast<int>(mode))->setChecked(true);
    updateEnabling();
    switch (mode) {
    case Mode::NutrientGoals:
        resetGraph();
        m_stack->setCurrentWidget(m_analysis);
        rebuildAnalysis(false);
        return;
    case Mode::Advanced:
        resetGraph();
        return;
    case Mode::DietPlan: {
        const model::Store& store = context().store();
        const DietPlanGraph plan = dietPlanGraph(store.journal.user, store.journal.days);
        setDates(plan.from, plan.to);
        resetGraph();
        if (plan.state == DietPlanGraph::State::NoPlan) {
            showText(QString::fromUtf8(NoDietPlanText));
            return;
        }
        if (plan.state != DietPlanGraph::State::Shown)
            return; // the invalid-range text stands
        addCurve(plan.weight, true);
        const int index = m_graph->addCurve(plan.plan, PlanColour);
        if (!plan.weight)
            m_graph->yAxis(index)->show(); // no weight scale to share: the plan keeps its own
        showGraphIfDrawn();
        return;
    }
    }
}

void GraphsPage::resetGraph()
{
    m_shown.clear();
    const auto base = baseCurve(from(), to());
    m_rangeValid = base.has_value();
    m_graph->reset(base.value_or(Series{}));
    m_graph->setLegendShown(m_legend->isChecked());
    if (m_mode == Mode::NutrientGoals)
        return;
    if (!m_rangeValid)
        showText(QString::fromUtf8(InvalidRangeText));
    else
        showGraphIfDrawn();
}

void GraphsPage::showText(const QString& text)
{
    m_text->setText(text);
    m_stack->setCurrentWidget(m_text);
}

void GraphsPage::showGraphIfDrawn()
{
    // Until a curve is added there is nothing to look at but the empty range.
    if (m_graph->curveCount() > 1)
        m_stack->setCurrentWidget(m_graph);
    else
        showText(QString());
}

void GraphsPage::addCurve(const std::optional<Series>& series, bool trendable)
{
    if (!m_rangeValid)
        return;
    if (!series) {
        ui::showMessageText(this, QString::fromUtf8(NotEnoughDataText));
        return;
    }
    const int n = static_cast<int>(m_shown.size());
    m_shown.push_back(ShownCurve{*series, GraphView::curveColour(n), trendable});
    drawCurve(m_shown.back());
    showGraphIfDrawn();
}

void GraphsPage::drawCurve(const ShownCurve& shown)
{
    m_graph->addCurve(shown.series, shown.colour);
    if (!m_trend->isChecked() || !shown.trendable)
        return;
    const std::optional<Series> trend = trendCurve(shown.series);
    if (!trend)
        return;
    // The trend is drawn as a bold line without points in the colour of its item.
    QLineSeries* line = m_graph->curve(m_graph->addCurve(*trend, shown.colour));
    QPen pen(shown.colour.darker(130));
    pen.setWidthF(3.0);
    line->setPen(pen);
    line->setPointsVisible(false);
}

void GraphsPage::redraw()
{
    const std::vector<ShownCurve> shown = std::move(m_shown);
    resetGraph();
    if (!m_rangeValid)
        return;
    m_shown = shown;
    for (const ShownCurve& curve : m_shown)
        drawCurve(curve);
    showGraphIfDrawn();
}

void GraphsPage::onTrend()
{
    if (m_mode == Mode::DietPlan)
        chooseMode(Mode::DietPlan); // the weight, its trend, then the plan on the same scale
    else if (m_mode == Mode::Advanced)
        redraw();
}

void GraphsPage::onRange(QuickRange range)
{
    const DateRange dates = quickRange(range, model::CalendarDate::fromTime(model::now()),
                                       context().store().journal.days);
    setDates(dates.from, dates.to);
    onDatesChanged();
}

void GraphsPage::rebuildAnalysis(bool askedByUser)
{
    m_table->setUpdatesEnabled(false);
    m_table->clear();
    const AnalysisTable table = buildAnalysis(context().store(), from(), to());
    const bool notSet = table.state == AnalysisTable::State::GoalsNotSet;
    m_analysisMessage->setText(notSet ? QString::fromUtf8(GoalsNotSetText) : QString());
    m_analysisMessage->setVisible(notSet);
    QList<QTreeWidgetItem*> items;
    for (const AnalysisRow& row : table.rows) {
        auto* item = new QTreeWidgetItem;
        for (int c = 0; c < 4; ++c) {
            item->setText(c, QString::fromUtf8(row.cells[static_cast<std::size_t>(c)]));
            if (c > 0)
                item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        }
        items.append(item);
    }
    m_table->addTopLevelItems(items);
    m_table->setUpdatesEnabled(true);
    if (notSet && askedByUser)
        ui::showMessageText(this, QString::fromUtf8(GoalsNotSetText));
}

void GraphsPage::onDatesChanged()
{
    if (m_mode == Mode::NutrientGoals)
        rebuildAnalysis(true);
    else
        resetGraph(); // curves of the former range no longer fit the axis
}

void GraphsPage::onNutrient()
{
    const model::Store& store = context().store();
    const auto& catalogue = store.foods.catalogue();
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("nutrientMenu"));
    for (std::size_t i : catalogue.sortedByName()) {
        const model::NutrientDef& def = catalogue.entries()[i];
        menu.addAction(ui::toQt(def.name))->setData(def.number);
    }
    QAction* chosen = menu.exec(m_nutrient->mapToGlobal(QPoint(0, m_nutrient->height())));
    if (chosen == nullptr)
        return;
    addCurve(nutrientCurve(store, from(), to(), chosen->data().toInt()));
}

void GraphsPage::onHealth()
{
    const model::Store& store = context().store();
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("healthMenu"));
    for (std::size_t i = 0; i < HealthItemCount; ++i)
        menu.addAction(QString::fromUtf8(HealthItemNames[i]))->setData(static_cast<int>(i));
    const auto& variables = store.shared.variables;
    if (!variables.empty())
        menu.addSeparator();
    for (std::size_t v = 0; v < variables.size(); ++v)
        menu.addAction(ui::toQt(variables[v].name))->setData(static_cast<int>(HealthItemCount + v));
    QAction* chosen = menu.exec(m_health->mapToGlobal(QPoint(0, m_health->height())));
    if (chosen == nullptr)
        return;
    const auto index = static_cast<std::size_t>(chosen->data().toInt());
    const auto& days = store.journal.days;
    if (index < HealthItemCount)
        addCurve(healthCurve(days, from(), to(), static_cast<HealthItem>(index),
                             store.journal.user.isMetric()),
                 true);
    else
        addCurve(variableCurve(days, from(), to(), variables[index - HealthItemCount]), true);
}

void GraphsPage::onFitness()
{
    const model::Store& store = context().store();
    ExerciseFieldDialog dialog(store, this);
    if (dialog.exec() != QDialog::Accepted || dialog.exercise() == nullptr ||
        dialog.field() == nullptr)
        return;
    addCurve(fitnessCurve(store.journal.days, from(), to(), *dialog.exercise(), *dialog.field()));
}

void GraphsPage::onPrint()
{
    if (m_mode == Mode::NutrientGoals)
        printAnalysis();
    else
        printGraph();
}

void GraphsPage::printAnalysis()
{
    const AnalysisReportContent report = analysisReport(context().store(), from(), to());
    if (report.table.state == AnalysisTable::State::GoalsNotSet) {
        ui::showMessageText(this, QString::fromUtf8(GoalsNotSetText));
        return;
    }
    previewAnalysisReport(this, report);
}

void GraphsPage::saveAnalysisPdf()
{
    const AnalysisReportContent report = analysisReport(context().store(), from(), to());
    if (report.table.state == AnalysisTable::State::GoalsNotSet) {
        ui::showMessageText(this, QString::fromUtf8(GoalsNotSetText));
        return;
    }
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Save Analysis as PDF"),
                                     QStringLiteral("analysis.pdf"), QStringLiteral("PDF (*.pdf)"));
    if (path.isEmpty())
        return;
    QString error;
    if (!writeAnalysisPdf(path, report, &error))
        ui::showMessageText(this, QStringLiteral("The PDF could not be written: %1").arg(error));
}

void GraphsPage::printGraph()
{
    if (m_stack->currentWidget() != m_graph)
        return; // nothing drawn to print
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Velmora"));
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle(QStringLiteral("Print Preview"));
    preview.resize(window()->size() * 0.9);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter* target) {
        QPainter painter;
        if (!painter.begin(target))
            return; // the job could not start: nothing is printed
        const int pages =
            target->fromPage() > 0 ? std::max(1, target->toPage() - target->fromPage() + 1) : 1;
        for (int page = 0; page < pages; ++page) {
            if (page > 0 && !target->newPage())
                return;
            m_graph->paintChart(painter, QRectF(0, 0, target->width(), target->height()));
        }
    });
    preview.exec();
}

} // namespace velmora::analysis
