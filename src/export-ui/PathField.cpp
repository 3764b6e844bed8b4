#include "export-ui/PathField.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace velmora::exchange {

PathField::PathField(Kind kind, const QString& caption, const QString& filter, QWidget* parent)
    : QWidget(parent), m_kind(kind), m_caption(caption), m_filter(filter)
{
    m_edit = new QLineEdit(this);
    m_edit->setMinimumWidth(320);
    m_edit->setClearButtonEnabled(true);
    m_browse = new QPushButton(QStringLiteral("Browse..."), this);
    m_browse->setObjectName(QStringLiteral("browse"));
    m_browse->setAutoDefault(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_browse);
    setFocusProxy(m_edit);

    connect(m_browse, &QPushButton::clicked, this, &PathField::browse);
    connect(m_edit, &QLineEdit::textEdited, this, &PathField::edited);
}

QString PathField::text() const
{
    return m_edit->text();
}

void PathField::setText(const QString& text)
{
    m_edit->setText(text);
}

QString PathField::absoluteText() const
{
    QString text = m_edit->text().trimmed();
    if (text.isEmpty())
        return text;
    if (text == QLatin1String("~") || text.startsWith(QLatin1String("~/")))
        text = QDir::homePath() + text.mid(1);
    return QDir::cleanPath(QDir::home().absoluteFilePath(text));
}

std::filesystem::path PathField::path() const
{
    return std::filesystem::path(absoluteText().toStdU16String());
}

void PathField::browse()
{
    const QString start = absoluteText().isEmpty() ? QDir::homePath() : absoluteText();
    const QString picked = m_kind == Kind::Folder
                               ? QFileDialog::getExistingDirectory(this, m_caption, start)
                               : QFileDialog::getOpenFileName(this, m_caption, start, m_filter);
    if (picked.isEmpty())
        return;
    m_edit->setText(QDir::toNativeSeparators(picked));
    emit edited();
    emit chosen();
}

QString pathText(const std::filesystem::path& path)
{
    return QDir::toNativeSeparators(QString::fromStdU16String(path.u16string()));
}

} // namespace velmora::exchange
