// The New User dialog.

#include "app/NewUserDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/UserSession.h"
#include "model/TextCodec.h"
#include "model/UserNames.h"
#include "ui/Messages.h"
#include "ui/QtText.h"

namespace velmora::app {

NewUserDialog::NewUserDialog(const UserSession& session, QWidget* parent)
    : QDialog(parent), m_session(session)
{
    setWindowTitle(QStringLiteral("New User"));
    setObjectName(QStringLiteral("newUserDialog"));
    auto* layout = new QVBoxLayout(this);
    auto* prompt = new QLabel(
        QStringLiteral("Enter the name of the new user you wish to store a profile of:"), this);
    prompt->setWordWrap(true);
    layout->addWidget(prompt);
    m_edit = new QLineEdit(this);
    m_edit->setObjectName(QStringLiteral("userName"));
    prompt->setBuddy(m_edit);
    layout->addWidget(m_edit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancel"));
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &NewUserDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NewUserDialog::reject);
    setMinimumWidth(360);
}

void NewUserDialog::accept()
{
    const QString problem = m_session.newNameProblem(m_edit->text());
    if (!problem.isEmpty()) {
        ui::showMessageText(this, problem);
        m_edit->setFocus();
        m_edit->selectAll();
        return;
    }
    m_name = model::capitaliseFirst(ui::fromQt(m_edit->text()));
    QDialog::accept();
}

} // namespace velmora::app
