#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;

namespace velmora::model {
class Store;
}

namespace velmora::app {

// "Options": delete confirmations, metric units, the number of days in lists and the tips at
// start-up. The controls are written back only on "OK"; the caller then refreshes all pages.
class OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    // Entries of the days list: "1" to "1067".
    static constexpr int MaxDaysInLists = 1067;

    explicit OptionsDialog(model::Store& store, QWidget* parent = nullptr);

    void accept() override;

private:
    model::Store& m_store;
    QCheckBox* m_confirmations = nullptr;
    QCheckBox* m_metric = nullptr;
    QComboBox* m_days = nullptr;
    QCheckBox* m_tips = nullptr;
};

} // namespace velmora::app
