#pragma once

#include <string>

#include <QDialog>

class QLineEdit;

namespace velmora::app {

class UserSession;

// "New User": asks for a name and refuses duplicates and names that cannot name a file. The
// caller adds the accepted name.
class NewUserDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NewUserDialog(const UserSession& session, QWidget* parent = nullptr);

    // The accepted name, first letter upper-cased, as Windows-1252 bytes.
    const std::string& userName() const { return m_name; }

    void accept() override;

private:
    const UserSession& m_session;
    QLineEdit* m_edit = nullptr;
    std::string m_name;
};

} // namespace velmora::app
