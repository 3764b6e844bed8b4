// The food page's word search as a user meets it: the drop-down of suggestions while typing,
// chosen with the mouse or the keys, the results that follow the substring search, and the
// grams and ounces of the measure list.

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "controls/AmountSpinBox.h"
#include "food/FoodChooser.h"
#include "food/FoodPage.h"
#include "food/SuggestionList.h"
#include "model/Clock.h"
#include "model/Store.h"
#include "test_app_support.h"
#include "GuiTestSupport.h"

using namespace velmora;
using test::FoodBuilder;

namespace {

const std::vector<model::NutrientDef>& catalogue()
{
    static const std::vector<model::NutrientDef> c = test::standardCatalogue();
    return c;
}

constexpr std::int32_t Dairy = 100;
constexpr std::int32_t Fruit = 900;

void fillStore(model::Store& s)
{
    s.foods.setCatalogue(catalogue());
    s.foods.catalogue().appendComputed();
    s.foods.addGroup({Dairy, "Dairy and Egg Products"});
    s.foods.addGroup({300, "Baby Foods"});
    s.foods.addGroup({Fruit, "Fruits and Fruit Juices"});
    const auto add = [&](std::int32_t number, std::int32_t group, const char* name) {
        s.foods.addFood(FoodBuilder(catalogue(), number, name)
                            .group(group)
                            .value(208, 100.0f)
                            .measure(50.0f, "large")
                            .measure(28.35f, "oz"));
    };
    add(1123, Dairy, "Egg, whole, raw, fresh");
    add(1124, Dairy, "Egg, white, raw, fresh");
    add(3041, 300, "Babyfood, fruit, bananas and pears, strained");
    add(8034, 800, "Cereals ready-to-eat, banana nut crunch");
    add(9040, Fruit, "Bananas, raw");
    s.shared.customFoods.push_back(
        FoodBuilder(catalogue(), 70000, "Bananas, raw, with cream").value(208, 300.0f));
}

QStringList rowsOf(const QListWidget* list)
{
    QStringList rows;
    for (int i = 0; i < list->count(); ++i)
        rows << list->item(i)->text();
    return rows;
}

} // namespace

class FoodSuggestionsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { test::usePrivateSettings(m_settings.path()); }

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
        QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    }

    void cleanup()
    {
        m_page.reset();
        m_context.reset();
        m_clock.reset();
    }

    void typingSuggestsAndAClickChooses()
    {
        // The egg white was eaten last week: it leads the raw eggs.
        m_context->m_store.journal.days.push_back(
            test::dayWithMeal(model::CalendarDate{2026, 3, 7}.toTime(), 0, {{1124, 0.3f}}));
        m_page->refreshPage();

        // Words in any order and a plural forgiven, which the substring search cannot do.
        typeInSearchBox(QStringLiteral("raw eggs"));
        QVERIFY(suggestions()->isVisible());
        QCOMPARE(rowsOf(suggestions()), QStringList({QStringLiteral("Egg, white, raw, fresh"),
                                                     QStringLiteral("Egg, whole, raw, fresh")}));
        // It hangs under the box, over the lists, and leaves the keyboard in the box.
        QCOMPARE(suggestions()->mapTo(chooser(), QPoint(0, 0)).y(),
                 chooser()->searchBox()->mapTo(chooser(), QPoint(0, 0)).y() +
                     chooser()->searchBox()->height());
        test::clickRow(suggestions(), 1);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(chooser()->searchBox()));
        QVERIFY(!suggestions()->isVisible());
        QCOMPARE(chooser()->searchBox()->text(), QStringLiteral("Egg, whole, raw, fresh"));
        QCOMPARE(rowsOf(chooser()->foodList()),
                 QStringList({QStringLiteral("Egg, whole, raw, fresh")}));
        QVERIFY(chooser()->selectedFood() && chooser()->selectedFood()->number == 1123);
        QVERIFY(chooser()->addButton()->isEnabled());

        // Ranked by where the words stand, then by length; the chosen group limits database foods,
        // custom foods take part whatever the group.
        typeInSearchBox(QStringLiteral("banana"));
        QCOMPARE(suggestions()->count(), 4);
        QComboBox* groups = chooser()->groupList();
        QTest::mouseClick(groups, Qt::LeftButton); // the drop list opens; the box loses the keys
        QVERIFY(!suggestions()->isVisible());
        QTRY_VERIFY(groups->view()->isVisible());
        QTest::keyClick(groups->view(), Qt::Key_End); // "Fruits and Fruit Juices", the last
        QTest::keyClick(groups->view(), Qt::Key_Return);
        QCOMPARE(groups->currentData().toInt(), Fruit);
        typeInSearchBox(QStringLiteral("banana"));
        QCOMPARE(rowsOf(suggestions()), QStringList({QStringLiteral("Bananas, raw"),
                                                     QStringLiteral("Bananas, raw, with cream")}));
        // Words that no name holds suggest nothing; a blank box neither.
        typeInSearchBox(QStringLiteral("kiwi"));
        QVERIFY(!suggestions()->isVisible());
        typeInSearchBox(QStringLiteral("  "));
        QVERIFY(!suggestions()->isVisible());
    }

    void keysChooseAndEnterStillSearches()
    {
        QLineEdit* box = chooser()->searchBox();
        typeInSearchBox(QStringLiteral("ban"));
        QCOMPARE(rowsOf(suggestions()).value(0), QStringLiteral("Bananas, raw"));
        // Down, Down, Up comes back to the first; Enter chooses it. The substring search of its
        // full name lists the custom food first, yet the food chosen leads the list, selected.
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(suggestions()->currentFood(), 9040);
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!suggestions()->isVisible());
        QCOMPARE(box->text(), QStringLiteral("Bananas, raw"));
        QCOMPARE(rowsOf(chooser()->foodList()),
                 QStringList(
                     {QStringLiteral("Bananas, raw"), QStringLiteral("Bananas, raw, with cream")}));
        QCOMPARE(chooser()->selectedFood()->number, 9040);

        // Escape closes the drop-down and keeps the text.
        typeInSearchBox(QStringLiteral("egg"));
        QVERIFY(suggestions()->isVisible());
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(!suggestions()->isVisible());
        QCOMPARE(box->text(), QStringLiteral("egg"));

        // Enter with no suggestion taken is the search as it always was: custom foods first, then
        // database order, every name holding the text.
        typeInSearchBox(QStringLiteral("banana"));
        QTest::keyClick(box, Qt::Key_Return);
        QVERIFY(!suggestions()->isVisible());
        QCOMPARE(rowsOf(chooser()->foodList()),
                 QStringList({QStringLiteral("Bananas, raw, with cream"),
                              QStringLiteral("Babyfood, fruit, bananas and pears, strained"),
                              QStringLiteral("Cereals ready-to-eat, banana nut crunch"),
                              QStringLiteral("Bananas, raw")}));
        QCOMPARE(chooser()->foodList()->currentRow(), 0);
        // The arrows move in the food list again once the drop-down is closed.
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(chooser()->selectedFood()->number, 3041);
    }

    void wordResultsFollowTheSubstringSearch()
    {
        // "bananas" as typed is in three names; the cereal holds the word without the plural and
        // follows them after a marker row that cannot be chosen.
        typeInSearchBox(QStringLiteral("bananas"));
        QTest::mouseClick(chooser()->searchButton(), Qt::LeftButton);
        QListWidget* foods = chooser()->foodList();
        QCOMPARE(rowsOf(foods), QStringList({QStringLiteral("Bananas, raw, with cream"),
                                             QStringLiteral("Babyfood, fruit, bananas and pears, "
                                                            "strained"),
                                             QStringLiteral("Bananas, raw"),
                                             QStringLiteral("More foods holding every word:"),
                                             QStringLiteral("Cereals ready-to-eat, banana nut "
                                                            "crunch")}));
        test::clickRow(foods, 3);
        QCOMPARE(chooser()->selectedFood()->number, 70000); // the marker takes nothing up
        test::clickRow(foods, 2);
        foods->setFocus();
        QTest::keyClick(foods, Qt::Key_Down); // the keys step over it
        QCOMPARE(chooser()->selectedFood()->number, 8034);

        // The substring search finds nothing, the words do: no message, the first food selected.
        test::ModalScript script;
        typeInSearchBox(QStringLiteral("egg raw"));
        QTest::mouseClick(chooser()->searchButton(), Qt::LeftButton);
        QCOMPARE(rowsOf(foods), QStringList({QStringLiteral("Egg, whole, raw, fresh"),
                                             QStringLiteral("Egg, white, raw, fresh")}));
        QCOMPARE(chooser()->selectedFood()->number, 1123);
        // Only when both find nothing does the search say so.
        script.expect(QStringLiteral("*"),
                      [](QWidget* w) { test::click(w, QStringLiteral("OK")); });
        typeInSearchBox(QStringLiteral("egg kiwi"));
        QTest::mouseClick(chooser()->searchButton(), Qt::LeftButton);
        QVERIFY(script.finished());
        QCOMPARE(script.messages(), QStringList({QStringLiteral("No matches found in database.")}));
        QVERIFY(script.unexpected().isEmpty());
        QCOMPARE(foods->count(), 0);
    }

private:
    food::FoodChooser* chooser() const { return m_page->chooser(); }
    food::SuggestionList* suggestions() const { return chooser()->suggestionList(); }
    void typeInSearchBox(const QString& text)
    {
        QLineEdit* box = chooser()->searchBox();
        QTest::mouseClick(box, Qt::LeftButton);
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_Backspace);
        QTest::keyClicks(box, text);
    }

    QTemporaryDir m_settings;
    std::unique_ptr<model::FixedClock> m_clock;
    std::unique_ptr<test::TestContext> m_context;
    std::unique_ptr<food::FoodPage> m_page;
};

QTEST_MAIN(FoodSuggestionsTest)
#include "test_food_suggestions.moc"
