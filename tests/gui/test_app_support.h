#pragma once

// Shared by the shell's widget tests: private settings, a data folder with a small food
// database, and a script that answers the modal dialogs the code under test opens.

#include <algorithm>
#include <deque>
#include <functional>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "app/Application.h"
#include "support/Builders.h"
#include "support/TempDir.h"

namespace velmora::test {

// Settings in a private folder, never the user's own. Call once before any QSettings is made.
inline void usePrivateSettings(const QString& folder)
{
    QStandardPaths::setTestModeEnabled(true);
    app::Application::setIdentity();
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
    QSettings().clear();
}

// Before each test: empty settings, and no tip of the day at start-up.
inline void resetSettings()
{
    QSettings().clear();
    QSettings().setValue(QStringLiteral("Tip/StartUp"), false);
}

// Start-up options for a data folder, with or without the start-up dialogs.
inline app::Application::Options appOptions(const QString& dataDir, bool startupDialogs,
                                            const QString& foodsFile = QString())
{
    app::Application::Options o;
    o.dataDir = dataDir;
    o.startupDialogs = startupDialogs;
    o.foodsFile = foodsFile;
    return o;
}

// Writes a small "foods.db" into a folder.
inline void writeSmallFoods(const QString& folder)
{
    const model::FoodDatabase foods = generatedFoods(20);
    writeBytes(
        std::filesystem::path(QDir(folder).filePath(QStringLiteral("foods.db")).toStdString()),
        foods.serialize());
}

// Finds a button of a dialog by its text ('&' ignored).
inline QAbstractButton* buttonNamed(QWidget* dialog, const QString& text)
{
    for (QAbstractButton* b : dialog->findChildren<QAbstractButton*>()) {
        if (b->text().remove(QLatin1Char('&')) == text)
            return b;
    }
    return nullptr;
}

// Clicks a button of a dialog with the mouse.
inline void click(QWidget* dialog, const QString& text)
{
    if (QAbstractButton* b = buttonNamed(dialog, text))
        QTest::mouseClick(b, Qt::LeftButton);
    else
        qWarning("no button \"%s\" in \"%s\"", qPrintable(text), qPrintable(dialog->windowTitle()));
}

// Answers modal dialogs in order. Each step waits for an active modal window with the given title
// ("*" for any) and runs its action. A modal window that no step expects is closed after ten
// seconds and recorded, so that a wrong dialog fails the test instead of hanging it.
class ModalScript : public QObject
{
public:
    using Action = std::function<void(QWidget*)>;

    ModalScript()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] { poll(); });
        m_timer.start(10);
    }

    ModalScript& expect(const QString& title, Action action)
    {
        m_steps.push_back({title, std::move(action)});
        return *this;
    }

    bool finished() const { return m_steps.empty(); }
    // Titles of the windows the steps answered, in order.
    const QStringList& answered() const { return m_answered; }
    // Texts of the message boxes the steps answered, in order.
    const QStringList& messages() const { return m_messages; }
    const QStringList& unexpected() const { return m_unexpected; }

private:
    struct Step
    {
        QString title;
        Action action;
    };

    void poll()
    {
        QWidget* w = QApplication::activeModalWidget();
        if (!w || !w->isVisible()) {
            m_strangerTicks = 0;
            return;
        }
        // The window just answered may stay the active modal one for a moment; a window answered
        // earlier becomes active again once a dialog it opened has closed. A step names its
        // window by title and may answer such a window again; "*" stands for a window not seen yet.
        const bool answeredBefore = std::any_of(m_seen.begin(), m_seen.end(),
                                                [w](const QPointer<QWidget>& p) { return p == w; });
        const bool matches =
            !m_steps.empty() && (m_steps.front().title == QLatin1String("*")
                                     ? !answeredBefore
                                     : w != m_last && w->windowTitle() == m_steps.front().title);
        if (matches) {
            Step step = std::move(m_steps.front());
            m_steps.pop_front();
            m_last = w;
            m_seen.append(w);
            m_strangerTicks = 0;
            m_answered.append(w->windowTitle());
            if (auto* box = qobject_cast<QMessageBox*>(w))
                m_messages.append(box->text());
            // Run outside this timer's slot: an action that opens a modal dialog runs a nested
            // event loop, and a timer is not delivered again while its slot is still running.
            QTimer::singleShot(0, w, [action = std::move(step.action), w] { action(w); });
            return;
        }
        if (++m_strangerTicks > 1000) {
            m_unexpected.append(w->windowTitle());
            if (auto* box = qobject_cast<QMessageBox*>(w))
                m_unexpected.append(box->text());
            m_strangerTicks = 0;
            m_last = w;
            m_seen.append(w);
            w->close();
        }
    }

    QTimer m_timer;
    std::deque<Step> m_steps;
    QPointer<QWidget> m_last;
    QList<QPointer<QWidget>> m_seen;
    int m_strangerTicks = 0;
    QStringList m_answered;
    QStringList m_messages;
    QStringList m_unexpected;
};

} // namespace velmora::test
