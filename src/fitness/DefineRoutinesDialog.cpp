#include "fitness/DefineRoutinesDialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "fitness/DefineActivityDialog.h"
#include "fitness/DefinitionNames.h"
#include "fitness/FitnessText.h"
#include "fitness/MuscleChartDialog.h"
#include "fitness/logic/HealthValues.h"
#include "model/FitnessDefinitionEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

namespace {
constexpr int IdRole = Qt::UserRole;
}

DefineRoutinesDialog::DefineRoutinesDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Define Routines"));
    m_names = new QComboBox(this);
    m_names->setObjectName(QStringLiteral("routineNames"));
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setMinimumWidth(180);
    auto* newButton = new QPushButton(QStringLiteral("&New"), this);
    auto* deleteButton = new QPushButton(QStringLiteral("&Delete"), this);
    m_calories = new QLineEdit(QStringLiteral("0"), this);
    m_calories->setObjectName(QStringLiteral("routineCalories"));
    m_calories->setValidator(new QIntValidator(m_calories));
    m_calories->setMaximumWidth(80);
    auto* estimate = new QPushButton(QStringLiteral("E&stimate..."), this);

    m_defined = new QListWidget(this);
    m_defined->setObjectName(QStringLiteral("definedExercises"));
    m_defined->setSortingEnabled(true);
    for (const model::Exercise& e : context.store().shared.exercises) {
        auto* item = new QListWidgetItem(ui::toQt(e.name), m_defined);
        item->setData(IdRole, e.id);
    }
    m_contents = new QListWidget(this);
    m_contents->setObjectName(QStringLiteral("routineContents"));
    m_add = new QPushButton(QStringLiteral("&Add >>"), this);
    m_remove = new QPushButton(QStringLiteral("<< &Remove"), this);
    m_up = new QPushButton(QStringLiteral("&Up"), this);
    m_down = new QPushButton(QStringLiteral("Do&wn"), this);
    auto* chart = new QPushButton(QStringLiteral("Muscle &Chart..."), this);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setDefault(true);

    auto* routine = new QGroupBox(QStringLiteral("Routine"), this);
    auto* routineRow = new QHBoxLayout(routine);
    routineRow->addWidget(m_names, 1);
    routineRow->addWidget(newButton);
    routineRow->addWidget(deleteButton);
    auto* caloriesLabel = new QLabel(QStringLiteral("Ca&lories:"), routine);
    caloriesLabel->setBuddy(m_calories);
    routineRow->addWidget(caloriesLabel);
    routineRow->addWidget(m_calories);
    routineRow->addWidget(estimate);

    auto* exercises = new QGroupBox(QStringLiteral("Exercise Routine"), this);
    auto* grid = new QGridLayout(exercises);
    auto* definedLabel = new QLabel(QStringLiteral("Defined &Exercises:"), exercises);
    definedLabel->setBuddy(m_defined);
    auto* contentsLabel = new QLabel(QStringLiteral("Routine Con&tents:"), exercises);
    contentsLabel->setBuddy(m_contents);
    auto* middle = new QVBoxLayout;
    middle->addStretch();
    for (QPushButton* b : {m_add, m_remove, m_up, m_down, chart})
        middle->addWidget(b);
    middle->addStretch();
    grid->addWidget(definedLabel, 0, 0);
    grid->addWidget(contentsLabel, 0, 2);
    grid->addWidget(m_defined, 1, 0);
    grid->addLayout(middle, 1, 1);
    grid->addWidget(m_contents, 1, 2);

    auto* bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(routine);
    layout->addWidget(exercises, 1);
    layout->addLayout(bottom);

    connect(m_names, &QComboBox::activated, this, &DefineRoutinesDialog::onChoice);
    connect(m_names->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { m_typed = text; });
    connect(newButton, &QPushButton::clicked, this, &DefineRoutinesDialog::onNew);
    connect(deleteButton, &QPushButton::clicked, this, &DefineRoutinesDialog::onDelete);
    connect(estimate, &QPushButton::clicked, this, &DefineRoutinesDialog::onEstimate);
    connect(m_add, &QPushButton::clicked, this, &DefineRoutinesDialog::onAdd);
    connect(m_defined, &QListWidget::itemActivated, this, &DefineRoutinesDialog::onAdd);
    connect(m_remove, &QPushButton::clicked, this, &DefineRoutinesDialog::onRemove);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(+1); });
    connect(chart, &QPushButton::clicked, this, [this] {
        MuscleChartDialog dialog(this);
        dialog.exec();
    });
    connect(ok, &QPushButton::clicked, this, &DefineRoutinesDialog::accept);
    connect(m_defined, &QListWidget::itemSelectionChanged, this,
            &DefineRoutinesDialog::updateButtons);
    connect(m_contents, &QListWidget::itemSelectionChanged, this,
            &DefineRoutinesDialog::updateButtons);

    fillNames(-1);
    if (m_names->count() > 0) {
        m_names->setCurrentIndex(0);
        showRoutine(m_names->itemData(0).toInt());
    } else {
        showRoutine(-1);
    }
}

void DefineRoutinesDialog::fillNames(int select)
{
    fillDefinitionNames(m_names, m_context.store().shared.routines, select);
}

void DefineRoutinesDialog::showRoutine(int id)
{
    const model::SharedData& shared = m_context.store().shared;
    const auto* routine = definitionWithId(shared.routines, id);
    m_typed = routine ? ui::toQt(routine->name) : QString();
    m_calories->setText(QString::number(routine ? routine->calories : 0));
    m_contents->clear();
    if (routine)
        for (std::int32_t e : routine->exercises)
            if (const auto* exercise = definitionWithId(shared.exercises, e)) {
                auto* item = new QListWidgetItem(ui::toQt(exercise->name), m_contents);
                item->setData(IdRole, e);
            }
    updateButtons();
}

bool DefineRoutinesDialog::storeShown()
{
    const auto calories = parseWholeNumber(m_calories->text().toStdString());
    if (!calories) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter an integer."));
        m_calories->setFocus();
        return false;
    }
    std::vector<std::int32_t> exercises;
    for (int r = 0; r < m_contents->count(); ++r)
        exercises.push_back(m_contents->item(r)->data(IdRole).toInt());
    const auto id =
        model::storeRoutine(m_context.store().shared, ui::fromQt(m_typed), exercises, *calories);
    if (id) {
        m_context.notifyChanged(ui::Change::Definitions);
        fillNames(*id);
    }
    return true;
}

void DefineRoutinesDialog::updateButtons()
{
    const int row = m_contents->currentRow();
    const bool selected = row >= 0 && !m_contents->selectedItems().isEmpty();
    m_add->setEnabled(!m_defined->selectedItems().isEmpty());
    m_remove->setEnabled(selected);
    m_up->setEnabled(selected && row > 0);
    m_down->setEnabled(selected && row + 1 < m_contents->count());
}

void DefineRoutinesDialog::onChoice(int index)
{
    const int chosen = m_names->itemData(index).toInt();
    if (!storeShown())
        return;
    m_names->setCurrentIndex(m_names->findData(chosen));
    showRoutine(chosen);
}

void DefineRoutinesDialog::onNew()
{
    if (!storeShown())
        return;
    m_names->setCurrentIndex(-1);
    m_names->setEditText(QString());
    showRoutine(-1);
    m_names->setFocus();
}

void DefineRoutinesDialog::onDelete()
{
    const auto* routine =
        definitionWithId(m_context.store().shared.routines, m_names->currentData().toInt());
    if (m_names->currentIndex() < 0 || !routine || !ui::confirmDelete(this, ui::MsgDeleteRoutine))
        return;
    if (model::deleteRoutine(m_context.store(), routine->id))
        m_context.notifyChanged(ui::Change::Definitions);
    fillNames(-1);
    showRoutine(-1);
}

void DefineRoutinesDialog::onEstimate()
{
    const int calories = parseWholeNumber(m_calories->text().toStdString()).value_or(0);
    DefineActivityDialog dialog(m_context.store().journal.user.weight, calories, this);
    if (dialog.exec() == QDialog::Accepted)
        m_calories->setText(QString::number(dialog.calories()));
}

void DefineRoutinesDialog::onAdd()
{
    for (QListWidgetItem* item : m_defined->selectedItems()) {
        auto* added = new QListWidgetItem(item->text(), m_contents);
        added->setData(IdRole, item->data(IdRole));
    }
    updateButtons();
}

void DefineRoutinesDialog::onRemove()
{
    delete m_contents->takeItem(m_contents->currentRow());
    updateButtons();
}

void DefineRoutinesDialog::move(int direction)
{
    const int row = m_contents->currentRow();
    const int to = row + direction;
    if (row < 0 || to < 0 || to >= m_contents->count())
        return;
    QListWidgetItem* item = m_contents->takeItem(row);
    m_contents->insertItem(to, item);
    m_contents->setCurrentRow(to);
    updateButtons();
}

void DefineRoutinesDialog::accept()
{
    if (storeShown())
        QDialog::accept();
}

void DefineRoutinesDialog::reject()
{
    accept();
}

} // namespace velmora::fitness
