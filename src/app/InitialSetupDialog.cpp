// The Initial Setup dialog of a fresh installation.

#include "app/InitialSetupDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "app/NewUserDialog.h"
#include "app/PageFactory.h"
#include "app/UserSession.h"

namespace velmora::app {

InitialSetupDialog::InitialSetupDialog(UserSession& session, ui::AppContext& context,
                                       QWidget* parent)
    : QDialog(parent), m_session(session), m_context(context)
{
    setWindowTitle(QStringLiteral("Initial Setup"));
    setObjectName(QStringLiteral("initialSetupDialog"));
    auto* layout = new QVBoxLayout(this);
    auto* text = new QLabel(
        QStringLiteral("Welcome to Velmora, the most advanced desktop health and fitness "
                       "application available.\n\nPress 'Next' to make a new user, or press "
                       "'Skip' to view the example user."),
        this);
    text->setObjectName(QStringLiteral("welcome"));
    text->setWordWrap(true);
    text->setMinimumWidth(380);
    layout->addWidget(text);

    auto* row = new QHBoxLayout;
    row->addStretch();
    auto* skip = new QPushButton(QStringLiteral("Skip"), this);
    skip->setObjectName(QStringLiteral("skip"));
    auto* next = new QPushButton(QStringLiteral("Next >>"), this);
    next->setObjectName(QStringLiteral("next"));
    next->setDefault(true);
    row->addWidget(skip);
    row->addWidget(next);
    layout->addLayout(row);

    connect(skip, &QPushButton::clicked, this, &QDialog::reject);
    connect(next, &QPushButton::clicked, this, &InitialSetupDialog::next);
}

void InitialSetupDialog::next()
{
    NewUserDialog dialog(m_session, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const int added = m_session.addUser(dialog.userName());
    m_session.switchTo(added);
    accept();
    // The new user sets the goals at once.
    openDietGoals(m_context);
}

} // namespace velmora::app
