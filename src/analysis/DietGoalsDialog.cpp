#include "analysis/DietGoalsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

#include "analysis/BodyGoalsDialog.h"
#include "analysis/DietPlannerDialog.h"
#include "ui/QtText.h"
#include "analysis/logic/NumberText.h"
#include "ui/AppContext.h"
#include "model/Clock.h"
#include "model/Store.h"
#include "model/User.h"
#include "ui/Messages.h"

namespace velmora::analysis {

namespace {

template <std::size_t N>
QComboBox* dropList(const std::array<const char*, N>& names, int current, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    for (const char* name : names)
        box->addItem(QString::fromUtf8(name));
    box->setCurrentIndex(current >= 0 && current < static_cast<int>(N) ? current : 0);
    return box;
}

} // namespace

DietGoalsDialog::DietGoalsDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Diet Goals"));
    const model::Store& store = m_context.store();
    m_goals = dietGoalsOf(store.journal.user);
    // A user who never had a goal list starts with the one a new user gets.
    if (m_goals.goalNutrients.empty())
        m_goals.goalNutrients = model::defaultGoalNutrients(store.foods);

    auto* steps = new QVBoxLayout;
    steps->addWidget(makePersonalInfo());
    steps->addWidget(makeWeightGoals());

    auto* estimateBox =
        new QGroupBox(QStringLiteral("Step 3: Estimate Nutritional Goals (optional)"));
    auto* estimateGrid = new QGridLayout(estimateBox);
    auto* estimate = new QPushButton(QStringLiteral("Estimate >>"), estimateBox);
    connect(estimate, &QPushButton::clicked, this, &DietGoalsDialog::onEstimate);
    // The need measured from the journal, with what it rests on or why there is none.
    m_measured = measuredEnergyNeed(store, model::CalendarDate::fromTime(model::now()));
    const bool measured = m_measured.status == MeasuredEnergyStatus::Measured;
    const QString basis = QString::fromUtf8(measuredEnergyBasis(m_measured));
    m_measuredLabel = new QLabel(
        measured ? QStringLiteral("Measured from your journal: <b>%1 kcal</b> a day<br>"
                                  "<small>%2</small>")
                       .arg(QString::number(m_measured.maintenance, 'f', 0), basis.toHtmlEscaped())
                 : QStringLiteral("No energy need measured from your journal yet.<br>"
                                  "<small>%1</small>")
                       .arg(basis.toHtmlEscaped()),
        estimateBox);
    m_measuredLabel->setObjectName(QStringLiteral("measuredEnergy"));
    m_measuredLabel->setWordWrap(true);
    m_useMeasured = new QPushButton(QStringLiteral("Use Measured >>"), estimateBox);
    m_useMeasured->setObjectName(QStringLiteral("useMeasured"));
    m_useMeasured->setEnabled(measured);
    m_useMeasured->setToolTip(
        QStringLiteral("Take the measured need as the energy goal, and the protein, fat, "
                       "carbohydrate and fibre goals that follow from it"));
    connect(m_useMeasured, &QPushButton::clicked, this, &DietGoalsDialog::onUseMeasured);
    estimateGrid->addWidget(estimate, 0, 1);
    estimateGrid->addWidget(m_measuredLabel, 1, 0);
    estimateGrid->addWidget(m_useMeasured, 1, 1, Qt::AlignTop);
    estimateGrid->setColumnStretch(0, 1);
    steps->addWidget(estimateBox);

    auto* bodyBox = new QGroupBox(QStringLiteral("Step 4: Body Size Goals (optional)"));
    auto* bodyRow = new QHBoxLayout(bodyBox);
    auto* body = new QPushButton(QStringLiteral("Set >>"), bodyBox);
    connect(body, &QPushButton::clicked, this, &DietGoalsDialog::onBodyGoals);
    bodyRow->addStretch();
    bodyRow->addWidget(body);
    steps->addWidget(bodyBox);
    steps->addStretch();

    auto* columns = new QHBoxLayout;
    columns->addLayout(steps, 0);
    columns->addWidget(makeGrid(), 1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(buttons);
    resize(820, 560);
}

QWidget* DietGoalsDialog::makePersonalInfo()
{
    const Profile& p = m_goals.profile;
    auto* box = new QGroupBox(QStringLiteral("Step 1: Personal Info"));
    auto* layout = new QVBoxLayout(box);
    const model::Store& store = m_context.store();
    const auto& names = store.shared.userNames;
    const std::string name =
        store.shared.currentUser < names.size() ? names[store.shared.currentUser] : std::string();
    auto* heading = new QLabel(QStringLiteral("Personal information for %1").arg(ui::toQt(name)));
    heading->setObjectName(QStringLiteral("personalHeading"));
    layout->addWidget(heading);

    auto* form = new QFormLayout;
    m_age = new QLineEdit(QString::fromUtf8(numberBoxText(p.age)));
    m_age->setObjectName(QStringLiteral("age"));
    form->addRow(QStringLiteral("Age:"), m_age);

    m_gender = dropList(GenderNames, p.gender, box);
    m_gender->setObjectName(QStringLiteral("gender"));
    form->addRow(QStringLiteral("Gender:"), m_gender);

    m_weight = new QLineEdit(QString::fromUtf8(numberBoxText(p.weight)));
    m_weight->setObjectName(QStringLiteral("weight"));
    auto* weightRow = new QHBoxLayout;
    weightRow->addWidget(m_weight);
    weightRow->addWidget(new QLabel(p.metric ? QStringLiteral("kg") : QStringLiteral("lbs")));
    form->addRow(QStringLiteral("Weight:"), weightRow);

    const HeightBoxes height = heightBoxes(p.height, p.metric);
    m_heightMain = new QSpinBox;
    m_heightMain->setObjectName(QStringLiteral("heightMain"));
    m_heightMain->setRange(0, p.metric ? 300 : 9);
    m_heightMain->setValue(height.feet);
    m_inches = new QSpinBox;
    m_inches->setObjectName(QStringLiteral("heightInches"));
    m_inches->setRange(0, 11);
    m_inches->setValue(height.inches);
    m_inchesLabel = new QLabel(QStringLiteral("in."));
    auto* heightRow = new QHBoxLayout;
    heightRow->addWidget(m_heightMain);
    heightRow->addWidget(new QLabel(p.metric ? QStringLiteral("cm") : QStringLiteral("ft")));
    heightRow->addWidget(m_inches);
    heightRow->addWidget(m_inchesLabel);
    m_inches->setVisible(!p.metric);
    m_inchesLabel->setVisible(!p.metric);
    form->addRow(QStringLiteral("Height:"), heightRow);

    m_lifeStage = dropList(LifeStageVariableNames, p.lifeStageVariable, box);
    m_lifeStage->setObjectName(QStringLiteral("lifeStage"));
    m_lifeStage->setEnabled(lifeStageChoosable(p));
    form->addRow(QStringLiteral("Variables:"), m_lifeStage);

    m_activity = dropList(ActivityLevelNames, p.activityLevel, box);
    m_activity->setObjectName(QStringLiteral("activity"));
    form->addRow(QStringLiteral("Activity Level:"), m_activity);
    layout->addLayout(form);

    connect(m_gender, &QComboBox::currentIndexChanged, this, &DietGoalsDialog::onGender);
    return box;
}

QWidget* DietGoalsDialog::makeWeightGoals()
{
    auto* box = new QGroupBox(QStringLiteral("Step 2: Weight loss/gain goals"));
    auto* layout = new QVBoxLayout(box);
    m_maintain = new QRadioButton(QStringLiteral("I wish to maintain my weight"), box);
    m_change = new QRadioButton(QStringLiteral("I wish to change my weight"), box);
    (m_goals.changeWeight ? m_change : m_maintain)->setChecked(true);
    m_setProgram = new QPushButton(QStringLiteral("Set Program..."), box);
    m_setProgram->setEnabled(m_goals.changeWeight);
    connect(m_change, &QRadioButton::toggled, m_setProgram, &QPushButton::setEnabled);
    connect(m_setProgram, &QPushButton::clicked, this, &DietGoalsDialog::onSetProgram);
    layout->addWidget(m_maintain);
    auto* changeRow = new QHBoxLayout;
    changeRow->addWidget(m_change);
    changeRow->addStretch();
    changeRow->addWidget(m_setProgram);
    layout->addLayout(changeRow);
    return box;
}

QWidget* DietGoalsDialog::makeGrid()
{
    const auto names = goalNames(m_context.store().foods.catalogue(), m_goals.goalNutrients);
    m_grid = new QTableWidget(static_cast<int>(names.size()), 2);
    m_grid->setObjectName(QStringLiteral("goalGrid"));
    m_grid->setHorizontalHeaderLabels({QStringLiteral("Field"), QStringLiteral("Value")});
    m_grid->verticalHeader()->hide();
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_grid->setEditTriggers(QAbstractItemView::AllEditTriggers);
    const QColor grey(200, 200, 200);
    for (int row = 0; row < m_grid->rowCount(); ++row) {
        auto* field = new QTableWidgetItem(QString::fromUtf8(names[static_cast<std::size_t>(row)]));
        field->setFlags(Qt::ItemIsEnabled);
        field->setBackground(grey);
        m_grid->setItem(row, 0, field);
        m_grid->setItem(row, 1, new QTableWidgetItem);
    }
    setGridCells(goalCells(m_goals));
    return m_grid;
}

void DietGoalsDialog::fitGridColumns()
{
    // "Field" takes three quarters; "Value" the rest, with room kept for the scroll bar.
    const int width = m_grid->width() - 2 * m_grid->frameWidth();
    const int field = width * 3 / 4;
    const int scroll = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    m_grid->setColumnWidth(0, field);
    m_grid->setColumnWidth(1, std::max(20, width - field - scroll));
}

void DietGoalsDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    fitGridColumns();
}

void DietGoalsDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    fitGridColumns();
}

std::vector<std::string> DietGoalsDialog::gridCells() const
{
    std::vector<std::string> cells;
    cells.reserve(static_cast<std::size_t>(m_grid->rowCount()));
    for (int row = 0; row < m_grid->rowCount(); ++row)
        cells.push_back(m_grid->item(row, 1)->text().toStdString());
    return cells;
}

void DietGoalsDialog::setGridCells(const std::vector<std::string>& cells)
{
    for (int row = 0; row < m_grid->rowCount() && static_cast<std::size_t>(row) < cells.size();
         ++row)
        m_grid->item(row, 1)->setText(QString::fromUtf8(cells[static_cast<std::size_t>(row)]));
}

bool DietGoalsDialog::readProfile()
{
    Profile& p = m_goals.profile;
    for (auto [box, value] : {std::pair{m_age, &p.age}, std::pair{m_weight, &p.weight}}) {
        const auto number = parseFloatNumber(box->text().toStdString());
        if (!number) {
            ui::showMessageText(this, QStringLiteral("Please enter a number."));
            box->setFocus();
            box->selectAll();
            return false;
        }
        *value = *number;
    }
    chooseGender(p, static_cast<std::uint8_t>(m_gender->currentIndex()));
    if (lifeStageChoosable(p))
        p.lifeStageVariable = static_cast<std::uint8_t>(m_lifeStage->currentIndex());
    p.activityLevel = static_cast<std::uint8_t>(m_activity->currentIndex());
    p.height = heightFromBoxes(HeightBoxes{m_heightMain->value(), m_inches->value()}, p.metric);
    m_goals.changeWeight = m_change->isChecked();
    return true;
}

void DietGoalsDialog::onGender(int index)
{
    Profile p = m_goals.profile;
    p.lifeStageVariable = static_cast<std::uint8_t>(m_lifeStage->currentIndex());
    chooseGender(p, static_cast<std::uint8_t>(index));
    m_lifeStage->setCurrentIndex(p.lifeStageVariable);
    m_lifeStage->setEnabled(lifeStageChoosable(p));
}

void DietGoalsDialog::onEstimate()
{
    if (!readProfile())
        return;
    setGridCells(estimateGoalCells(m_goals, m_context.store().foods, gridCells()));
}

void DietGoalsDialog::onUseMeasured()
{
    if (m_measured.status != MeasuredEnergyStatus::Measured || !readProfile())
        return;
    setGridCells(energyGoalCells(m_goals, m_measured.maintenance, gridCells()));
}

void DietGoalsDialog::onSetProgram()
{
    if (!readProfile())
        return;
    DietPlannerDialog planner(m_goals, this);
    if (m_measured.status == MeasuredEnergyStatus::Measured)
        planner.setMeasuredNeed(m_measured.maintenance);
    planner.exec();
}

void DietGoalsDialog::onBodyGoals()
{
    BodyGoalsDialog dialog(m_context, this);
    dialog.exec();
}

void DietGoalsDialog::accept()
{
    if (!readProfile())
        return;
    m_goals.goalValues = goalValuesFromCells(gridCells());
    storeDietGoals(m_context.store().journal.user, m_goals);
    m_context.notifyChanged(ui::Change::Profile);
    QDialog::accept();
}

} // namespace velmora::analysis
