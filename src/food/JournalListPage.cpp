#include "food/JournalListPage.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include <QDateTime>
#include <QFont>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "ui/AppContext.h"
#include "food/ChooseColumnsDialog.h"
#include "food/logic/JournalRows.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "ui/Messages.h"
#include "ui/QtText.h"
#include "model/Clock.h"
#include "model/ProfileEdits.h"

namespace velmora::food {

using ui::nutrientName;

namespace {

constexpr int DayRole = Qt::UserRole;
constexpr int MealRole = Qt::UserRole + 1;
constexpr int EntryRole = Qt::UserRole + 2;
constexpr int DefaultFirstColumnWidth = 300;

JournalRowRef refOf(const QTreeWidgetItem* item)
{
    JournalRowRef ref;
    ref.day = item->data(0, DayRole).toULongLong();
    ref.meal = item->data(0, MealRole).toInt();
    ref.entry = item->data(0, EntryRole).toInt();
    return ref;
}

} // namespace

JournalListPage::JournalListPage(ui::AppContext& context, QWidget* parent)
    : ui::Page(context, parent)
{
    m_tree = new QTreeWidget(this);
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->setAlternatingRowColors(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setRootIsDecorated(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionsMovable(false);

    m_delete = new QPushButton(QStringLiteral("Delete..."), this);
    m_columns = new QPushButton(QStringLiteral("Columns..."), this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_delete);
    buttons->addWidget(m_columns);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree, 1);
    layout->addLayout(buttons);

    connect(m_delete, &QPushButton::clicked, this, &JournalListPage::onDelete);
    connect(m_columns, &QPushButton::clicked, this, &JournalListPage::onColumns);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &JournalListPage::updateButtons);
    connect(m_tree->header(), &QHeaderView::sectionResized, this,
            &JournalListPage::onSectionResized);
    m_tree->viewport()->installEventFilter(this);
    auto* deleteKey =
        new QShortcut(QKeySequence::Delete, m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &JournalListPage::onDelete);

    rebuild();
}

void JournalListPage::refreshPage()
{
    rebuild();
}

void JournalListPage::storePage()
{
    // Deletions and column choices are written into the store as they happen.
}

QString JournalListPage::pageTitle() const
{
    return QStringLiteral("Journal List");
}

void JournalListPage::setUpColumns()
{
    const model::Store& store = context().store();
    const model::User& user = store.journal.user;
    const auto columns = activeColumns(user);
    QStringList headers{QStringLiteral("Date")};
    for (model::NutrientId n : columns)
        headers << nutrientName(store, n);
    m_tree->setColumnCount(static_cast<int>(headers.size()));
    m_tree->setHeaderLabels(headers);
    const QFontMetrics metrics(m_tree->header()->font());
    for (int c = 0; c < headers.size(); ++c) {
        const int saved = user.listColumnWidths[static_cast<std::size_t>(c)];
        int width = saved;
        if (width <= 0)
            width = c == 0 ? DefaultFirstColumnWidth
                           : std::max(70, metrics.horizontalAdvance(headers[c]) + 24);
        m_tree->setColumnWidth(c, width);
        if (c > 0)
            m_tree->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void JournalListPage::rebuild()
{
    m_building = true;
    // Keep the selected row's place across the rebuild where it still exists.
    std::optional<JournalRowRef> selected;
    if (const auto items = m_tree->selectedItems(); !items.isEmpty())
        selected = refOf(items.front());

    m_tree->clear();
    setUpColumns();
    const model::Store& store = context().store();
    const auto rows = buildJournalRows(store, model::now());

    QFont dayFont = m_tree->font();
    dayFont.setBold(true);
    QTreeWidgetItem* day = nullptr;
    QTreeWidgetItem* meal = nullptr;
    QTreeWidgetItem* toSelect = nullptr;
    QList<QTreeWidgetItem*> days;
    for (const JournalRow& row : rows) {
        QTreeWidgetItem* item = nullptr;
        switch (row.level) {
        case RowLevel::Day:
            item = new QTreeWidgetItem;
            days << item;
            day = item;
            break;
        case RowLevel::Meal:
            item = new QTreeWidgetItem(day);
            meal = item;
            break;
        case RowLevel::Food:
            item = new QTreeWidgetItem(meal);
            break;
        }
        item->setText(0, QString::fromStdString(row.label));
        item->setToolTip(0, item->text(0));
        for (std::size_t c = 0; c < row.values.size(); ++c) {
            const int column = static_cast<int>(c) + 1;
            item->setText(column, QString::fromStdString(columnValueText(row.values[c])));
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        }
        if (row.level == RowLevel::Day)
            for (int c = 0; c < m_tree->columnCount(); ++c)
                item->setFont(c, dayFont);
        item->setData(0, DayRole, static_cast<qulonglong>(row.ref.day));
        item->setData(0, MealRole, row.ref.meal);
        item->setData(0, EntryRole, row.ref.entry);
        if (selected && *selected == row.ref)
            toSelect = item;
    }
    m_tree->addTopLevelItems(days);
    m_tree->expandAll();
    if (toSelect != nullptr)
        m_tree->setCurrentItem(toSelect);
    m_building = false;
    fitFirstColumn();
    updateButtons();
}

void JournalListPage::showEvent(QShowEvent* event)
{
    ui::Page::showEvent(event);
    // The food page and the health pages edit the days this list sums up: coming into view it is
    // built again from the store, keeping the selected row where it still exists.
    if (!event->spontaneous())
        rebuild();
}

bool JournalListPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_tree->viewport() && event->type() == QEvent::Resize)
        fitFirstColumn();
    return ui::Page::eventFilter(watched, event);
}

void JournalListPage::fitFirstColumn()
{
    if (context().store().journal.user.listColumnWidths[0] > 0)
        return;
    int others = 0;
    for (int c = 1; c < m_tree->columnCount(); ++c)
        others += m_tree->columnWidth(c);
    const int width = std::max(DefaultFirstColumnWidth, m_tree->viewport()->width() - others);
    m_building = true;
    m_tree->setColumnWidth(0, width);
    m_building = false;
}

void JournalListPage::onDelete()
{
    const auto items = m_tree->selectedItems();
    if (items.isEmpty())
        return;
    const JournalRowRef ref = refOf(items.front());
    if (!ui::confirmDelete(this, ui::MsgDeleteJournalListItem))
        return;
    m_tree->clearSelection();
    if (deleteJournalItem(context().store().journal, ref))
        context().notifyChanged(ui::Change::Journal);
    rebuild();
}

void JournalListPage::onColumns()
{
    model::Store& store = context().store();
    std::vector<std::pair<QString, int>> items;
    const auto& catalogue = store.foods.catalogue();
    for (const model::NutrientDef& def : catalogue.entries())
        items.emplace_back(ui::toQt(def.name), def.number);
    model::User& user = store.journal.user;
    std::array<int, 10> chosen{};
    std::copy(user.listColumns.begin(), user.listColumns.end(), chosen.begin());
    ChooseColumnsDialog dialog(items, chosen, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    model::setListColumns(user, chosen);
    context().notifyChanged(ui::Change::Profile);
    rebuild();
}

void JournalListPage::onSectionResized(int column, int, int newSize)
{
    if (m_building || column < 0 ||
        column >= static_cast<int>(std::tuple_size_v<decltype(model::User::listColumnWidths)>))
        return;
    model::setListColumnWidth(context().store().journal.user, static_cast<std::size_t>(column),
                              newSize);
    context().notifyChanged(ui::Change::Profile);
}

void JournalListPage::updateButtons()
{
    m_delete->setEnabled(!m_tree->selectedItems().isEmpty());
}

} // namespace velmora::food
