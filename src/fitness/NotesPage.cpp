#include "fitness/NotesPage.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/DateLimits.h"
#include "ui/AppContext.h"
#include "fitness/FitnessText.h"
#include "fitness/logic/JournalNotes.h"
#include "model/FitnessJournalEdits.h"
#include "model/Store.h"
#include "ui/Messages.h"

namespace velmora::fitness {

namespace {
constexpr int DayRole = Qt::UserRole;
}

NotesPage::NotesPage(ui::AppContext& context, QWidget* parent) : ui::Page(context, parent)
{
    m_date = new QDateEdit(QDate::currentDate(), this);
    m_date->setObjectName(QStringLiteral("notesDate"));
    m_date->setCalendarPopup(true);
    ui::limitToStorableDates(m_date);
    m_category = new QComboBox(this);
    m_category->setObjectName(QStringLiteral("noteCategory"));
    for (const char* name : model::NoteCategoryNames)
        m_category->addItem(QString::fromLatin1(name));
    m_category->setCurrentIndex(DefaultNoteCategory);
    m_clear = new QPushButton(QStringLiteral("Clear Entry"), this);
    m_clear->setObjectName(QStringLiteral("clearEntry"));
    m_note = new QPlainTextEdit(this);
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setTabChangesFocus(true);
    m_previous = new QListWidget(this);
    m_previous->setObjectName(QStringLiteral("previousEntries"));
    m_previous->setMinimumWidth(110);
    m_previous->setMaximumWidth(200);

    auto* top = new QHBoxLayout;
    top->addWidget(m_date);
    auto* categoryLabel = new QLabel(QStringLiteral("&Category:"), this);
    categoryLabel->setBuddy(m_category);
    top->addWidget(categoryLabel);
    top->addWidget(m_category);
    top->addWidget(m_clear);
    top->addStretch();
    auto* left = new QVBoxLayout;
    left->addLayout(top);
    left->addWidget(m_note, 1);
    auto* right = new QVBoxLayout;
    auto* previousLabel = new QLabel(QStringLiteral("&Previous Entries"), this);
    previousLabel->setBuddy(m_previous);
    right->addWidget(previousLabel);
    right->addWidget(m_previous, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left, 1);
    layout->addLayout(right);

    connect(m_date, &QDateEdit::dateChanged, this, &NotesPage::onDateOrCategory);
    connect(m_category, &QComboBox::currentIndexChanged, this, &NotesPage::onDateOrCategory);
    connect(m_previous, &QListWidget::itemActivated, this, &NotesPage::onPreviousEntry);
    connect(m_previous, &QListWidget::itemClicked, this, &NotesPage::onPreviousEntry);
    connect(m_clear, &QPushButton::clicked, this, &NotesPage::onClear);
    connect(m_note, &QPlainTextEdit::textChanged, this,
            [this] { m_clear->setEnabled(!m_note->toPlainText().isEmpty()); });

    m_shownDate = fromQDate(m_date->date());
    m_shownCategory = m_category->currentIndex();
    refreshPage();
}

QString NotesPage::pageTitle() const
{
    return QStringLiteral("Journal Notes");
}

void NotesPage::refreshPage()
{
    m_date->setDisplayFormat(dateFormat(context().store().journal.user.isMetric()));
    showNote(fromQDate(m_date->date()), m_category->currentIndex());
}

void NotesPage::storePage()
{
    if (model::storeNote(context().store().journal, m_shownDate, m_shownCategory,
                         ui::fromQt(m_note->toPlainText())))
        context().notifyChanged(ui::Change::Journal);
}

void NotesPage::showNote(const model::CalendarDate& date, int category)
{
    m_shownDate = date;
    m_shownCategory = category;
    m_showing = true;
    m_date->setDate(toQDate(date));
    m_category->setCurrentIndex(category);
    m_note->setPlainText(ui::toQt(noteOf(context().store().journal, date, category)));
    m_showing = false;
    m_clear->setEnabled(!m_note->toPlainText().isEmpty());
    fillPreviousEntries();
}

void NotesPage::fillPreviousEntries()
{
    const model::UserJournal& journal = context().store().journal;
    const auto days = noteDays(journal, m_shownCategory);
    m_previous->clear();
    for (std::size_t day : days) {
        auto* item = new QListWidgetItem(
            QString::fromUtf8(listDateText(journal.user, journal.days[day].date)), m_previous);
        item->setData(DayRole, static_cast<qulonglong>(day));
    }
    if (const auto line = lineOfDate(journal, days, m_shownDate))
        m_previous->setCurrentRow(static_cast<int>(*line));
}

void NotesPage::onDateOrCategory()
{
    if (m_showing)
        return;
    storePage();
    showNote(fromQDate(m_date->date()), m_category->currentIndex());
}

void NotesPage::onPreviousEntry()
{
    QListWidgetItem* item = m_previous->currentItem();
    if (!item)
        return;
    const model::UserJournal& journal = context().store().journal;
    const auto day = static_cast<std::size_t>(item->data(DayRole).toULongLong());
    if (day >= journal.days.size())
        return;
    const auto date = model::CalendarDate::fromTime(journal.days[day].date);
    if (date == m_shownDate)
        return;
    storePage();
    showNote(date, m_shownCategory);
}

void NotesPage::onClear()
{
    if (ui::confirmDelete(this, ui::MsgDeleteJournalEntry))
        m_note->clear();
}

} // namespace velmora::fitness
