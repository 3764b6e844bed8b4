// The page host on the right of the main window.

#include "app/PageHost.h"

#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/AppContext.h"
#include "app/Page.h"
#include "app/PageFactory.h"
#include "model/Store.h"

namespace velmora::app {

PageHost::PageHost(AppContext& context, QWidget* parent) : QWidget(parent), m_context(context)
{
    setObjectName(QStringLiteral("pageHost"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_stack = new QStackedWidget(this);
    layout->addWidget(m_stack);
    for (int k = 0; k < PageCount; ++k) {
        // Pages larger than the window scroll.
        auto* scroll = new QScrollArea(m_stack);
        scroll->setWidgetResizable(true);
        scroll->setFrameShape(QFrame::NoFrame);
        Page* page = createPage(k, context, scroll);
        scroll->setWidget(page);
        m_pages.push_back(page);
        m_stack->addWidget(scroll);
    }
}

Page* PageHost::page(int k) const
{
    return k >= 0 && k < static_cast<int>(m_pages.size()) ? m_pages[static_cast<std::size_t>(k)]
                                                          : nullptr;
}

void PageHost::showPage(int k)
{
    if (!page(k))
        return;
    m_stack->setCurrentIndex(k);
    m_current = k;
    page(k)->setFocus(Qt::OtherFocusReason);
}

void PageHost::refreshAll()
{
    m_context.store().normalise();
    for (int k : {1, 0, 2, 4, 3}) {
        if (Page* p = page(k))
            p->refreshPage();
    }
    // The graphs page brings itself up to date as it comes into view; while in view it follows
    // the others.
    if (m_current == 5)
        page(5)->refreshPage();
}

void PageHost::storeCurrent()
{
    if (Page* p = currentPage())
        p->storePage();
}

} // namespace velmora::app
