// The User Login dialog.

#include "app/UserLoginDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/NewUserDialog.h"
#include "app/UserSession.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "ui/Messages.h"
#include "ui/QtText.h"

namespace velmora::app {

UserLoginDialog::UserLoginDialog(model::Store& store, UserSession& session, QWidget* parent)
    : QDialog(parent), m_store(store), m_session(session)
{
    setWindowTitle(QStringLiteral("User Login"));
    setObjectName(QStringLiteral("userLoginDialog"));
    auto* layout = new QVBoxLayout(this);

    auto* chooseGroup = new QGroupBox(QStringLiteral("Choose the active user"), this);
    auto* chooseRow = new QHBoxLayout(chooseGroup);
    m_users = new QComboBox(chooseGroup);
    m_users->setObjectName(QStringLiteral("users"));
    m_users->setMinimumWidth(200);
    auto* loginButton = new QPushButton(QStringLiteral("Login"), chooseGroup);
    loginButton->setObjectName(QStringLiteral("login"));
    loginButton->setDefault(true);
    chooseRow->addWidget(m_users, 1);
    chooseRow->addWidget(loginButton);
    layout->addWidget(chooseGroup);

    auto* editGroup = new QGroupBox(QStringLiteral("Edit User"), this);
    auto* editRow = new QHBoxLayout(editGroup);
    auto* deleteButton = new QPushButton(QStringLiteral("Delete Selected User"), editGroup);
    deleteButton->setObjectName(QStringLiteral("deleteUser"));
    auto* newButton = new QPushButton(QStringLiteral("New User..."), editGroup);
    newButton->setObjectName(QStringLiteral("newUser"));
    editRow->addWidget(deleteButton);
    editRow->addWidget(newButton);
    layout->addWidget(editGroup);

    auto* close = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    close->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancel"));
    layout->addWidget(close);

    connect(loginButton, &QPushButton::clicked, this, &UserLoginDialog::login);
    connect(deleteButton, &QPushButton::clicked, this, &UserLoginDialog::deleteSelected);
    connect(newButton, &QPushButton::clicked, this, &UserLoginDialog::newUser);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
    rebuildList();
}

void UserLoginDialog::rebuildList()
{
    m_users->clear();
    const auto& names = m_store.shared.userNames;
    for (std::size_t i = 0; i < names.size(); ++i)
        m_users->addItem(ui::toQt(names[i]), static_cast<int>(i));
    m_users->setCurrentIndex(names.empty() ? -1 : m_store.shared.currentUser);
}

void UserLoginDialog::login()
{
    const int selected = m_users->currentData().isValid() ? m_users->currentData().toInt() : -1;
    if (selected >= 0)
        m_session.switchTo(selected);
    accept();
}

void UserLoginDialog::deleteSelected()
{
    const int selected = m_users->currentData().isValid() ? m_users->currentData().toInt() : -1;
    if (selected < 0)
        return;
    if (!ui::askYesNo(this, ui::MsgDeleteUser))
        return;
    m_session.deleteUser(selected);
    rebuildList();
}

void UserLoginDialog::newUser()
{
    NewUserDialog dialog(m_session, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_session.addUser(dialog.userName());
    rebuildList();
}

} // namespace velmora::app
