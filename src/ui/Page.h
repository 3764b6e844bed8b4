#pragma once

#include <QWidget>

namespace velmora::ui {

class AppContext;

// One of the six pages of the page host. A page shows the records of one date; refreshPage()
// reloads its controls from the store, storePage() writes them back.
class Page : public QWidget
{
    Q_OBJECT

public:
    Page(AppContext& context, QWidget* parent = nullptr);

    virtual void refreshPage() = 0;
    virtual void storePage() = 0;
    virtual QString pageTitle() const = 0;

protected:
    AppContext& context() const { return m_context; }

private:
    AppContext& m_context;
};

} // namespace velmora::ui
