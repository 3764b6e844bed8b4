#pragma once

#include <array>

#include <QWidget>

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
        int commandId; // the button's command number
        int page;      // the page of the page host it shows
        const char* caption;
        const char* icon; // resource path
    };
    // Top to bottom.
    static const std::array<Button, 6> Buttons;

    explicit LeftForm(QWidget* parent = nullptr);

    // Selects the button of a page (without emitting pageRequested).
    void selectPage(int page);
    // The page whose button is selected, or -1.
    int selectedPage() const;
    QToolButton* buttonForCommand(int commandId) const;

signals:
    void pageRequested(int page);

private:
    QButtonGroup* m_group = nullptr;
};

} // namespace velmora::app
