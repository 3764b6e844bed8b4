#include "fitness/DefineExercisesDialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "fitness/DefinitionNames.h"
#include "fitness/FitnessText.h"
#include "model/FitnessDefinitionEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

DefineExercisesDialog::DefineExercisesDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Define Exercises"));
    m_names = new QComboBox(this);
    m_names->setObjectName(QStringLiteral("exerciseNames"));
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setMinimumWidth(200);
    auto* newButton = new QPushButton(QStringLiteral("&New"), this);
    auto* deleteButton = new QPushButton(QStringLiteral("&Delete"), this);
    auto* done = new QPushButton(QStringLiteral("D&one"), this);
    done->setDefault(true);
    m_fields = new QListWidget(this);
    m_fields->setObjectName(QStringLiteral("exerciseFields"));
    for (const model::ExerciseField& f : context.store().shared.fields) {
        auto* item = new QListWidgetItem(ui::toQt(f.name), m_fields);
        item->setData(Qt::UserRole, f.id);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }

    auto* top = new QHBoxLayout;
    top->addWidget(m_names, 1);
    top->addWidget(newButton);
    top->addWidget(deleteButton);
    top->addWidget(done);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    auto* fieldsLabel = new QLabel(QStringLiteral("&Fields recorded for each set:"), this);
    fieldsLabel->setBuddy(m_fields);
    layout->addWidget(fieldsLabel);
    layout->addWidget(m_fields, 1);

    connect(m_names, &QComboBox::activated, this, &DefineExercisesDialog::onChoice);
    connect(m_names->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { m_typed = text; });
    connect(newButton, &QPushButton::clicked, this, &DefineExercisesDialog::onNew);
    connect(deleteButton, &QPushButton::clicked, this, &DefineExercisesDialog::onDelete);
    connect(done, &QPushButton::clicked, this, [this] {
        storeShown();
        accept();
    });

    fillNames(-1);
    showExercise(-1);
}

void DefineExercisesDialog::fillNames(int select)
{
    fillDefinitionNames(m_names, m_context.store().shared.exercises, select);
}

void DefineExercisesDialog::showExercise(int id)
{
    const auto* exercise = definitionWithId(m_context.store().shared.exercises, id);
    m_typed = exercise ? ui::toQt(exercise->name) : QString();
    for (int r = 0; r < m_fields->count(); ++r) {
        QListWidgetItem* item = m_fields->item(r);
        const int field = item->data(Qt::UserRole).toInt();
        const bool checked = exercise && std::find(exercise->fields.begin(), exercise->fields.end(),
                                                   field) != exercise->fields.end();
        item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    }
}

void DefineExercisesDialog::storeShown()
{
    std::vector<model::FieldRow> rows;
    for (int r = 0; r < m_fields->count(); ++r) {
        const QListWidgetItem* item = m_fields->item(r);
        rows.push_back({item->data(Qt::UserRole).toInt(), item->checkState() == Qt::Checked});
    }
    const auto id = model::storeExercise(m_context.store().shared, ui::fromQt(m_typed), rows);
    if (!id)
        return;
    m_context.notifyChanged(ui::Change::Definitions);
    fillNames(*id);
}

void DefineExercisesDialog::onChoice(int index)
{
    const int chosen = m_names->itemData(index).toInt();
    // The list shows the chosen name already; what is stored is the name that was shown.
    storeShown();
    m_names->setCurrentIndex(m_names->findData(chosen));
    showExercise(chosen);
}

void DefineExercisesDialog::onNew()
{
    storeShown();
    m_names->setCurrentIndex(-1);
    m_names->setEditText(QString());
    showExercise(-1);
    m_names->setFocus();
}

void DefineExercisesDialog::onDelete()
{
    const int id = m_names->currentData().toInt();
    if (m_names->currentIndex() < 0 || !ui::confirmDelete(this, ui::MsgDeleteExercise))
        return;
    if (model::deleteExercise(m_context.store(), id))
        m_context.notifyChanged(ui::Change::Definitions);
    fillNames(-1);
    showExercise(-1);
}

void DefineExercisesDialog::reject()
{
    storeShown();
    QDialog::reject();
}

} // namespace velmora::fitness
