#include "analysis/ExerciseFieldDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include "ui/QtText.h"
#include "model/Store.h"

namespace velmora::analysis {

namespace {

const model::ExerciseField* fieldById(const model::Store& store, std::int32_t id)
{
    for (const auto& f : store.shared.fields)
        if (f.id == id)
            return &f;
    return nullptr;
}

} // namespace

ExerciseFieldDialog::ExerciseFieldDialog(const model::Store& store, QWidget* parent)
    : QDialog(parent), m_store(store)
{
    setWindowTitle(QStringLiteral("Choose Exercise Field"));
    m_exercises = new QComboBox(this);
    m_exercises->setObjectName(QStringLiteral("exercise"));
    for (std::size_t i = 0; i < store.shared.exercises.size(); ++i)
        m_exercises->addItem(ui::toQt(store.shared.exercises[i].name), static_cast<int>(i));
    m_fields = new QComboBox(this);
    m_fields->setObjectName(QStringLiteral("field"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_exercises, &QComboBox::currentIndexChanged, this, [this, buttons] {
        fillFields();
        buttons->button(QDialogButtonBox::Ok)->setEnabled(m_fields->count() > 0);
    });
    fillFields();
    buttons->button(QDialogButtonBox::Ok)->setEnabled(m_fields->count() > 0);

    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("Exercise:"), m_exercises);
    form->addRow(QStringLiteral("Field:"), m_fields);
    form->addRow(buttons);
    setMinimumWidth(320);
}

void ExerciseFieldDialog::fillFields()
{
    m_fields->clear();
    const model::Exercise* e = exercise();
    if (e == nullptr)
        return;
    for (std::int32_t id : e->fields)
        if (const model::ExerciseField* f = fieldById(m_store, id))
            m_fields->addItem(ui::toQt(f->name), id);
}

const model::Exercise* ExerciseFieldDialog::exercise() const
{
    const int i = m_exercises->currentData().toInt();
    if (m_exercises->currentIndex() < 0 || i < 0 ||
        static_cast<std::size_t>(i) >= m_store.shared.exercises.size())
        return nullptr;
    return &m_store.shared.exercises[static_cast<std::size_t>(i)];
}

const model::ExerciseField* ExerciseFieldDialog::field() const
{
    if (m_fields->currentIndex() < 0)
        return nullptr;
    return fieldById(m_store, m_fields->currentData().toInt());
}

} // namespace velmora::analysis
