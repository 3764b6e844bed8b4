#pragma once

#include <array>

#include <QWidget>

#include "ui/PageId.h"

class QScrollArea;
class QStackedWidget;

namespace velmora::ui {
class AppContext;
class Page;
} // namespace velmora::ui

namespace velmora::app {

// The six pages in their fixed order, one shown at a time. A page is created when it is first
// shown (or first asked for), so that start-up builds only the page it shows.
class PageHost : public QWidget
{
    Q_OBJECT

public:
    explicit PageHost(ui::AppContext& context, QWidget* parent = nullptr);

    // Hides the current page, shows the page (creating it the first time) and gives it the
    // keyboard focus.
    void showPage(ui::PageId id);
    ui::PageId current() const { return m_current; }
    int currentIndex() const { return ui::pageIndex(m_current); }
    // The page, created if it did not exist yet; a page created after the first refreshAll() is
    // refreshed at once.
    ui::Page* page(ui::PageId id);
    ui::Page* currentPage() { return page(m_current); }
    // True once the page exists.
    bool created(ui::PageId id) const { return m_pages[slot(id)] != nullptr; }

    // Normalises the store, then refreshes the pages that exist in the order of RefreshOrder.
    void refreshAll();
    // Asks the current page to write its values into the store.
    void storeCurrent();

private:
    static std::size_t slot(ui::PageId id) { return static_cast<std::size_t>(id); }

    ui::AppContext& m_context;
    QStackedWidget* m_stack = nullptr;
    std::array<QScrollArea*, ui::PageCount> m_scrolls{};
    std::array<ui::Page*, ui::PageCount> m_pages{};
    ui::PageId m_current = ui::PageId::Food;
    bool m_refreshed = false; // refreshAll() ran: pages created from now on refresh themselves
};

} // namespace velmora::app
