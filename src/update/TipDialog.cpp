// The tip-of-the-day dialog.

#include "update/TipDialog.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "ui/SettingsKeys.h"

namespace velmora::update {

QString TipDialog::defaultTipsPath()
{
    // Beside the program first, then in the installed share folder ("../share/velmora").
    const QDir programDir(QCoreApplication::applicationDirPath());
    const QString beside = programDir.filePath(QStringLiteral("tips.txt"));
    const QString installed =
        QDir::cleanPath(programDir.filePath(QStringLiteral("../share/velmora/tips.txt")));
    return QFileInfo::exists(beside) || !QFileInfo::exists(installed) ? beside : installed;
}

bool TipDialog::showAtStartUp()
{
    return QSettings().value(ui::settings::TipStartUp, true).toBool();
}

TipDialog::TipDialog(QWidget* parent, const QString& tipsPath) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Tip of the Day"));
    setObjectName(QStringLiteral("tipDialog"));

    const QString path = tipsPath.isEmpty() ? defaultTipsPath() : tipsPath;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            if (!line.trimmed().isEmpty())
                m_tips.append(line.trimmed());
        }
    }

    // An edited tips file starts again from its first tip.
    QSettings settings;
    const QString stamp = QFileInfo(path).lastModified().toString(Qt::ISODate);
    if (settings.value(ui::settings::TipTimeStamp).toString() != stamp) {
        settings.setValue(ui::settings::TipTimeStamp, stamp);
        settings.setValue(ui::settings::TipFilePos, 0);
    }
    m_index = settings.value(ui::settings::TipFilePos, 0).toInt();
    if (m_index < 0 || m_index >= m_tips.size())
        m_index = 0;

    auto* layout = new QVBoxLayout(this);
    auto* heading = new QLabel(QStringLiteral("Did you know..."), this);
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.3);
    heading->setFont(font);
    layout->addWidget(heading);

    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("tipText"));
    m_text->setWordWrap(true);
    m_text->setMinimumSize(380, 90);
    m_text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_text->setFrameShape(QFrame::StyledPanel);
    m_text->setMargin(10);
    layout->addWidget(m_text, 1);

    auto* row = new QHBoxLayout;
    m_startUp = new QCheckBox(QStringLiteral("Show Tips on StartUp"), this);
    m_startUp->setChecked(showAtStartUp());
    row->addWidget(m_startUp);
    row->addStretch();
    auto* next = new QPushButton(QStringLiteral("&Next Tip"), this);
    auto* close = new QPushButton(QStringLiteral("Close"), this);
    close->setDefault(true);
    row->addWidget(next);
    row->addWidget(close);
    layout->addLayout(row);

    connect(next, &QPushButton::clicked, this, &TipDialog::showNextTip);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    next->setEnabled(m_tips.size() > 1);
    m_text->setText(hasTips() ? currentTip()
                              : QStringLiteral("No tips were found beside the program."));
}

QString TipDialog::currentTip() const
{
    return m_tips.isEmpty() ? QString() : m_tips.at(m_index);
}

void TipDialog::showNextTip()
{
    if (m_tips.isEmpty())
        return;
    m_index = (m_index + 1) % m_tips.size();
    m_text->setText(currentTip());
}

void TipDialog::done(int result)
{
    // The next opening shows the tip after the one seen last.
    QSettings settings;
    if (!m_tips.isEmpty())
        settings.setValue(ui::settings::TipFilePos, (m_index + 1) % m_tips.size());
    settings.setValue(ui::settings::TipStartUp, m_startUp->isChecked());
    QDialog::done(result);
}

} // namespace velmora::update
