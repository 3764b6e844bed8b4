#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::fitness {

// "Define Fields": the exercise fields (the named values a set records) and their types. What is
// shown is stored on "New", "Done" and when another field is chosen.
class DefineFieldsDialog : public QDialog
{
    Q_OBJECT

public:
    DefineFieldsDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void reject() override; // Escape stores as "Done" does

private:
    void fillNames(int select);
    void showField(int id);
    void storeShown();
    void updateEnabling();

    void onChoice(int index);
    void onNew();
    void onDelete();

    ui::AppContext& m_context;
    QComboBox* m_names = nullptr;
    QComboBox* m_type = nullptr;
    QPushButton* m_delete = nullptr;
    int m_shownId = -1;
    QString m_typed; // the name shown, as typed or chosen
    bool m_enteringNew = false;
};

} // namespace velmora::fitness
