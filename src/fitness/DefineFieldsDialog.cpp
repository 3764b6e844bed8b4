#include "fitness/DefineFieldsDialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "fitness/DefinitionNames.h"
#include "fitness/FitnessText.h"
#include "model/FitnessDefinitionEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

DefineFieldsDialog::DefineFieldsDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Define Fields"));
    m_names = new QComboBox(this);
    m_names->setObjectName(QStringLiteral("fieldNames"));
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setMinimumWidth(180);
    m_type = new QComboBox(this);
    m_type->setObjectName(QStringLiteral("fieldType"));
    for (int kind = 0; kind < model::FieldKindCount; ++kind)
        m_type->addItem(QString::fromLatin1(model::FieldKindNames[static_cast<std::size_t>(kind)]),
                        kind);
    auto* newButton = new QPushButton(QStringLiteral("&New"), this);
    m_delete = new QPushButton(QStringLiteral("&Delete"), this);
    auto* done = new QPushButton(QStringLiteral("D&one"), this);
    done->setDefault(true);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("N&ame:"), m_names);
    form->addRow(QStringLiteral("&Type:"), m_type);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(newButton);
    buttons->addWidget(m_delete);
    buttons->addWidget(done);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);

    connect(m_names, &QComboBox::activated, this, &DefineFieldsDialog::onChoice);
    connect(m_names->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { m_typed = text; });
    connect(newButton, &QPushButton::clicked, this, &DefineFieldsDialog::onNew);
    connect(m_delete, &QPushButton::clicked, this, &DefineFieldsDialog::onDelete);
    connect(done, &QPushButton::clicked, this, [this] {
        storeShown();
        accept();
    });

    fillNames(-1);
    showField(-1);
}

void DefineFieldsDialog::fillNames(int select)
{
    fillDefinitionNames(m_names, m_context.store().shared.fields, select);
}

void DefineFieldsDialog::showField(int id)
{
    const auto* field = definitionWithId(m_context.store().shared.fields, id);
    m_shownId = field ? id : -1;
    m_typed = field ? ui::toQt(field->name) : QString();
    m_type->setCurrentIndex(field ? m_type->findData(field->kind) : 0);
    updateEnabling();
}

void DefineFieldsDialog::storeShown()
{
    model::SharedData& shared = m_context.store().shared;
    std::string name;
    if (m_enteringNew)
        name = ui::fromQt(m_typed);
    else if (const auto* field = definitionWithId(shared.fields, m_shownId))
        name = field->name;
    else
        return;
    const auto id = model::storeField(shared, name, m_type->currentData().toInt());
    if (!id)
        return;
    m_context.notifyChanged(ui::Change::Definitions);
    m_enteringNew = false;
    fillNames(*id);
    showField(*id);
}

void DefineFieldsDialog::updateEnabling()
{
    const bool chosen = m_shownId >= 0;
    m_names->lineEdit()->setReadOnly(!m_enteringNew);
    m_type->setEnabled(chosen || m_enteringNew);
    m_delete->setEnabled(chosen || m_enteringNew);
}

void DefineFieldsDialog::onChoice(int index)
{
    const int chosen = m_names->itemData(index).toInt();
    storeShown();
    m_enteringNew = false;
    m_names->setCurrentIndex(m_names->findData(chosen));
    showField(chosen);
}

void DefineFieldsDialog::onNew()
{
    storeShown();
    m_enteringNew = true;
    m_names->setCurrentIndex(-1);
    m_names->setEditText(QString());
    showField(-1);
    m_names->setFocus();
}

void DefineFieldsDialog::onDelete()
{
    if (!ui::confirmDelete(this, ui::MsgDeleteField))
        return;
    // The field of exactly the shown name goes, with every reference to it.
    if (model::deleteField(m_context.store(), ui::fromQt(m_typed)))
        m_context.notifyChanged(ui::Change::Definitions);
    m_enteringNew = false;
    fillNames(-1);
    showField(-1);
}

void DefineFieldsDialog::reject()
{
    storeShown();
    QDialog::reject();
}

} // namespace velmora::fitness
