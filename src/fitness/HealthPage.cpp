#include "fitness/HealthPage.h"

#include <optional>

#include <QComboBox>
#include <QCursor>
#include <QDateEdit>
#include <QDateTime>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimeEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "fitness/DefineVariableDialog.h"
#include "fitness/FitnessText.h"
#include "fitness/MeasurementsDialog.h"
#include "fitness/UseVariableDialog.h"
#include "fitness/logic/HealthValues.h"
#include "fitness/logic/JournalDays.h"
#include "fitness/logic/UserVariables.h"
#include "model/FitnessJournalEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

namespace {

constexpr int DayRole = Qt::UserRole;
constexpr int UseRole = Qt::UserRole;

QLineEdit* valueEdit(QWidget* parent, const char* name)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setMaximumWidth(90);
    return edit;
}

// Says that an edit must hold a number and puts the focus on it, as a dialog does when it reads
// a number edit.
void refuseNotANumber(QLineEdit* edit)
{
    QMessageBox::warning(edit->window(), QStringLiteral("Velmora"),
                         QStringLiteral("Please enter a number."));
    edit->setFocus();
    edit->selectAll();
}

} // namespace

HealthPage::HealthPage(ui::AppContext& context, QWidget* parent) : ui::Page(context, parent)
{
    m_date = new QDateEdit(QDate::currentDate(), this);
    m_date->setObjectName(QStringLiteral("healthDate"));
    m_date->setCalendarPopup(true);
    ui::limitToStorableDates(m_date);
    m_previous = new QListWidget(this);
    m_previous->setObjectName(QStringLiteral("previousEntries"));
    m_previous->setMinimumWidth(110);
    m_previous->setMaximumWidth(170);
    m_date->setMaximumWidth(170);

    auto* left = new QVBoxLayout;
    left->addWidget(m_date);
    auto* previousLabel = new QLabel(QStringLiteral("Previous Entries"), this);
    previousLabel->setBuddy(m_previous);
    left->addWidget(previousLabel);
    left->addWidget(m_previous, 1);

    auto* right = new QVBoxLayout;
    right->addWidget(buildValues());
    right->addWidget(buildVariables(), 1);

    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left);
    layout->addLayout(right, 1);

    connect(m_date, &QDateEdit::dateChanged, this, &HealthPage::onDateChanged);
    connect(m_previous, &QListWidget::itemActivated, this, &HealthPage::onPreviousEntry);
    connect(m_previous, &QListWidget::itemClicked, this, &HealthPage::onPreviousEntry);

    m_shown = fromQDate(m_date->date());
    refreshPage();
}

QWidget* HealthPage::buildValues()
{
    auto* box = new QGroupBox(this);
    auto* grid = new QGridLayout(box);

    m_wake = new QTimeEdit(box);
    m_wake->setObjectName(QStringLiteral("wakeTime"));
    m_wake->setMaximumWidth(120);
    m_heightFirst = valueEdit(box, "heightFirst");
    m_heightInches = valueEdit(box, "heightInches");
    m_heightUnit = new QLabel(QStringLiteral("ft"), box);
    m_inchUnit = new QLabel(QStringLiteral("in"), box);
    m_values[Weight] = valueEdit(box, "weight");
    m_values[Systolic] = valueEdit(box, "systolic");
    m_values[Diastolic] = valueEdit(box, "diastolic");
    m_values[Sleep] = valueEdit(box, "sleep");
    m_values[Pulse] = valueEdit(box, "pulse");
    m_values[BodyFat] = valueEdit(box, "bodyFat");
    m_values[Bmi] = valueEdit(box, "bmi");
    m_values[Vo2Max] = valueEdit(box, "vo2Max");
    m_values[Temperature] = valueEdit(box, "temperature");
    m_mood = new QComboBox(box);
    m_mood->setObjectName(QStringLiteral("mood"));
    for (const char* mood : MoodNames)
        m_mood->addItem(QString::fromLatin1(mood));

    auto label = [box](const QString& text, QWidget* buddy) {
        auto* l = new QLabel(text, box);
        l->setBuddy(buddy);
        return l;
    };

    auto* height = new QHBoxLayout;
    height->addWidget(m_heightFirst);
    height->addWidget(m_heightUnit);
    height->addWidget(m_heightInches);
    height->addWidget(m_inchUnit);
    height->addStretch();
    auto* pressure = new QHBoxLayout;
    pressure->addWidget(m_values[Systolic]);
    pressure->addWidget(new QLabel(QStringLiteral("/"), box));
    pressure->addWidget(m_values[Diastolic]);
    pressure->addStretch();
    auto* bmi = new QHBoxLayout;
    bmi->addWidget(m_values[Bmi]);
    auto* calc = new QPushButton(QStringLiteral("Calc"), box);
    calc->setObjectName(QStringLiteral("calc"));
    bmi->addWidget(calc);
    bmi->addStretch();

    // Two columns of label and control.
    int row = 0;
    grid->addWidget(label(QStringLiteral("Woke up:"), m_wake), row, 0);
    grid->addWidget(m_wake, row, 1);
    grid->addWidget(label(QStringLiteral("Pulse:"), m_values[Pulse]), row, 2);
    grid->addWidget(m_values[Pulse], row++, 3);
    grid->addWidget(label(QStringLiteral("Height:"), m_heightFirst), row, 0);
    grid->addLayout(height, row, 1);
    grid->addWidget(label(QStringLiteral("Blood Pres."), m_values[Systolic]), row, 2);
    grid->addLayout(pressure, row++, 3);
    grid->addWidget(label(QStringLiteral("Weight:"), m_values[Weight]), row, 0);
    grid->addWidget(m_values[Weight], row, 1);
    grid->addWidget(label(QStringLiteral("VO2 Max:"), m_values[Vo2Max]), row, 2);
    grid->addWidget(m_values[Vo2Max], row++, 3);
    grid->addWidget(label(QStringLiteral("Body Fat %:"), m_values[BodyFat]), row, 0);
    grid->addWidget(m_values[BodyFat], row, 1);
    grid->addWidget(label(QStringLiteral("Temperature:"), m_values[Temperature]), row, 2);
    grid->addWidget(m_values[Temperature], row++, 3);
    grid->addWidget(label(QStringLiteral("BMI:"), m_values[Bmi]), row, 0);
    grid->addLayout(bmi, row, 1);
    grid->addWidget(label(QStringLiteral("Mood:"), m_mood), row, 2);
    grid->addWidget(m_mood, row++, 3);
    grid->addWidget(label(QStringLiteral("Sleep (hrs):"), m_values[Sleep]), row, 0);
    grid->addWidget(m_values[Sleep], row++, 1);
    grid->setColumnStretch(4, 1);

    auto* buttons = new QHBoxLayout;
    m_previousValues = new QPushButton(QStringLiteral(" << &Previous Values"), box);
    m_previousValues->setObjectName(QStringLiteral("previousValues"));
    auto* measurements = new QPushButton(QStringLiteral("&Measurements..."), box);
    measurements->setObjectName(QStringLiteral("measurements"));
    auto* deleteEntry = new QPushButton(QStringLiteral("De&lete Entry"), box);
    deleteEntry->setObjectName(QStringLiteral("deleteEntry"));
    buttons->addWidget(m_previousValues);
    buttons->addWidget(measurements);
    buttons->addWidget(deleteEntry);
    buttons->addStretch();
    grid->addLayout(buttons, row, 0, 1, 5);

    connect(calc, &QPushButton::clicked, this, &HealthPage::onCalc);
    connect(m_previousValues, &QPushButton::clicked, this, &HealthPage::onPreviousValues);
    connect(measurements, &QPushButton::clicked, this, &HealthPage::onMeasurements);
    connect(deleteEntry, &QPushButton::clicked, this, &HealthPage::onDeleteEntry);
    return box;
}

QWidget* HealthPage::buildVariables()
{
    auto* box = new QGroupBox(QStringLiteral("Supplements/Medications/User Variables"), this);
    m_variables = new QTreeWidget(box);
    m_variables->setObjectName(QStringLiteral("variables"));
    m_variables->setRootIsDecorated(false);
    m_variables->setSelectionMode(QAbstractItemView::SingleSelection);
    m_variables->setHeaderLabels({QStringLiteral("Name"), QStringLiteral("Number"),
                                  QStringLiteral("String"), QStringLiteral("Time")});
    const int widths[] = {75, 60, 100, 60};
    for (int c = 0; c < 4; ++c) {
        m_variables->setColumnWidth(c, widths[c]);
        m_variables->headerItem()->setTextAlignment(c, Qt::AlignCenter);
    }
    m_variables->setMinimumHeight(90);

    m_add = new QPushButton(QStringLiteral("&Add"), box);
    m_remove = new QPushButton(QStringLiteral("&Remove"), box);
    auto* define = new QPushButton(QStringLiteral("&Define Variable..."), box);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addWidget(define);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(m_variables, 1);
    layout->addLayout(buttons);

    connect(m_add, &QPushButton::clicked, this, &HealthPage::onAddVariable);
    connect(m_remove, &QPushButton::clicked, this, &HealthPage::onRemoveVariable);
    connect(define, &QPushButton::clicked, this, &HealthPage::onDefineVariable);
    connect(m_variables, &QTreeWidget::itemSelectionChanged, this, &HealthPage::updateButtons);
    return box;
}

QString HealthPage::pageTitle() const
{
    return QStringLiteral("Health");
}

bool HealthPage::metric() const
{
    return context().store().journal.user.isMetric();
}

void HealthPage::refreshPage()
{
    // A refresh (a change of units among them) shows the day again without storing the page.
    applyUnits();
    load(fromQDate(m_date->date()), false);
}

void HealthPage::storePage()
{
    // The shell stores the page before saves, which may come while a value is half typed: a value
    // that is not a number is left out quietly here and refused when the user leaves the day.
    storeShown(false);
}

void HealthPage::applyUnits()
{
    const bool isMetric = metric();
    m_heightUnit->setText(isMetric ? QStringLiteral("cm") : QStringLiteral("ft"));
    m_heightInches->setVisible(!isMetric);
    m_inchUnit->setVisible(!isMetric);
    m_date->setDisplayFormat(dateFormat(isMetric));
    m_wake->setDisplayFormat(timeFormat(isMetric));
}

bool HealthPage::readControls(bool say)
{
    std::array<float, ValueCount> values{};
    for (int v = 0; v < ValueCount; ++v) {
        const auto number = parseNumber(m_values[v]->text().toStdString());
        if (!number) {
            if (say)
                refuseNotANumber(m_values[v]);
            return false;
        }
        values[v] = static_cast<float>(*number);
    }
    HeightFields height;
    for (QLineEdit* edit : {m_heightFirst, m_heightInches}) {
        // The inch edit is hidden and counts as 0 in metric mode.
        const bool hidden = edit == m_heightInches && metric();
        const auto number = parseNumber(hidden ? std::string() : edit->text().toStdString());
        if (!number) {
            if (say)
                refuseNotANumber(edit);
            return false;
        }
        (edit == m_heightFirst ? height.first : height.second) = static_cast<float>(*number);
    }

    const bool isMetric = metric();
    m_entry.height = storedHeight(height, isMetric);
    m_entry.weight = values[Weight];
    m_entry.systolic = values[Systolic];
    m_entry.diastolic = values[Diastolic];
    m_entry.sleep = values[Sleep];
    m_entry.pulse = values[Pulse];
    m_entry.bodyFat = values[BodyFat];
    m_entry.bmi = values[Bmi];
    m_entry.vo2Max = values[Vo2Max];
    m_entry.temperature = values[Temperature];
    m_entry.mood = static_cast<std::int8_t>(m_mood->currentIndex());
    // A wake time of midnight is no wake time, so an untouched picker keeps an entry empty.
    const int seconds = m_wake->time().msecsSinceStartOfDay() / 1000;
    m_entry.wakeTime = seconds == 0 ? 0 : m_shown.toTime() + seconds;
    return true;
}

bool HealthPage::storeShown(bool say)
{
    if (!readControls(say))
        return false;
    if (model::storeHealthEntry(context().store().journal, m_shown, m_entry))
        context().notifyChanged(ui::Change::Journal);
    return true;
}

void HealthPage::load(const model::CalendarDate& date, bool store)
{
    if (store && !m_pendingDelete.pending() && !storeShown()) {
        // Refused: the page keeps the day it shows and its values.
        m_loading = true;
        m_date->setDate(toQDate(m_shown));
        m_loading = false;
        return;
    }
    const PendingDelete::LoadSteps steps = m_pendingDelete.beginLoad();
    model::UserJournal& journal = context().store().journal;
    if (steps.clearDayEntry && model::clearHealthEntry(journal, m_shown))
        context().notifyChanged(ui::Change::Journal);
    m_shown = date;
    m_entry = entryToShow(journal, m_shown, steps);
    m_loading = true;
    m_date->setDate(toQDate(m_shown));
    m_loading = false;
    showEntry();
    fillPreviousEntries();
}

void HealthPage::showEntry()
{
    const bool isMetric = metric();
    const HeightFields height = heightFields(m_entry.height, isMetric);
    m_heightFirst->setText(QString::fromUtf8(valueEditText(height.first)));
    m_heightInches->setText(QString::fromUtf8(valueEditText(height.second)));
    const float values[ValueCount] = {m_entry.weight, m_entry.systolic, m_entry.diastolic,
                                      m_entry.sleep,  m_entry.pulse,    m_entry.bodyFat,
                                      m_entry.bmi,    m_entry.vo2Max,   m_entry.temperature};
    for (int v = 0; v < ValueCount; ++v)
        m_values[v]->setText(QString::fromUtf8(valueEditText(values[v])));
    if (m_entry.bmi != 0.0f)
        m_values[Bmi]->setText(QString::fromUtf8(bmiText(m_entry.bmi)));
    m_mood->setCurrentIndex(m_entry.mood >= 0 && m_entry.mood < MoodCount ? m_entry.mood
                                                                          : DefaultMood);
    m_wake->setTime(m_entry.wakeTime == 0 ? QTime(0, 0)
                                          : QDateTime::fromSecsSinceEpoch(m_entry.wakeTime).time());
    rebuildVariables();
}

void HealthPage::fillPreviousEntries()
{
    const model::UserJournal& journal = context().store().journal;
    const auto days = healthEntryDays(journal);
    m_previous->clear();
    for (std::size_t day : days) {
        auto* item = new QListWidgetItem(
            QString::fromUtf8(listDateText(journal.user, journal.days[day].date)), m_previous);
        item->setData(DayRole, static_cast<qulonglong>(day));
    }
    if (const auto line = lineOfDate(journal, days, m_shown))
        m_previous->setCurrentRow(static_cast<int>(*line));
    updateButtons();
}

void HealthPage::rebuildVariables()
{
    const model::Store& store = context().store();
    m_variables->clear();
    for (const VariableRow& row :
         variableRows(store.shared.variables, m_entry, store.journal.user.isMetric())) {
        auto* item = new QTreeWidgetItem(m_variables);
        const std::string* texts[] = {&row.name, &row.number, &row.text, &row.time};
        for (int c = 0; c < 4; ++c) {
            item->setText(c, QString::fromUtf8(*texts[c]));
            item->setTextAlignment(c, Qt::AlignCenter);
        }
        item->setData(0, UseRole, row.itemData);
    }
    updateButtons();
}

void HealthPage::updateButtons()
{
    const model::Store& store = context().store();
    m_previousValues->setEnabled(previousValuesEnabled(store.journal));
    m_add->setEnabled(!store.shared.variables.empty());
    m_remove->setEnabled(!m_variables->selectedItems().isEmpty());
}

void HealthPage::onDateChanged()
{
    if (!m_loading)
        load(fromQDate(m_date->date()), true);
}

void HealthPage::onPreviousEntry()
{
    QListWidgetItem* item = m_previous->currentItem();
    if (!item)
        return;
    const model::UserJournal& journal = context().store().journal;
    const auto day = static_cast<std::size_t>(item->data(DayRole).toULongLong());
    if (day >= journal.days.size())
        return;
    const auto date = model::CalendarDate::fromTime(journal.days[day].date);
    if (date != m_shown)
        load(date, true);
}

void HealthPage::onCalc()
{
    if (!readControls())
        return;
    // readControls() has checked that the height edits hold numbers.
    HeightFields height;
    height.first = static_cast<float>(parseNumber(m_heightFirst->text().toStdString()).value_or(0));
    if (!metric())
        height.second =
            static_cast<float>(parseNumber(m_heightInches->text().toStdString()).value_or(0));
    const auto bmi = bodyMassIndex(m_entry.weight, height, metric());
    if (!bmi)
        return;
    m_entry.bmi = static_cast<float>(*bmi);
    m_values[Bmi]->setText(QString::fromUtf8(bmiText(*bmi)));
}

void HealthPage::onPreviousValues()
{
    const model::UserJournal& journal = context().store().journal;
    const auto day = previousValuesDay(journal, m_shown);
    if (!day)
        return;
    m_entry = journal.days[*day].health;
    showEntry();
}

void HealthPage::onMeasurements()
{
    MeasurementsDialog dialog(context().store().journal.user, m_entry, this);
    if (dialog.exec() == QDialog::Accepted)
        dialog.applyTo(m_entry);
}

void HealthPage::onDeleteEntry()
{
    if (!ui::confirmDelete(this, ui::MsgDeleteHealthEntry))
        return;
    m_pendingDelete.mark();
    load(m_shown, true);
}

void HealthPage::onAddVariable()
{
    const model::Store& store = context().store();
    QMenu menu(this);
    for (const model::UserVariable& v : store.shared.variables)
        menu.addAction(ui::toQt(v.name))->setData(v.id);
    // From the keyboard the menu opens at the button, from the mouse at the cursor.
    const QPoint at =
        m_add->underMouse() ? QCursor::pos() : m_add->mapToGlobal(QPoint(0, m_add->height()));
    QAction* chosen = menu.exec(at);
    if (!chosen)
        return;
    const std::int32_t id = chosen->data().toInt();
    const model::UserVariable* definition = nullptr;
    for (const model::UserVariable& v : store.shared.variables)
        if (v.id == id)
            definition = &v;
    if (!definition)
        return;
    if (!asksEachTime(*definition)) {
        m_entry.variables.push_back(lockedUse(*definition));
    } else {
        UseVariableDialog dialog(*definition, store.journal.user.isMetric(), this);
        if (dialog.exec() == QDialog::Accepted)
            m_entry.variables.push_back(dialog.use());
    }
    rebuildVariables();
}

void HealthPage::onRemoveVariable()
{
    const auto items = m_variables->selectedItems();
    if (items.isEmpty())
        return;
    const auto position = usePosition(items.front()->data(0, UseRole).toInt(), m_entry);
    if (!position || !ui::confirmDelete(this, ui::MsgRemoveVariable))
        return;
    m_entry.variables.erase(m_entry.variables.begin() + static_cast<std::ptrdiff_t>(*position));
    rebuildVariables();
}

void HealthPage::onDefineVariable()
{
    // The dialog may delete definitions and with them their uses in the journal, so the page is
    // stored first and shows the day again afterwards.
    if (!storeShown())
        return;
    DefineVariableDialog dialog(context(), this);
    dialog.exec();
    load(m_shown, false);
}

} // namespace velmora::fitness
