#include "fitness/DefineVariableDialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateTime>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "fitness/DefinitionNames.h"
#include "fitness/FitnessText.h"
#include "fitness/logic/HealthValues.h"
#include "model/FitnessDefinitionEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

namespace {

// A "Lock Value"/"Edit every time" pair of choices in a group of its own.
QGroupBox* choiceGroup(QWidget* parent, const QString& title, QWidget* value, QRadioButton* lock,
                       QRadioButton* ask)
{
    auto* box = new QGroupBox(title, parent);
    auto* group = new QButtonGroup(box);
    group->addButton(lock);
    group->addButton(ask);
    auto* layout = new QHBoxLayout(box);
    if (value)
        layout->addWidget(value, 1);
    layout->addWidget(lock);
    layout->addWidget(ask);
    return box;
}

} // namespace

DefineVariableDialog::DefineVariableDialog(ui::AppContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setWindowTitle(QStringLiteral("Add/Define Variable"));
    m_names = new QComboBox(this);
    m_names->setObjectName(QStringLiteral("variableNames"));
    m_names->setEditable(true);
    m_names->setInsertPolicy(QComboBox::NoInsert);
    m_names->setMinimumWidth(180);
    auto* newButton = new QPushButton(QStringLiteral("&New"), this);
    m_delete = new QPushButton(QStringLiteral("&Delete"), this);
    auto* done = new QPushButton(QStringLiteral("D&one"), this);
    done->setDefault(true);

    m_number = new QLineEdit(this);
    m_number->setObjectName(QStringLiteral("variableNumber"));
    m_lockNumber = new QRadioButton(QStringLiteral("&Lock Value"), this);
    m_askNumber = new QRadioButton(QStringLiteral("&Edit every time"), this);
    m_askNumber->setObjectName(QStringLiteral("askNumber"));
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("variableText"));
    m_lockText = new QRadioButton(QStringLiteral("Loc&k Value"), this);
    m_askText = new QRadioButton(QStringLiteral("Edit e&very time"), this);
    m_askText->setObjectName(QStringLiteral("askText"));
    m_ignoreTime = new QRadioButton(QStringLiteral("&Ignore"), this);
    m_askTime = new QRadioButton(QStringLiteral("Edit every &time"), this);
    m_askTime->setObjectName(QStringLiteral("askTime"));

    auto* top = new QHBoxLayout;
    top->addWidget(m_names, 1);
    top->addWidget(newButton);
    top->addWidget(m_delete);
    top->addWidget(done);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(choiceGroup(this, QStringLiteral("Numeric Value (Graphable)"), m_number,
                                  m_lockNumber, m_askNumber));
    layout->addWidget(
        choiceGroup(this, QStringLiteral("String Value"), m_text, m_lockText, m_askText));
    layout->addWidget(choiceGroup(this, QStringLiteral("Time"), nullptr, m_ignoreTime, m_askTime));

    connect(m_names, &QComboBox::activated, this, &DefineVariableDialog::onChoice);
    connect(m_names->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { m_typed = text; });
    connect(newButton, &QPushButton::clicked, this, &DefineVariableDialog::onNew);
    connect(m_delete, &QPushButton::clicked, this, &DefineVariableDialog::onDelete);
    connect(done, &QPushButton::clicked, this, &DefineVariableDialog::onDone);
    connect(m_askNumber, &QRadioButton::toggled, this, [this](bool on) {
        if (m_showing || !readForm())
            return;
        setAskNumber(m_form, on);
        m_number->setText(QString::fromUtf8(valueEditText(m_form.number)));
        updateEnabling();
    });
    connect(m_askText, &QRadioButton::toggled, this, [this](bool on) {
        if (m_showing || !readForm())
            return;
        setAskText(m_form, on);
        m_text->setText(ui::toQt(m_form.text));
        updateEnabling();
    });
    connect(m_askTime, &QRadioButton::toggled, this, [this] {
        if (!m_showing && readForm())
            updateEnabling();
    });

    fillNames(-1);
    // The first name is shown on opening.
    if (m_names->count() > 0) {
        m_names->setCurrentIndex(0);
        showDefinition(m_names->itemData(0).toInt());
    } else {
        showDefinition(-1);
    }
}

void DefineVariableDialog::fillNames(std::int32_t select)
{
    fillDefinitionNames(m_names, m_context.store().shared.variables, select);
}

void DefineVariableDialog::showDefinition(std::int32_t id)
{
    const auto* definition = definitionWithId(m_context.store().shared.variables, id);
    m_shownId = definition ? id : -1;
    m_typed = definition ? ui::toQt(definition->name) : QString();
    m_form = variableForm(definition, QDateTime::currentSecsSinceEpoch());
    m_showing = true;
    m_number->setText(QString::fromUtf8(valueEditText(m_form.number)));
    m_text->setText(ui::toQt(m_form.text));
    (m_form.ask.number ? m_askNumber : m_lockNumber)->setChecked(true);
    (m_form.ask.text ? m_askText : m_lockText)->setChecked(true);
    (m_form.ask.time ? m_askTime : m_ignoreTime)->setChecked(true);
    m_showing = false;
    updateEnabling();
}

bool DefineVariableDialog::readForm()
{
    const auto number = parseNumber(m_number->text().toStdString());
    if (!number) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter a number."));
        m_number->setFocus();
        return false;
    }
    m_form.number = static_cast<float>(*number);
    m_form.text = ui::fromQt(m_text->text());
    m_form.ask = {m_askNumber->isChecked(), m_askText->isChecked(), m_askTime->isChecked()};
    return true;
}

bool DefineVariableDialog::storeShown()
{
    if (!readForm())
        return false;
    model::Store& store = m_context.store();
    // A new variable takes the typed name; an existing one is stored under its own name.
    std::string name;
    if (m_enteringNew)
        name = ui::fromQt(m_typed);
    else if (const auto* shown = definitionWithId(store.shared.variables, m_shownId))
        name = shown->name;
    const auto id = model::storeVariable(store.shared, name, m_form);
    if (!id)
        return true; // an empty name stores nothing
    m_context.notifyChanged(ui::Change::Definitions);
    m_shownId = *id;
    m_enteringNew = false;
    fillNames(*id);
    return true;
}

void DefineVariableDialog::updateEnabling()
{
    const VariableFormEnabling enabling = variableFormEnabling(m_form, m_enteringNew);
    m_names->lineEdit()->setReadOnly(!enabling.name);
    m_number->setEnabled(enabling.number);
    m_text->setEnabled(enabling.text);
    m_delete->setEnabled(m_shownId >= 0);
}

void DefineVariableDialog::onChoice(int index)
{
    const std::int32_t chosen = m_names->itemData(index).toInt();
    if (!storeShown())
        return;
    m_enteringNew = false;
    m_names->setCurrentIndex(m_names->findData(chosen));
    showDefinition(chosen);
}

void DefineVariableDialog::onNew()
{
    if (!storeShown())
        return;
    m_enteringNew = true;
    m_names->setCurrentIndex(-1);
    m_names->setEditText(QString());
    showDefinition(-1);
    m_names->setFocus();
}

void DefineVariableDialog::onDelete()
{
    if (m_shownId < 0 || !ui::confirmDelete(this, ui::MsgRemoveVariable))
        return;
    if (model::deleteVariable(m_context.store(), m_shownId))
        m_context.notifyChanged(ui::Change::Definitions);
    fillNames(-1);
    m_enteringNew = false;
    if (m_names->count() > 0) {
        m_names->setCurrentIndex(0);
        showDefinition(m_names->itemData(0).toInt());
    } else {
        showDefinition(-1);
    }
}

void DefineVariableDialog::onDone()
{
    if (storeShown())
        accept();
}

void DefineVariableDialog::reject()
{
    onDone();
}

} // namespace velmora::fitness
