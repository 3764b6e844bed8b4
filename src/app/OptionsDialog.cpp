// The Options dialog.

#include "app/OptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "model/Store.h"
#include "ui/Messages.h"
#include "ui/SettingsKeys.h"
#include "update/TipDialog.h"
#include "model/ProfileEdits.h"

namespace velmora::app {

OptionsDialog::OptionsDialog(model::Store& store, QWidget* parent) : QDialog(parent), m_store(store)
{
    setWindowTitle(QStringLiteral("Options"));
    setObjectName(QStringLiteral("optionsDialog"));
    auto* layout = new QVBoxLayout(this);

    m_confirmations = new QCheckBox(QStringLiteral("Delete Confirmations"), this);
    m_confirmations->setObjectName(QStringLiteral("deleteConfirmations"));
    m_metric = new QCheckBox(QStringLiteral("Use Metric"), this);
    m_metric->setObjectName(QStringLiteral("useMetric"));
    auto* daysLabel =
        new QLabel(QStringLiteral("Number of days of data to display in lists:"), this);
    m_days = new QComboBox(this);
    m_days->setObjectName(QStringLiteral("daysInLists"));
    m_days->setMaxVisibleItems(20);
    daysLabel->setBuddy(m_days);
    m_tips = new QCheckBox(QStringLiteral("Show Tips on StartUp"), this);
    m_tips->setObjectName(QStringLiteral("showTips"));

    layout->addWidget(m_confirmations);
    layout->addWidget(m_metric);
    layout->addSpacing(6);
    layout->addWidget(daysLabel);
    layout->addWidget(m_days);
    layout->addSpacing(6);
    layout->addWidget(m_tips);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancel"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDialog::reject);

    QStringList days;
    days.reserve(MaxDaysInLists);
    for (int d = 1; d <= MaxDaysInLists; ++d)
        days.append(QString::number(d));
    m_days->addItems(days);

    m_confirmations->setChecked(ui::deleteConfirmationsEnabled());
    m_metric->setChecked(m_store.journal.user.metric != 0);
    m_tips->setChecked(update::TipDialog::showAtStartUp());
    // A stored count outside 1..1067 selects nothing (position -1).
    const int position = m_store.journal.user.daysInLists - 1;
    m_days->setCurrentIndex(position >= 0 && position < MaxDaysInLists ? position : -1);
}

void OptionsDialog::accept()
{
    ui::setDeleteConfirmationsEnabled(m_confirmations->isChecked());
    model::setUnitsAndDays(m_store.journal.user, m_metric->isChecked(), m_days->currentIndex() + 1);
    QSettings().setValue(ui::settings::TipStartUp, m_tips->isChecked());
    QDialog::accept();
}

} // namespace velmora::app
