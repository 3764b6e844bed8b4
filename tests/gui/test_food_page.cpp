// The food page driven offscreen through its real widgets: search, choose a measure, size, add,
// read the meal list, totals and pies, remove; the keyboard path; the amount box's rules; copying
// a meal; and the food finder and food details dialogs.

#include <QDialogButtonBox>
#include <QLabel>
#include <QToolTip>

#include <tuple>

#include "controls/AmountSpinBox.h"
#include "charts/PieChart.h"
#include "charts/BarChart.h"
#include "food/CopyMealDialog.h"
#include "food/FoodChooser.h"
#include "food/FoodDetailsDialog.h"
#include "food/FoodFinderDialog.h"
#include "food/FoodPage.h"
#include "food/MacroPanel.h"
#include "food/logic/MealEditing.h"
#include "model/Clock.h"
#include "test_app_support.h"
#include "ui/Messages.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::FoodBuilder;

namespace {

const std::vector<model::NutrientDef>& catalogue()
{
    static const std::vector<model::NutrientDef> c = test::standardCatalogue();
    return c;
}

void fillStore(model::Store& s)
{
    s.foods.setCatalogue(catalogue());
    s.foods.catalogue().appendComputed();
    s.foods.addGroup({100, "Dairy and Egg Products"});
    s.foods.addGroup({900, "Fruits and Fruit Juices"});
    FoodBuilder egg(catalogue(), 1123, "Egg, whole, raw, fresh");
    egg.group(100).value(203, 12.56f).value(204, 9.51f).value(205, 0.72f).value(208, 143.0f);
    egg.measure(50.0f, "large").measure(243.0f, "cup (4.86 large eggs)");
    for (const auto& row : model::IdealProtein) // an egg's protein is complete
        egg.value(row.nutrient, static_cast<float>(row.reference * 1.3 * 12.56 / 1000.0));
    s.foods.addFood(egg);
    FoodBuilder apple(catalogue(), 9003, "Apples, raw, with skin");
    apple.group(900).value(203, 0.26f).value(204, 0.17f).value(205, 13.81f).value(208, 52.0f);
    s.foods.addFood(apple.measure(182.0f, "medium"));
    s.foods.addFood(
        FoodBuilder(catalogue(), 4053, "Oil, olive").value(204, 100.0f).value(208, 884));
    s.shared.customFoods.push_back(
        FoodBuilder(catalogue(), 70000, "Egg sandwich").value(208, 300.0f).serving(120.0f));
}

// A double-click as the mouse gives it: a click, then the second press.
void doubleClick(QAbstractItemView* view, const QRect& item)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, item.center());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, item.center());
}

// Clicks a meal line, then "&Remove", and answers the delete question.
void removeRow(food::FoodPage& page, int row, const char* answer)
{
    test::clickRow(page.mealList(), row);
    test::ModalScript script;
    script.expect(QStringLiteral("Delete Confirmation"),
                  [answer](QWidget* w) { test::click(w, QString::fromLatin1(answer)); });
    test::click(page.removeButton());
    QVERIFY(script.finished());
    QCOMPARE(script.unexpected(), QStringList());
}

std::vector<int> anglesOf(const charts::PieChart* pie)
{
    std::vector<int> out;
    for (const auto& s : pie->slices())
        out.push_back(s.angle);
    return out;
}

} // namespace

class FoodPageTest : public QObject
{
    Q_OBJECT

private:
    food::FoodChooser* chooser() const { return m_page->chooser(); }
    // Puts foods into a meal of the page's day and shows that meal.
    void mealHolds(int kind, std::initializer_list<std::pair<int, float>> entries)
    {
        model::Meal& meal = food::mealForAdding(m_context->m_store.journal, {2026, 3, 14}, kind, 0);
        for (auto [food, amount] : entries)
            food::addToMeal(meal, food, amount);
        m_page->refreshPage();
        test::chooseItem(m_page->mealChoice(), kind);
    }
    // Clicks a list mode's radio button on its box, which may be narrower than the button.
    void chooseMode(food::FoodListMode mode)
    {
        QRadioButton* button = chooser()->modeButton(mode);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    void search(const QString& text)
    {
        test::retype(chooser()->searchBox(), text);
        test::click(chooser()->searchButton());
    }

    QTemporaryDir m_settings;
    std::unique_ptr<model::FixedClock> m_clock;
    std::unique_ptr<test::TestContext> m_context;
    std::unique_ptr<food::FoodPage> m_page;

private slots:
    void initTestCase()
    {
        test::usePrivateSettings(m_settings.path());
        ui::setDeleteConfirmationsEnabled(true);
    }

    void init()
    {
        m_clock = std::make_unique<model::FixedClock>(model::CalendarDate{2026, 3, 14}.toTime() +
                                                      12 * 3600);
        m_context = std::make_unique<test::TestContext>();
        fillStore(m_context->m_store);
        m_page = std::make_unique<food::FoodPage>(*m_context); // on the clock's day
        m_page->resize(1280, 760);
        m_page->show();
        m_page->refreshPage();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
        m_page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_page.get())); // mnemonics and shortcuts need it
    }

    void cleanup()
    {
        m_page.reset();
        m_context.reset();
        m_clock.reset();
    }

    void searchChooseAddRemove()
    {
        model::Store& store = m_context->m_store;
        charts::PieChart* mealPie = m_page->macroPanel()->pie(0);
        QCOMPARE(mealPie->title(), QStringLiteral("Meal"));
        QCOMPARE(anglesOf(mealPie), (std::vector<int>{0, 0, 0}));

        test::retype(chooser()->searchBox(), QStringLiteral("  egg "));
        test::click(chooser()->searchButton());
        QListWidget* foods = chooser()->foodList();
        QCOMPARE(foods->count(), 2);
        QCOMPARE(foods->item(0)->text(), QStringLiteral("Egg sandwich")); // custom foods first
        // Each row clicked takes up its own food, not only the first.
        for (int row : {1, 0, 1}) {
            test::clickRow(foods, row);
            QCOMPARE(chooser()->selectedFood()->number,
                     foods->item(row)->data(Qt::UserRole).toInt());
        }
        QCOMPARE(chooser()->measureList()->count(), 4); // large, cup, then ounces and grams
        QCOMPARE(chooser()->measureList()->currentText(), QStringLiteral("large"));

        test::retype(chooser()->amountBox(), QStringLiteral("3"));
        test::click(chooser()->addButton());
        QListWidget* meal = m_page->mealList();
        QCOMPARE(meal->count(), 1);
        QCOMPARE(meal->item(0)->text(), QStringLiteral("3 x large - Egg, whole, raw, fresh"));
        QCOMPARE(store.journal.days.at(0).meals.at(0).entries.at(0).amount, 1.5f);
        QVERIFY(m_context->modified > 0);
        QCOMPARE(store.journal.user.recentFoodList().front(), 1123);

        // The meal pie and the day pie show the egg's energy shares of protein, carbohydrate and
        // fat (50.24, 2.88 and 85.59 kcal of 138.71).
        const std::vector<int> egg{130, 7, 222};
        QCOMPARE(anglesOf(mealPie), egg);
        QCOMPARE(anglesOf(m_page->macroPanel()->pie(1)), egg);
        QCOMPARE(mealPie->slices()[1].label, QStringLiteral("Carboyhydrates"));

        // The same food again, in cups: one entry, summed.
        test::chooseItem(chooser()->measureList(), 1);
        test::clickRow(foods, 1); // clicking the chosen food again keeps its measure
        QCOMPARE(chooser()->measureList()->currentIndex(), 1);
        test::retype(chooser()->amountBox(), QStringLiteral("1"));
        test::click(chooser()->addButton());
        QCOMPARE(store.journal.days[0].meals[0].entries[0].amount, 1.5f + 2.43f);

        // An apple makes the meal's pie differ from the egg's.
        search(QStringLiteral("apple"));
        test::click(chooser()->addButton());
        QCOMPARE(meal->count(), 2);
        QCOMPARE(meal->item(1)->text(), QStringLiteral("medium - Apples, raw, with skin"));
        QVERIFY(anglesOf(mealPie) != egg);

        // Details of a meal entry: the entry's values.
        test::click(m_page->macroPanel()->detailsButton());
        QVERIFY(!m_page->macroPanel()->piesShown());
        test::clickRow(meal, 1);
        QTreeWidget* details = m_page->macroPanel()->detailsList();
        QCOMPARE(details->topLevelItemCount(), 8);
        QCOMPARE(details->topLevelItem(0)->text(0), QStringLiteral("Energy"));
        QCOMPARE(details->topLevelItem(0)->text(1), QStringLiteral("94.6")); // 52 x 1.82
        QVERIFY(m_page->saveCustomButton()->isEnabled());

        // Remove with Yes, then No keeps the last one, then Yes again.
        removeRow(*m_page, 1, "Yes");
        QCOMPARE(meal->count(), 1);
        QVERIFY(meal->item(0)->text().endsWith(QStringLiteral("Egg, whole, raw, fresh")));
        removeRow(*m_page, 0, "No");
        QCOMPARE(meal->count(), 1);
        QVERIFY(m_page->saveCustomButton()->isEnabled()); // one food is a meal to save
        removeRow(*m_page, 0, "Yes");
        QCOMPARE(meal->count(), 0);
        QVERIFY(store.journal.days.empty()); // the emptied meal and day are gone
        QVERIFY(!m_page->saveCustomButton()->isEnabled());
        QVERIFY(!m_page->removeButton()->isEnabled());
        QCOMPARE(anglesOf(mealPie), (std::vector<int>{0, 0, 0}));
    }

    void keyboardOnly()
    {
        QLineEdit* box = chooser()->searchBox();
        box->setFocus();
        QTest::keyClicks(box, QStringLiteral("egg"));
        QTest::keyClick(box, Qt::Key_Return); // Enter searches
        QCOMPARE(chooser()->foodList()->count(), 2);
        QTest::keyClick(box, Qt::Key_Down); // arrows move in the list from the search box
        QCOMPARE(chooser()->foodList()->currentRow(), 1);

        // Tab reaches the amount box from the list.
        chooser()->foodList()->setFocus();
        QTest::keyClick(chooser()->foodList(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(chooser()->amountBox()));
        QTest::keyClick(chooser()->amountBox(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(chooser()->amountBox(), QStringLiteral("2"));
        QTest::keyClick(chooser()->amountBox(), Qt::Key_Return,
                        Qt::ControlModifier); // Ctrl+Enter adds
        QCOMPARE(m_page->mealList()->count(), 1);
        QCOMPARE(m_page->mealList()->item(0)->text(),
                 QStringLiteral("2 x large - Egg, whole, raw, fresh"));
        QCOMPARE(m_context->m_store.journal.days[0].meals[0].entries[0].amount, 1.0f);

        // Enter on the number pad works like Return.
        QTest::keyClick(chooser()->amountBox(), Qt::Key_Enter,
                        Qt::ControlModifier | Qt::KeypadModifier);
        QCOMPARE(m_context->m_store.journal.days[0].meals[0].entries[0].amount, 2.0f);

        // Tab reaches the meal list with its line chosen; Delete removes it after the question.
        QListWidget* meal = m_page->mealList();
        QWidget* focus = QApplication::focusWidget();
        for (int i = 0; i < 20 && focus != meal; ++i) {
            QTest::keyClick(focus, Qt::Key_Tab);
            focus = QApplication::focusWidget();
        }
        QCOMPARE(focus, static_cast<QWidget*>(meal));
        QVERIFY(m_page->removeButton()->isEnabled());
        test::ModalScript script;
        script.expect(QStringLiteral("Delete Confirmation"),
                      [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
        QTest::keyClick(meal, Qt::Key_Delete);
        QVERIFY(script.finished());
        QCOMPARE(meal->count(), 0);
        QVERIFY(m_context->m_store.journal.days.empty());
    }

    void staleMealIsReloadedWhenShown()
    {
        // Breakfast holds an apple and an egg; the page shows both.
        model::Store& store = m_context->m_store;
        mealHolds(0, {{9003, 1.0f}, {1123, 1.0f}});
        QCOMPARE(m_page->mealList()->count(), 2);

        // Another page removes the apple while this one is out of view.
        m_page->hide();
        QVERIFY(food::removeMealEntry(store.journal, {2026, 3, 14}, 0, 0));
        m_page->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
        QCOMPARE(m_page->mealList()->count(), 1);

        // Even a page that missed a change never removes a line other than the one selected.
        food::addToMeal(*model::findDay(store.journal, {2026, 3, 14})->findMeal(0), 9003, 1.0f);
        m_page->refreshPage();                                              // egg, apple
        QVERIFY(food::removeMealEntry(store.journal, {2026, 3, 14}, 0, 0)); // apple left, unseen
        test::clickRow(m_page->mealList(), 0); // the egg, as the page still shows it
        test::ModalScript script; // the page sees that it is stale and reloads instead of asking
        script.expect(QStringLiteral("Delete Confirmation"),
                      [](QWidget* w) { test::click(w, QStringLiteral("Yes")); });
        QTest::mouseClick(m_page->removeButton(), Qt::LeftButton);
        QCOMPARE(model::findDay(store.journal, {2026, 3, 14})->findMeal(0)->entries.at(0).food,
                 9003);
        QCOMPARE(m_page->mealList()->count(), 1); // and the page now shows what the store holds
    }

    void amountBoxRules()
    {
        search(QStringLiteral("apple"));
        controls::AmountSpinBox* amount = chooser()->amountBox();
        QVERIFY(amount->isEnabled());
        QCOMPARE(chooser()->measureList()->currentText(), QStringLiteral("medium"));

        // Spinning stays between 0.25 and 100.
        for (auto [typed, key, value] : {std::tuple{"0.5", Qt::Key_Down, 0.25},
                                         {"0.25", Qt::Key_Down, 0.25},
                                         {"100", Qt::Key_Up, 100.0}}) {
            test::retype(amount, QString::fromLatin1(typed));
            QTest::keyClick(amount, key);
            QCOMPARE(amount->value(), value);
        }
        // Text and numbers out of range are refused at the box with a hint.
        test::retype(amount, QStringLiteral("abc"));
        QVERIFY(chooser()->amountHint()->isVisible());
        QVERIFY(chooser()->amountHint()->text().contains(QStringLiteral("0.25")));
        test::retype(amount, QStringLiteral("250"));
        QCOMPARE(amount->text(), QStringLiteral("25")); // the 0 past the maximum was refused
        test::retype(amount, QStringLiteral("1.5"));
        QVERIFY(!chooser()->amountHint()->isVisible());
        QTest::keyClick(amount, Qt::Key_Tab);
        QCOMPARE(amount->value(), 1.5);
        // One and a half medium apples of 182 g: 2.73 units of 100 g.
        QCOMPARE(chooser()->amountToAdd(), 1.5 * 1.82);

        // With no food selected the amount shows 1.0 again.
        chooseMode(food::FoodListMode::Custom);
        QCOMPARE(amount->value(), 1.0);
        QVERIFY(!amount->isEnabled());
        QVERIFY(!chooser()->addButton()->isEnabled());
    }

    void listModesAndEnabling()
    {
        test::retype(chooser()->searchBox(), QStringLiteral("a"));
        chooseMode(food::FoodListMode::Custom);
        QCOMPARE(chooser()->foodList()->count(), 1);
        QVERIFY(chooser()->searchBox()->text().isEmpty());
        QVERIFY(!chooser()->searchBox()->isEnabled());
        QVERIFY(!chooser()->groupList()->isEnabled());

        // Switching to All Foods with an empty search box leaves the list empty.
        chooseMode(food::FoodListMode::All);
        QCOMPARE(chooser()->foodList()->count(), 0);
        QVERIFY(chooser()->searchBox()->isEnabled());
        // A box of blanks lists every custom food and every food of the chosen group.
        test::retype(chooser()->searchBox(), QStringLiteral("   "));
        test::chooseItem(chooser()->groupList(), chooser()->groupList()->findData(900));
        test::click(chooser()->searchButton());
        QCOMPARE(chooser()->foodList()->count(), 2);
        QCOMPARE(chooser()->foodList()->item(1)->text(), QStringLiteral("Apples, raw, with skin"));
        test::click(chooser()->addButton()); // the custom food, in servings

        QCOMPARE(m_page->mealList()->item(0)->text(), QStringLiteral("1.00 x Egg sandwich"));
        chooseMode(food::FoodListMode::Recent);
        QCOMPARE(chooser()->foodList()->count(), 1);
        QCOMPARE(chooser()->foodList()->item(0)->data(Qt::UserRole).toInt(), 70000);

        // The page keeps its list mode in the user record.
        m_page->storePage();
        QCOMPARE(m_context->m_store.journal.user.foodListMode, 1);

        // A search without matches says so.
        test::ModalScript script;
        script.expect(QStringLiteral("*"),
                      [](QWidget* w) { test::click(w, QStringLiteral("OK")); });
        chooseMode(food::FoodListMode::All);
        search(QStringLiteral("kiwi"));
        QVERIFY(script.finished());
        QCOMPARE(script.messages().value(0), QStringLiteral("No matches found in database."));
        QCOMPARE(script.answered().value(0), QStringLiteral("Velmora"));
        QCOMPARE(chooser()->foodList()->count(), 0);
    }

    void browsingCreatesNothing()
    {
        test::chooseItem(m_page->mealChoice(), 3);
        test::enterDate(m_page->dateEdit(), QDate(2026, 1, 1));
        QCOMPARE(m_page->timeEdit()->time(), QTime(18, 30)); // a new dinner starts at dinner time
        test::enterTime(m_page->timeEdit(), QTime(19, 30));
        QVERIFY(m_context->m_store.journal.days.empty());
        QCOMPARE(m_page->macroPanel()->pie(1)->title(), QStringLiteral("1/1/2026"));

        search(QStringLiteral("apple"));
        test::click(chooser()->addButton());
        const model::JournalDay& day = m_context->m_store.journal.days.at(0);
        QCOMPARE(day.date, model::CalendarDate({2026, 1, 1}).toTime());
        QCOMPARE(day.meals.at(0).kind, std::uint8_t(3));
        QCOMPARE(day.meals.at(0).time, food::mealTimeOn({2026, 1, 1}, 19, 30));
        // A stored meal takes a new time at once.
        test::enterTime(m_page->timeEdit(), QTime(20, 0));
        QCOMPARE(day.meals.at(0).time, food::mealTimeOn({2026, 1, 1}, 20, 0));
        // The other meals of the day stay empty and unstored.
        test::chooseItem(m_page->mealChoice(), 0);
        QCOMPARE(m_page->mealList()->count(), 0);
        QCOMPARE(day.meals.size(), std::size_t(1));
    }

    void copyMealAndDayFromEarlierDays()
    {
        // The 9th: an egg at breakfast, an apple at a 19:00 dinner; the 12th: an apple and half an
        // egg at breakfast; today's breakfast holds half an egg.
        model::Store& store = m_context->m_store;
        model::JournalDay monday =
            test::dayWithMeal(model::CalendarDate{2026, 3, 9}.toTime(), 0, {{1123, 1.0f}});
        monday.meals.push_back(test::dayWithMeal(monday.date, 3, {{9003, 1.82f}}).meals[0]);
        monday.meals.back().time = monday.date + 19 * 3600;
        store.journal.days.push_back(monday);
        store.journal.days.push_back(test::dayWithMeal(model::CalendarDate{2026, 3, 12}.toTime(), 0,
                                                       {{9003, 1.82f}, {1123, 0.5f}}));
        mealHolds(0, {{1123, 0.5f}});

        test::ModalScript script;
        script.expect(QStringLiteral("Copy Meal From"), [](QWidget* w) {
            auto* dialog = static_cast<food::CopyMealDialog*>(w);
            // The latest earlier breakfast is proposed, with its foods shown.
            QCOMPARE(dialog->sourceDate(), (model::CalendarDate{2026, 3, 12}));
            QCOMPARE(dialog->preview()->count(), 2);
            QCOMPARE(dialog->dateEdit()->text(),
                     QStringLiteral("3/12/2026"));           // as the page writes it
            test::enterDate(dialog->dateEdit(), QDate(2026, 3, 11)); // nothing that day: OK is off
            QVERIFY(!dialog->buttons()->button(QDialogButtonBox::Ok)->isEnabled());
            test::enterDate(dialog->dateEdit(), QDate(2026, 3, 12));
            test::click(dialog->buttons()->button(QDialogButtonBox::Ok));
        });
        test::click(m_page->copyMealButton());
        QVERIFY(script.finished());
        QCOMPARE(m_page->mealList()->count(), 2); // the 12th's apple joined the egg

        test::chooseItem(m_page->mealChoice(), 3);
        script.expect(QStringLiteral("Copy Day From"), [](QWidget* w) {
            auto* dialog = static_cast<food::CopyMealDialog*>(w);
            QCOMPARE(dialog->sourceDate(), (model::CalendarDate{2026, 3, 12}));
            QVERIFY(!dialog->mealChoice()->isVisible());
            QPushButton* ok = dialog->buttons()->button(QDialogButtonBox::Ok);
            dialog->dateEdit()->setFocus();
            QTest::keyClick(dialog->dateEdit(), Qt::Key_Up); // a date without meals
            QVERIFY(!ok->isEnabled());
            // The page's own date would copy the day onto itself: refused.
            test::enterDate(dialog->dateEdit(), QDate(2026, 3, 14));
            QVERIFY(!ok->isEnabled());
            test::enterDate(dialog->dateEdit(), QDate(2026, 3, 9));
            QCOMPARE(dialog->preview()->count(), 4);
            QCOMPARE(dialog->preview()->item(0)->text(), QStringLiteral("Breakfast"));
            QCOMPARE(dialog->preview()->item(2)->text(), QStringLiteral("Dinner"));
            test::click(ok);
        });
        test::click(m_page->copyDayButton());
        QVERIFY(script.finished());

        // How the meals add up is the copy's own rule; the page shows the dinner it made.
        QCOMPARE(m_page->mealList()->count(), 1);
        QCOMPARE(m_page->timeEdit()->time(), QTime(19, 0));
    }

    void finderRanksAndOpensDetails()
    {
        food::FoodFinderDialog finder(*m_context);
        finder.show();
        QVERIFY(QTest::qWaitForWindowExposed(&finder));
        QCOMPARE(finder.nutrientList(0)->currentIndex(), 0);
        QCOMPARE(finder.nutrientList(1)->currentIndex(), 1);
        QVERIFY(finder.highButton(0)->isChecked());
        QVERIFY(finder.lowButton(1)->isChecked());

        test::chooseItem(finder.nutrientList(0), finder.nutrientList(0)->findData(203));
        test::chooseItem(finder.nutrientList(1), finder.nutrientList(1)->findData(204));
        test::click(finder.findButton());
        QTreeWidget* results = finder.resultList();
        QCOMPARE(results->topLevelItemCount(), 3); // database foods only
        QCOMPARE(results->headerItem()->text(1), QStringLiteral("Protein"));
        QCOMPARE(results->columnWidth(0), 320);
        QCOMPARE(results->columnWidth(2), 112);
        QCOMPARE(results->topLevelItem(0)->text(0), QStringLiteral("Egg, whole, raw, fresh"));
        QCOMPARE(results->topLevelItem(0)->text(1), QStringLiteral("12.56"));
        QCOMPARE(results->topLevelItem(2)->text(0), QStringLiteral("Oil, olive"));

        test::ModalScript script;
        script.expect(QStringLiteral("Food Details"), [](QWidget* w) {
            QCOMPARE(static_cast<food::FoodDetailsDialog*>(w)->nameLabel()->text(),
                     QStringLiteral("Egg, whole, raw, fresh"));
            static_cast<QDialog*>(w)->accept();
        });
        doubleClick(results, results->visualItemRect(results->topLevelItem(0)));
        QVERIFY(script.finished());
    }

    void finderRemembersAndShowsOnFoodPage()
    {
        QSettings().clear();
        const char* longName = "Cereals ready-to-eat, a name far too long for the finder's name "
                               "column of three hundred and twenty pixels";
        m_context->m_store.foods.addFood(
            FoodBuilder(catalogue(), 8001, longName).group(800).value(203, 9.0f).value(204, 1.0f));
        m_page->hide(); // the mouse rests over the finder alone
        {
            food::FoodFinderDialog finder(*m_context);
            finder.show();
            finder.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&finder)); // tool tips show in the active window
            finder.nutrientList(0)->setFocus();
            QTest::keyClicks(finder.nutrientList(0), QStringLiteral("Total"));
            finder.nutrientList(1)->setFocus();
            QTest::keyClicks(finder.nutrientList(1), QStringLiteral("Protein"));
            QTest::mouseClick(finder.lowButton(0), Qt::LeftButton);
            QTest::mouseClick(finder.highButton(1), Qt::LeftButton);
            QTest::mouseClick(finder.findButton(), Qt::LeftButton);
            QTreeWidget* results = finder.resultList();
            QCOMPARE(results->headerItem()->text(1), QStringLiteral("Total lipid (fat)"));
            QVERIFY(!finder.foodPageButton()->isEnabled()); // no food chosen yet

            // A name cut by its column shows whole when the mouse rests on it; a short one shows
            // none.
            QTreeWidgetItem* cut =
                results->findItems(QString::fromLatin1(longName), Qt::MatchExactly)[0];
            QTest::mouseMove(results->viewport(), results->visualItemRect(cut).center());
            QTRY_VERIFY(QToolTip::isVisible());
            QCOMPARE(QToolTip::text(), QString::fromLatin1(longName));
            QTreeWidgetItem* apple =
                results->findItems(QStringLiteral("Apples, raw, with skin"), Qt::MatchExactly)[0];
            QTest::mouseMove(results->viewport(), results->visualItemRect(apple).center());
            QTRY_VERIFY(!QToolTip::isVisible());

            // The apple, low in fat and high in protein, goes to the food page.
            test::clickItem(results, apple);
            QVERIFY(finder.foodPageButton()->isEnabled());
            QTest::mouseClick(finder.foodPageButton(), Qt::LeftButton);
            QCOMPARE(finder.result(), int(QDialog::Accepted));
            QCOMPARE(finder.chosenFood(), 9003);
        }
        m_page->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
        // The next finder starts with the nutrients and directions used last.
        food::FoodFinderDialog again(*m_context);
        QCOMPARE(again.nutrientList(0)->currentText(), QStringLiteral("Total lipid (fat)"));
        QCOMPARE(again.nutrientList(1)->currentText(), QStringLiteral("Protein"));
        QVERIFY(again.lowButton(0)->isChecked());
        QVERIFY(again.highButton(1)->isChecked());
        QSettings().clear();

        // On the food page, in the Custom Foods list and a group that does not hold it: the page
        // turns to All Foods and all groups, with the apple first, selected and ready to add.
        test::chooseItem(chooser()->groupList(), chooser()->groupList()->findData(100));
        chooseMode(food::FoodListMode::Custom);
        m_page->showFood(9003);
        QVERIFY(chooser()->modeButton(food::FoodListMode::All)->isChecked());
        QCOMPARE(chooser()->groupList()->currentText(), QStringLiteral(" <All Groups>"));
        QCOMPARE(chooser()->searchBox()->text(), QStringLiteral("Apples, raw, with skin"));
        QCOMPARE(chooser()->foodList()->currentRow(), 0);
        QCOMPARE(chooser()->selectedFood()->number, 9003);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(m_page->mealList()->count(), 1);
    }

    void detailsOfAHighProteinFood()
    {
        food::FoodDetailsDialog egg(*m_context, 1123);
        QCOMPARE(egg.nutrientList()->topLevelItemCount(),
                 int(m_context->m_store.foods.catalogue().entries().size()));
        // The essential amino acids, the food's against the ideal protein's (51 x 1.3, truncated).
        QCOMPARE(egg.chart()->categories().size(), 9);
        QCOMPARE(egg.chart()->seriesName(1), QStringLiteral("Ideal Protein"));
        QCOMPARE(egg.chart()->value(1, 6), 51.0);
        QCOMPARE(egg.chart()->value(0, 6), 66.0);
        QCOMPARE(egg.chart()->title(), QStringLiteral("Protein Quality Comparison"));
        QCOMPARE(egg.sentenceLabel()->text(),
                 QStringLiteral("This foods protein is 100.0 % complete."));
        QCOMPARE(egg.nutrientList()->headerItem()->text(1), QStringLiteral("Value per 100 g"));

        food::FoodDetailsDialog oil(*m_context, 4053);
        QVERIFY(oil.chart()->isEmpty());
        QVERIFY(oil.sentenceLabel()->isHidden());
        food::FoodDetailsDialog sandwich(*m_context, 70000);
        QCOMPARE(sandwich.sourceLabel()->text(), QStringLiteral("Source: User defined"));
        QCOMPARE(sandwich.nutrientList()->headerItem()->text(1),
                 QStringLiteral("Value per serving"));

        // Double-clicking a meal entry opens the details of its food.
        mealHolds(0, {{9003, 1.0f}});
        test::ModalScript script;
        script.expect(QStringLiteral("Food Details"), [](QWidget* w) {
            QCOMPARE(static_cast<food::FoodDetailsDialog*>(w)->nameLabel()->text(),
                     QStringLiteral("Apples, raw, with skin"));
            static_cast<QDialog*>(w)->accept();
        });
        doubleClick(m_page->mealList(),
                    m_page->mealList()->visualItemRect(m_page->mealList()->item(0)));
        QVERIFY(script.finished());
    }
};

QTEST_MAIN(FoodPageTest)
#include "test_food_page.moc"
