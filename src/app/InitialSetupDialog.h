#pragma once

#include <QDialog>

namespace velmora::ui {
class AppContext;
} // namespace velmora::ui

namespace velmora::app {

class UserSession;

// "Initial Setup": shown at start while fewer than two users exist. "Next >>" makes a new user
// current and opens the diet goals; "Skip" keeps the example user.
class InitialSetupDialog : public QDialog
{
    Q_OBJECT

public:
    InitialSetupDialog(UserSession& session, ui::AppContext& context, QWidget* parent = nullptr);

private:
    void next();

    UserSession& m_session;
    ui::AppContext& m_context;
};

} // namespace velmora::app
