#pragma once

#include <array>
#include <memory>

#include <QDialog>

class QButtonGroup;
class QListWidget;
class QPushButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

class DetailsListEditor;

// "Configure Displays": what the food page's two macronutrient pies show and which nutrients its
// details list shows, in order. OK writes both into the current user's record.
class ConfigureDisplaysDialog : public QDialog
{
    Q_OBJECT

public:
    ConfigureDisplaysDialog(ui::AppContext& context, QWidget* parent = nullptr);
    ~ConfigureDisplaysDialog() override;

    void accept() override;

private:
    void fillList();
    void onAdd();
    void onRemove();
    void onMove(bool up);
    void updateButtons();

    ui::AppContext& m_context;
    std::unique_ptr<DetailsListEditor> m_editor;
    std::array<QButtonGroup*, 2> m_pies{};
    QListWidget* m_list = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
};

} // namespace velmora::food
