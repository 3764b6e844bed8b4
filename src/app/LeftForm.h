#pragma once

#include <array>
#include <optional>

#include <QWidget>

#include "ui/PageId.h"

class QButtonGroup;
class QToolButton;

namespace velmora::app {

// The navigation form: six two-state buttons, exactly one of them selected, each showing a page.
class LeftForm : public QWidget
{
    Q_OBJECT

public:
    struct Button
    {
        int commandId;   // the button's command number
        ui::PageId page; // the page of the page host it shows
        const char* caption;
        const char* icon; // resource path
    };
    // Top to bottom.
    static const std::array<Button, 6> Buttons;

    explicit LeftForm(QWidget* parent = nullptr);

    // Selects the button of a page (without emitting pageRequested).
    void selectPage(ui::PageId page);
    // The page whose button is selected, if any.
    std::optional<ui::PageId> selectedPage() const;
    QToolButton* buttonForCommand(int commandId) const;

signals:
    void pageRequested(ui::PageId page);

private:
    QButtonGroup* m_group = nullptr;
};

} // namespace velmora::app
