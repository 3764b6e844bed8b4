#pragma once

// Helpers shared by the widget tests of the subsystems: an application context double and a way
// to answer modal dialogs from inside a test.

#include <functional>

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "ui/AppContext.h"
#include "model/Store.h"

namespace velmora::test {

// A context for pages and dialogs tested without the main window: a store of its own, and a
// count of the writes reported through notifyChanged().
class TestContext : public ui::AppContext
{
public:
    model::Store& store() override { return m_store; }
    void refreshAllPages() override {}
    void notifyChanged(ui::Change) override { ++modified; }
    void showStatus(const QString&) override {}
    QWidget* mainWindow() override { return nullptr; }

    model::Store m_store;
    int modified = 0;
};

// Runs action on the next modal dialog as soon as it is shown.
inline void onNextModal(std::function<void(QWidget*)> action)
{
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, action] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            timer->stop();
            timer->deleteLater();
            action(modal);
        }
    });
    timer->start();
}

// The push button of a dialog with exactly this text, or nullptr.
inline QPushButton* buttonOf(QWidget* w, const QString& text)
{
    for (QPushButton* b : w->findChildren<QPushButton*>())
        if (b->text() == text)
            return b;
    return nullptr;
}

} // namespace velmora::test
