#pragma once

#include <QDialog>

class QComboBox;

namespace velmora::model {
class Store;
}

namespace velmora::app {

class UserSession;

// "User Login": choose the active user, delete a user or make a new one.
class UserLoginDialog : public QDialog
{
    Q_OBJECT

public:
    UserLoginDialog(model::Store& store, UserSession& session, QWidget* parent = nullptr);

private:
    void rebuildList();
    void login();
    void deleteSelected();
    void newUser();

    model::Store& m_store;
    UserSession& m_session;
    QComboBox* m_users = nullptr;
};

} // namespace velmora::app
