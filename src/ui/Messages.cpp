// Message boxes and the delete confirmation, with the texts of the message table.

#include "ui/Messages.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "ui/SettingsKeys.h"

namespace velmora::ui {

namespace {

const QString Caption = QStringLiteral("Velmora");

} // namespace

int showMessage(QWidget* parent, int id)
{
    return showMessageText(parent, messageText(id));
}

int showMessageText(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::NoIcon, Caption, text, QMessageBox::Ok, parent);
    return box.exec();
}

bool askYesNo(QWidget* parent, int id, const QString& caption)
{
    return askYesNoText(parent, messageText(id), caption);
}

bool askYesNoText(QWidget* parent, const QString& text, const QString& caption)
{
    QMessageBox box(QMessageBox::Question, caption.isEmpty() ? Caption : caption, text,
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool confirmDelete(QWidget* parent, int id, bool force)
{
    if (!force && !deleteConfirmationsEnabled())
        return true;

    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("deleteConfirmation"));
    dialog.setWindowTitle(QStringLiteral("Delete Confirmation"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* text = new QLabel(messageText(id), &dialog);
    text->setWordWrap(true);
    text->setMinimumWidth(320);
    layout->addWidget(text);

    auto* disable = new QCheckBox(QStringLiteral("Disable Delete Confirmations"), &dialog);
    disable->setVisible(!force);
    layout->addWidget(disable);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* yes = new QPushButton(QStringLiteral("Yes"), &dialog);
    auto* no = new QPushButton(QStringLiteral("No"), &dialog);
    no->setDefault(true);
    buttons->addWidget(yes);
    buttons->addWidget(no);
    layout->addLayout(buttons);
    QObject::connect(yes, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(no, &QPushButton::clicked, &dialog, &QDialog::reject);

    const bool answer = dialog.exec() == QDialog::Accepted;
    if (!force && disable->isChecked())
        setDeleteConfirmationsEnabled(false);
    return answer;
}

bool deleteConfirmationsEnabled()
{
    return QSettings().value(settings::DeleteConfirmations, true).toBool();
}

void setDeleteConfirmationsEnabled(bool on)
{
    QSettings().setValue(settings::DeleteConfirmations, on);
}

} // namespace velmora::ui
