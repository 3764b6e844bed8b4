#include "fitness/DefineActivityDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "fitness/logic/ActivityEstimate.h"
#include "fitness/logic/HealthValues.h"

namespace velmora::fitness {

namespace {

QLineEdit* wholeNumberEdit(int value, QWidget* parent, const char* name)
{
    auto* edit = new QLineEdit(QString::number(value), parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setValidator(new QIntValidator(edit));
    edit->setMaximumWidth(80);
    return edit;
}

} // namespace

DefineActivityDialog::DefineActivityDialog(float weight, int calories, QWidget* parent)
    : QDialog(parent), m_weight(weight), m_calories(calories)
{
    setWindowTitle(QStringLiteral("Define Activity"));
    m_hours = wholeNumberEdit(DefaultActivityHours, this, "hours");
    m_minutes = wholeNumberEdit(DefaultActivityMinutes, this, "minutes");
    m_level = new QComboBox(this);
    m_level->setObjectName(QStringLiteral("activityLevel"));
    for (int level : OfferedActivityLevels)
        m_level->addItem(QString::fromLatin1(ActivityLevelNames[static_cast<std::size_t>(level)]),
                         level);
    auto* help = new QPushButton(QStringLiteral("&?"), this);
    help->setToolTip(QStringLiteral("What the activity levels mean"));
    m_caloriesEdit = wholeNumberEdit(calories, this, "caloriesUsed");
    auto* estimate = new QPushButton(QStringLiteral("&Estimate"), this);

    auto* duration = new QGroupBox(QStringLiteral("Duration"), this);
    auto* durationForm = new QFormLayout(duration);
    durationForm->addRow(QStringLiteral("&Hours:"), m_hours);
    durationForm->addRow(QStringLiteral("&Minutes:"), m_minutes);

    auto* level = new QHBoxLayout;
    level->addWidget(m_level, 1);
    level->addWidget(help);
    auto* result = new QHBoxLayout;
    result->addWidget(m_caloriesEdit);
    result->addWidget(estimate);
    auto* form = new QFormLayout;
    auto* levelLabel = new QLabel(QStringLiteral("Activity &Level:"), this);
    levelLabel->setBuddy(m_level);
    auto* caloriesLabel = new QLabel(QStringLiteral("&Calories Used:"), this);
    caloriesLabel->setBuddy(m_caloriesEdit);
    form->addRow(levelLabel, level);
    form->addRow(caloriesLabel, result);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(duration);
    layout->addLayout(form);
    layout->addWidget(buttons);

    connect(estimate, &QPushButton::clicked, this, &DefineActivityDialog::onEstimate);
    connect(help, &QPushButton::clicked, this, &DefineActivityDialog::onHelp);
    connect(buttons, &QDialogButtonBox::accepted, this, &DefineActivityDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &DefineActivityDialog::reject);
}

void DefineActivityDialog::onEstimate()
{
    const auto hours = parseWholeNumber(m_hours->text().toStdString());
    const auto minutes = parseWholeNumber(m_minutes->text().toStdString());
    const auto calories = hours && minutes ? estimateCalories(m_level->currentData().toInt(),
                                                              m_weight, *hours, *minutes)
                                           : std::nullopt;
    if (!calories) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter a duration of whole hours and minutes."));
        m_hours->setFocus();
        return;
    }
    m_caloriesEdit->setText(QString::number(*calories));
}

void DefineActivityDialog::onHelp()
{
    QMessageBox::information(this, QStringLiteral("Activity Level"),
                             QString::fromUtf8(ActivityLevelHelp));
}

void DefineActivityDialog::accept()
{
    const auto calories = parseWholeNumber(m_caloriesEdit->text().toStdString());
    if (!calories) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter an integer."));
        m_caloriesEdit->setFocus();
        return;
    }
    m_calories = *calories;
    QDialog::accept();
}

} // namespace velmora::fitness
