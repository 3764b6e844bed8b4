#include "analysis/DietPlannerDialog.h"

#include <QDateEdit>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "analysis/logic/DietGoals.h"
#include "analysis/logic/MeasuredEnergy.h"
#include "analysis/logic/NumberText.h"
#include "ui/DateLimits.h"
#include "ui/Messages.h"

namespace velmora::analysis {

namespace {

QDateEdit* dateEdit(const QDate& date, bool metric, QWidget* parent)
{
    auto* edit = new QDateEdit(date, parent);
    edit->setCalendarPopup(true);
    ui::limitToStorableDates(edit);
    edit->setDisplayFormat(metric ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy"));
    return edit;
}

} // namespace

DietPlannerDialog::DietPlannerDialog(DietGoals& goals, QWidget* parent)
    : QDialog(parent), m_goals(goals)
{
    setWindowTitle(QStringLiteral("Diet Planner"));
    const bool metric = goals.profile.metric;
    const bool planned = goals.plan.start != 0 && goals.plan.end > goals.plan.start;
    // Without a plan yet, offer ten weeks from today at the weight of the profile.
    const QDate start = planned ? ui::toQDate(model::CalendarDate::fromTime(goals.plan.start))
                                : QDate::currentDate();
    const QDate end =
        planned ? ui::toQDate(model::CalendarDate::fromTime(goals.plan.end)) : start.addDays(70);
    const float startWeight = planned ? goals.plan.startWeight : goals.profile.weight;
    const float endWeight = planned ? goals.plan.endWeight : goals.profile.weight;
    const QString unit = metric ? QStringLiteral("kg") : QStringLiteral("lbs");

    auto weightRow = [&](QLineEdit*& box, float value, const QString& name) {
        box = new QLineEdit(QString::fromUtf8(numberBoxText(value)), this);
        box->setObjectName(name);
        auto* row = new QHBoxLayout;
        row->addWidget(box);
        row->addWidget(new QLabel(unit, this));
        return row;
    };

    auto* starting = new QGroupBox(QStringLiteral("Starting the diet"), this);
    auto* startForm = new QFormLayout(starting);
    m_startDate = dateEdit(start, metric, this);
    m_startDate->setObjectName(QStringLiteral("startDate"));
    startForm->addRow(QStringLiteral("Start Date:"), m_startDate);
    startForm->addRow(QStringLiteral("Start Weight:"),
                      weightRow(m_startWeight, startWeight, QStringLiteral("startWeight")));

    auto* ending = new QGroupBox(QStringLiteral("Ending the diet"), this);
    auto* endForm = new QFormLayout(ending);
    m_endDate = dateEdit(end, metric, this);
    m_endDate->setObjectName(QStringLiteral("endDate"));
    endForm->addRow(QStringLiteral("End Date:"), m_endDate);
    endForm->addRow(QStringLiteral("End Weight:"),
                    weightRow(m_endWeight, endWeight, QStringLiteral("endWeight")));

    auto* calculate = new QPushButton(QStringLiteral("Calculate Diet"), this);
    connect(calculate, &QPushButton::clicked, this, &DietPlannerDialog::onCalculate);

    auto* info = new QGroupBox(QStringLiteral("Diet Information"), this);
    auto* infoLayout = new QVBoxLayout(info);
    m_planText = new QLabel(QString::fromUtf8(PlanPromptText), info);
    m_planText->setObjectName(QStringLiteral("planText"));
    m_difficultyText = new QLabel(info);
    m_difficultyText->setObjectName(QStringLiteral("difficultyText"));
    m_measuredText = new QLabel(info);
    m_measuredText->setObjectName(QStringLiteral("measuredText"));
    m_measuredText->setWordWrap(true);
    for (QLabel* label : {m_planText, m_difficultyText}) {
        label->setWordWrap(true);
        label->setMinimumHeight(label->fontMetrics().lineSpacing() * 3);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        infoLayout->addWidget(label);
    }
    infoLayout->addWidget(m_measuredText);
    m_measuredText->hide();

    auto* acceptButton = new QPushButton(QStringLiteral("Accept Diet"), this);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    connect(acceptButton, &QPushButton::clicked, this, &DietPlannerDialog::onAccept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* dates = new QHBoxLayout;
    dates->addWidget(starting);
    dates->addWidget(ending);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(acceptButton);
    buttons->addWidget(cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(dates);
    layout->addWidget(calculate, 0, Qt::AlignHCenter);
    layout->addWidget(info);
    layout->addLayout(buttons);
    setMinimumWidth(520);
}

std::optional<DietPlanInput> DietPlannerDialog::readInput()
{
    DietPlanInput in;
    in.start = ui::fromQDate(m_startDate->date());
    in.end = ui::fromQDate(m_endDate->date());
    in.metric = m_goals.profile.metric;
    for (auto [box, value] :
         {std::pair{m_startWeight, &in.startWeight}, std::pair{m_endWeight, &in.endWeight}}) {
        const auto number = parseFloatNumber(box->text().toStdString());
        if (!number) {
            ui::showMessageText(this, QStringLiteral("Please enter a number."));
            box->setFocus();
            box->selectAll();
            return std::nullopt;
        }
        *value = *number;
    }
    return in;
}

void DietPlannerDialog::onCalculate()
{
    const auto in = readInput();
    if (!in)
        return;
    const DietPlanResult r = calculateDiet(*in);
    switch (r.outcome) {
    case PlanOutcome::Unchanged:
        return;
    case PlanOutcome::EndNotAfterStart:
        ui::showMessageText(this, QString::fromUtf8(PlanBadDatesText));
        return;
    case PlanOutcome::Planned:
        m_planText->setText(QString::fromUtf8(r.planText));
        m_difficultyText->setText(QString::fromUtf8(r.difficultyText));
        if (m_measuredNeed) {
            const int change = in->endWeight < in->startWeight ? -r.dailyChange : r.dailyChange;
            m_measuredText->setText(
                QString::fromUtf8(planAgainstMeasuredText(*m_measuredNeed, change)));
            m_measuredText->show();
        }
        return;
    }
}

void DietPlannerDialog::onAccept()
{
    const auto in = readInput();
    if (!in)
        return;
    acceptDiet(m_goals, *in);
    accept();
}

} // namespace velmora::analysis
