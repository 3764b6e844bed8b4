#include "fitness/UseVariableDialog.h"

#include <QDateTime>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>

#include "fitness/FitnessText.h"
#include "fitness/logic/HealthValues.h"
#include "fitness/logic/UserVariables.h"

namespace velmora::fitness {

UseVariableDialog::UseVariableDialog(const model::UserVariable& definition, bool metric,
                                     QWidget* parent)
    : QDialog(parent), m_definition(definition)
{
    setWindowTitle(QStringLiteral("Use Variable"));
    const model::AskedParts asked = askedParts(definition);
    auto* heading = new QLabel(ui::toQt(definition.name), this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);

    m_number = new QLineEdit(QString::fromUtf8(valueEditText(definition.number)), this);
    m_number->setObjectName(QStringLiteral("useNumber"));
    m_number->setEnabled(asked.number);
    m_text = new QLineEdit(ui::toQt(definition.text), this);
    m_text->setObjectName(QStringLiteral("useText"));
    m_text->setEnabled(asked.text);
    m_time = new QDateTimeEdit(QDateTime::fromSecsSinceEpoch(definition.time).time(), this);
    m_time->setObjectName(QStringLiteral("useTime"));
    m_time->setDisplayFormat(timeFormat(metric));
    m_time->setEnabled(asked.time);

    auto* group = new QGroupBox(this);
    auto* form = new QFormLayout(group);
    form->addRow(QStringLiteral("&Number:"), m_number);
    form->addRow(QStringLiteral("&String:"), m_text);
    form->addRow(QStringLiteral("&Time:"), m_time);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &UseVariableDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &UseVariableDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(group);
    layout->addWidget(buttons);
}

void UseVariableDialog::accept()
{
    const auto number = parseNumber(m_number->text().toStdString());
    if (!number) {
        QMessageBox::warning(this, QStringLiteral("Velmora"),
                             QStringLiteral("Please enter a number."));
        m_number->setFocus();
        return;
    }
    // The time of day asked for, on the day of the definition's stored time.
    QDateTime time = QDateTime::fromSecsSinceEpoch(m_definition.time);
    time.setTime(m_time->time());
    m_use = useFromDialog(m_definition, static_cast<float>(*number), ui::fromQt(m_text->text()),
                          time.toSecsSinceEpoch());
    QDialog::accept();
}

} // namespace velmora::fitness
