#pragma once

#include <vector>

#include <QWidget>

class QStackedWidget;

namespace velmora::app {

class AppContext;
class Page;

// The six pages in their fixed order (0 food, 1 health, 2 journal list, 3 journal notes,
// 4 fitness log, 5 graphs), one shown at a time.
class PageHost : public QWidget
{
    Q_OBJECT

public:
    static constexpr int PageCount = 6;

    explicit PageHost(AppContext& context, QWidget* parent = nullptr);

    // Hides the current page, shows page k and gives it the keyboard focus.
    void showPage(int k);
    int currentIndex() const { return m_current; }
    Page* page(int k) const;
    Page* currentPage() const { return page(m_current); }

    // Normalises the store, then refreshes pages 1, 0, 2, 4 and 3 (the graphs page is not
    // refreshed).
    void refreshAll();
    // Asks the current page to write its values into the store.
    void storeCurrent();

private:
    AppContext& m_context;
    QStackedWidget* m_stack = nullptr;
    std::vector<Page*> m_pages;
    int m_current = -1;
};

} // namespace velmora::app
