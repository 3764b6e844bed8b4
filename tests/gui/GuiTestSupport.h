#pragma once

// Helpers shared by the widget tests of the subsystems: an application context double, private
// settings, a way to answer modal dialogs and pop-up menus from inside a test, and the mouse and
// keyboard actions of a user.

#include <functional>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeEdit>
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

// Keeps the settings of a test program in a folder of its own.
inline void keepSettingsIn(const QTemporaryDir& folder)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
}

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

// Chooses the entry of the next pop-up menu that lies `downs` presses of the arrow key down.
inline void onNextMenuChoose(int downs)
{
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, downs] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            timer->stop();
            timer->deleteLater();
            for (int i = 0; i < downs; ++i)
                QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
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

// Clicks a button with the mouse; a missing or disabled button fails the test.
inline void click(QAbstractButton* button)
{
    QVERIFY(button != nullptr);
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

inline void clickButton(QWidget* w, const QString& text)
{
    QPushButton* b = buttonOf(w, text);
    QVERIFY2(b != nullptr, qPrintable(text));
    click(b);
}

inline void clickRadio(QWidget* w, const QString& text)
{
    for (QRadioButton* r : w->findChildren<QRadioButton*>())
        if (r->text() == text)
            return click(r);
    QFAIL(qPrintable(text));
}

// Types into an edit as a user does: selects what it holds, then types the new text (letters
// beyond ASCII come as the text of a key the keyboard has no code for).
inline void retype(QWidget* edit, const QString& text)
{
    QVERIFY(edit != nullptr);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    for (QChar c : text) {
        if (c.unicode() < 128)
            QTest::keyClick(edit, c.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, QString(c), {});
    }
}

// Ticks or clears a check box with the space bar.
inline void toggle(QAbstractButton* box)
{
    QVERIFY(box != nullptr);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
}

// Moves a drop list to an item with the arrow keys.
inline void chooseItem(QComboBox* box, int index)
{
    QVERIFY(box != nullptr);
    box->setFocus();
    for (int i = 0; i < box->count() + 1 && box->currentIndex() != index; ++i)
        QTest::keyClick(box, box->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    QCOMPARE(box->currentIndex(), index);
}

// Types a value into a cell of a table as a user does: a click on the cell, F2, the text over
// what the cell held, and Return.
inline void editCell(QTableWidget* table, int row, int column, const QString& text)
{
    QVERIFY(table != nullptr);
    const QModelIndex index = table->model()->index(row, column);
    table->scrollTo(index);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier,
                      table->visualRect(index).center());
    QTest::keyClick(table, Qt::Key_F2);
    QLineEdit* editor = nullptr;
    for (QLineEdit* e : table->viewport()->findChildren<QLineEdit*>())
        if (e->isVisible())
            editor = e;
    QVERIFY(editor != nullptr);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    const QPointer<QLineEdit> open(editor);
    QTest::keyClick(editor, Qt::Key_Return);
    // The view commits and closes the editor from its event loop, as it does for a user.
    QTRY_VERIFY(open.isNull() || !open->isVisible());
}

// Sets a date or a time with the keyboard as a user does: Home goes to the first section, Up and
// Down step each section to its value and Tab moves on to the next one. (Typed digits are read
// differently with each display format; the arrow keys are not.)
inline int sectionValue(const QDateTime& v, QDateTimeEdit::Section section)
{
    switch (section) {
    case QDateTimeEdit::YearSection: return v.date().year();
    case QDateTimeEdit::MonthSection: return v.date().month();
    case QDateTimeEdit::DaySection: return v.date().day();
    case QDateTimeEdit::HourSection: return v.time().hour();
    case QDateTimeEdit::MinuteSection: return v.time().minute();
    case QDateTimeEdit::AmPmSection: return v.time().hour() / 12;
    default: return v.time().second();
    }
}
inline void enterDateTime(QDateTimeEdit* edit, const QDateTime& target)
{
    QVERIFY(edit != nullptr);
    edit->setFocus();
    // A second pass mends a day that a shorter month cut back on the way.
    for (int pass = 0; pass < 2 && edit->dateTime() != target; ++pass) {
        QTest::keyClick(edit, Qt::Key_Home);
        for (int i = 0; i < edit->sectionCount(); ++i) {
            const QDateTimeEdit::Section section = edit->sectionAt(i);
            for (int n = 0; n < 1000; ++n) {
                const int have = sectionValue(edit->dateTime(), section);
                const int want = sectionValue(target, section);
                if (have == want)
                    break;
                QTest::keyClick(edit, have > want ? Qt::Key_Down : Qt::Key_Up);
            }
            QTest::keyClick(edit, Qt::Key_Tab);
        }
    }
    QCOMPARE(edit->dateTime(), target);
}
inline void enterDate(QDateEdit* edit, QDate date)
{
    enterDateTime(edit, QDateTime(date, edit->time()));
}
inline void enterTime(QTimeEdit* edit, QTime time)
{
    enterDateTime(edit, QDateTime(edit->date(), time));
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
