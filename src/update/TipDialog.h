#pragma once

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QLabel;

namespace velmora::update {

// The tip of the day: one line of "tips.txt" at a time. The position of the next tip and the
// file's time stamp are kept in the settings ("Tip/FilePos", "Tip/TimeStamp"), so that each start
// shows the next tip and an edited file starts again from the first.
class TipDialog : public QDialog
{
    Q_OBJECT

public:
    // tipsPath defaults to "tips.txt" beside the program.
    explicit TipDialog(QWidget* parent = nullptr, const QString& tipsPath = QString());

    static QString defaultTipsPath();
    // The "Show Tips on StartUp" setting (on by default).
    static bool showAtStartUp();

    bool hasTips() const { return !m_tips.isEmpty(); }
    QString currentTip() const;
    void showNextTip();

protected:
    void done(int result) override;

private:
    QStringList m_tips;
    int m_index = 0;
    QLabel* m_text = nullptr;
    QCheckBox* m_startUp = nullptr;
};

} // namespace velmora::update
