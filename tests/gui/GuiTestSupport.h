#pragma once

// Helpers shared by the widget tests of the subsystems: an application context double and a way
// to answer modal dialogs from inside a test.

#include <functional>

#include <QAbstractItemView>
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWidget>

#include "ui/AppContext.h"
#include "model/Store.h"

namespace velmora::test {

// A context for pages and dialogs tested without the main window: a store of its own, a count
// of the writes reported through notifyChanged() and the last status text shown.
class TestContext : public ui::AppContext
{
public:
    model::Store& store() override { return m_store; }
    void refreshAllPages() override {}
    void notifyChanged(ui::Change) override { ++modified; }
    void showStatus(const QString& text) override { status = text; }
    QWidget* mainWindow() override { return nullptr; }

    model::Store m_store;
    int modified = 0;
    QString status;
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

// Clicks an item where the user sees it: on its rectangle in the view's viewport.
inline void clickIndex(QAbstractItemView* view, const QModelIndex& index)
{
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->visualRect(index).center());
}
inline void clickRow(QListWidget* list, int row)
{
    clickIndex(list, list->model()->index(row, 0));
}
inline void clickItem(QTreeWidget* tree, QTreeWidgetItem* item)
{
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree->visualItemRect(item).center());
}

} // namespace velmora::test
