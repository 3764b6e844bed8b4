// The page host on the right of the main window.

#include "app/PageHost.h"

#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/PageFactory.h"
#include "model/Store.h"
#include "ui/AppContext.h"
#include "ui/Page.h"

namespace velmora::app {

PageHost::PageHost(ui::AppContext& context, QWidget* parent) : QWidget(parent), m_context(context)
{
    setObjectName(QStringLiteral("pageHost"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_stack = new QStackedWidget(this);
    layout->addWidget(m_stack);
}

ui::Page* PageHost::page(ui::PageId id)
{
    ui::Page*& page = m_pages[slot(id)];
    if (!page) {
        // Pages larger than the window scroll; the scroll area is made with its page.
        auto* scroll = new QScrollArea(m_stack);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        m_stack->addWidget(scroll);
        m_scrolls[slot(id)] = scroll;
        page = createPage(id, m_context, scroll);
        scroll->setWidget(page);
        if (m_refreshed)
            page->refreshPage();
    }
    return page;
}

void PageHost::showPage(ui::PageId id)
{
    ui::Page* shown = page(id);
    m_stack->setCurrentWidget(m_scrolls[slot(id)]);
    m_current = id;
    shown->setFocus(Qt::OtherFocusReason);
}

void PageHost::refreshAll()
{
    m_refreshed = true;
    m_context.store().normalise();
    for (ui::PageId id : ui::RefreshOrder) {
        if (ui::Page* p = m_pages[slot(id)])
            p->refreshPage();
    }
    // The graphs page brings itself up to date as it comes into view; while in view it follows
    // the others.
    if (m_current == ui::PageId::Graphs)
        if (ui::Page* p = m_pages[slot(ui::PageId::Graphs)])
            p->refreshPage();
}

void PageHost::storeCurrent()
{
    if (ui::Page* p = m_pages[slot(m_current)])
        p->storePage();
}

} // namespace velmora::app
