// The main window's navigation and the Options dialog, driven through the real widgets.

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include "app/Application.h"
#include "app/LeftForm.h"
#include "app/MainWindow.h"
#include "app/OptionsDialog.h"
#include "ui/Page.h"
#include "app/PageHost.h"
#include "food/FoodChooser.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "ui/Messages.h"
#include "update/TipDialog.h"
#include "test_app_support.h"
#include "GuiTestSupport.h"

using namespace velmora;
using velmora::test::click;
using velmora::test::ModalScript;

namespace {

// The pages whose buttons are checked, in the navigation form's order.
QList<int> checkedPages(const app::LeftForm& form)
{
    QList<int> pages;
    for (const auto& b : app::LeftForm::Buttons) {
        if (form.buttonForCommand(b.commandId)->isChecked())
            pages.append(ui::pageIndex(b.page));
    }
    return pages;
}

} // namespace

class TestAppShell : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_settings.isValid());
        test::usePrivateSettings(m_settings.path());
        QSettings().setValue(QStringLiteral("Tip/StartUp"), false);
        test::writeSmallFoods(m_data.path());
        m_app = std::make_unique<app::Application>(test::appOptions(m_data.path(), false));
        QVERIFY(m_app->start());
    }

    void cleanupTestCase() { m_app.reset(); }

    void navigationButtonsShowTheirPagesWithExactlyOneSelected()
    {
        app::MainWindow& window = *m_app->window();
        app::LeftForm& form = *window.leftForm();
        // Top to bottom: journal notes, health, fitness log, food, journal list, graphs.
        QList<std::pair<int, int>> buttons; // command, page
        for (const auto& b : app::LeftForm::Buttons)
            buttons.append({b.commandId, ui::pageIndex(b.page)});
        QCOMPARE(buttons, (QList<std::pair<int, int>>{
                              {1017, 3}, {1001, 1}, {1002, 4}, {1000, 0}, {1018, 2}, {1019, 5}}));

        // The food page at start.
        QCOMPARE(window.pageHost()->currentIndex(), 0);
        QCOMPARE(checkedPages(form), QList<int>{0});

        for (const auto& b : app::LeftForm::Buttons) {
            window.showStatus(QStringLiteral("something"));
            QTest::mouseClick(form.buttonForCommand(b.commandId), Qt::LeftButton);
            QCOMPARE(window.pageHost()->currentIndex(), ui::pageIndex(b.page));
            QCOMPARE(checkedPages(form), QList<int>{ui::pageIndex(b.page)});
            QCOMPARE(window.statusBar()->currentMessage(), QString());
            // The shown page is the one of that index.
            auto* stack = window.pageHost()->findChild<QStackedWidget*>();
            QVERIFY(stack->currentWidget()->isAncestorOf(window.pageHost()->page(b.page)));
        }
        // Clicking the selected button again keeps it selected.
        QTest::mouseClick(form.buttonForCommand(1019), Qt::LeftButton);
        QCOMPARE(checkedPages(form), QList<int>{ui::pageIndex(ui::PageId::Graphs)});
        window.showPage(ui::PageId::Food);
        QCOMPARE(checkedPages(form), QList<int>{0});
    }

    void aKeyboardUserTypesAFoodNameRightAfterCtrl4()
    {
        app::MainWindow& window = *m_app->window();
        window.showPage(ui::PageId::Graphs);
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_4, Qt::ControlModifier);
        QCOMPARE(window.pageHost()->current(), ui::PageId::Food);
        auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(box != nullptr);
        QCOMPARE(box->objectName(), QStringLiteral("searchBox"));
        QTest::keyClicks(box, QStringLiteral("ap"));
        QCOMPARE(box->text(), QStringLiteral("ap"));
        box->clear();
    }

    void theMenusCarryTheirCommands()
    {
        QStringList titles;
        for (QAction* menu : m_app->window()->menuBar()->actions())
            titles.append(menu->text());
        QCOMPARE(titles, (QStringList{QStringLiteral("&File"), QStringLiteral("&View"),
                                      QStringLiteral("&Help")}));
        QStringList help;
        for (QAction* a : m_app->window()->menuBar()->actions().last()->menu()->actions()) {
            if (!a->isSeparator())
                help.append(a->text());
        }
        QCOMPARE(help,
                 (QStringList{QStringLiteral("&Check for Updates..."),
                              QStringLiteral("&Online User Manual"), QStringLiteral("Show &Tips"),
                              QStringLiteral("&About Velmora...")}));
    }

    void theFoodFinderPutsAFoodOnTheFoodPage()
    {
        app::MainWindow& window = *m_app->window();
        window.showPage(ui::PageId::Graphs);
        QString chosen;
        ModalScript script;
        script.expect(QStringLiteral("Food Finder"), [&](QWidget* w) {
            auto* finder = static_cast<food::FoodFinderDialog*>(w);
            QTest::mouseClick(finder->findButton(), Qt::LeftButton);
            QTreeWidget* results = finder->resultList();
            QTreeWidgetItem* third = results->topLevelItem(2);
            chosen = third->text(0);
            QTest::mouseClick(results->viewport(), Qt::LeftButton, Qt::NoModifier,
                              results->visualItemRect(third).center());
            QTest::mouseClick(finder->foodPageButton(), Qt::LeftButton);
        });
        auto* finderAction = window.findChild<QAction*>(QStringLiteral("foodFinder"));
        auto* bar = window.findChild<QToolBar*>(QStringLiteral("toolBar"));
        QTest::mouseClick(bar->widgetForAction(finderAction), Qt::LeftButton);
        QVERIFY(script.finished());

        // The food page is shown with that food chosen, ready to add.
        QCOMPARE(window.pageHost()->current(), ui::PageId::Food);
        QCOMPARE(checkedPages(*window.leftForm()), QList<int>{0});
        auto* page = qobject_cast<food::FoodPage*>(window.pageHost()->page(ui::PageId::Food));
        QVERIFY(page);
        const model::FoodItem* food = page->chooser()->selectedFood();
        QVERIFY(food);
        QCOMPARE(QString::fromLatin1(food->name), chosen);
        QVERIFY(page->chooser()->addButton()->isEnabled());
    }

    void optionsOkStoresTheChosenDays()
    {
        model::Store& store = m_app->store();
        store.journal.user.daysInLists = 7;
        QStringList first, last;
        int count = 0;
        int selectedAtOpen = -2;
        ModalScript script;
        script.expect(QStringLiteral("Options"), [&](QWidget* w) {
            auto* days = w->findChild<QComboBox*>(QStringLiteral("daysInLists"));
            count = days->count();
            first = {days->itemText(0), days->itemText(1)};
            last = {days->itemText(days->count() - 1)};
            selectedAtOpen = days->currentIndex();
            test::chooseItem(days, days->findText(QStringLiteral("30")));
            click(w, QStringLiteral("OK"));
        });
        m_app->window()->options();
        QVERIFY(script.finished());
        QCOMPARE(count, 1067);
        QCOMPARE(first, (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(last, QStringList{QStringLiteral("1067")});
        QCOMPARE(selectedAtOpen, 6);
        QCOMPARE(store.journal.user.daysInLists, 30);
    }

    void optionsWriteBackOnlyOnOk_data()
    {
        QTest::addColumn<bool>("ok");
        QTest::newRow("OK") << true;
        QTest::newRow("Cancel") << false;
    }

    void optionsWriteBackOnlyOnOk()
    {
        QFETCH(bool, ok);
        model::Store& store = m_app->store();
        store.journal.user.metric = 0;
        store.journal.user.daysInLists = 0; // no entry selected
        ui::setDeleteConfirmationsEnabled(true);
        QSettings().setValue(QStringLiteral("Tip/StartUp"), false);

        app::OptionsDialog dialog(store);
        dialog.show();
        QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("daysInLists"))->currentIndex(), -1);
        QVERIFY(dialog.findChild<QCheckBox*>(QStringLiteral("deleteConfirmations"))->isChecked());
        QVERIFY(!dialog.findChild<QCheckBox*>(QStringLiteral("useMetric"))->isChecked());
        for (const char* box : {"deleteConfirmations", "useMetric", "showTips"})
            test::toggle(dialog.findChild<QCheckBox*>(QString::fromLatin1(box)));
        click(&dialog, ok ? QStringLiteral("OK") : QStringLiteral("Cancel"));

        QCOMPARE(store.journal.user.metric, ok ? 1 : 0);
        QCOMPARE(store.journal.user.daysInLists, 0); // OK without a selection stores 0
        QCOMPARE(ui::deleteConfirmationsEnabled(), !ok);
        QCOMPARE(update::TipDialog::showAtStartUp(), ok);
    }

    void tipsFollowEachOtherAcrossOpenings()
    {
        QTemporaryDir dir;
        const QString path = QDir(dir.path()).filePath(QStringLiteral("tips.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("First tip\n\nSecond tip\nThird tip\n");
        file.close();
        QSettings().remove(QStringLiteral("Tip"));

        QStringList seen;
        for (int opening = 0; opening < 4; ++opening) {
            update::TipDialog tips(nullptr, path);
            tips.show();
            seen.append(tips.currentTip());
            test::clickButton(&tips, QStringLiteral("Close"));
        }
        QCOMPARE(seen, (QStringList{QStringLiteral("First tip"), QStringLiteral("Second tip"),
                                    QStringLiteral("Third tip"), QStringLiteral("First tip")}));
        update::TipDialog tips(nullptr, path);
        tips.show();
        test::clickButton(&tips, QStringLiteral("&Next Tip"));
        QCOMPARE(tips.currentTip(), QStringLiteral("Third tip"));
    }

private:
    QTemporaryDir m_settings;
    QTemporaryDir m_data;
    std::unique_ptr<app::Application> m_app;
};

QTEST_MAIN(TestAppShell)
#include "test_app_shell.moc"
