#pragma once

#include <filesystem>

#include <QWidget>

class QLineEdit;
class QPushButton;

namespace velmora::exchange {

// A path typed into a line edit, with a "Browse..." button beside it that opens the file dialog.
// The typed text is what counts: "~" stands for the home folder, and a relative path is taken
// from the home folder, never from wherever the program was started.
class PathField : public QWidget
{
    Q_OBJECT

public:
    enum class Kind
    {
        Folder,  // a folder to write into; it need not exist yet
        OpenFile // an existing file to read
    };

    PathField(Kind kind, const QString& caption, const QString& filter, QWidget* parent = nullptr);

    QString text() const;
    void setText(const QString& text);
    // The path of the text; empty when the text is blank.
    std::filesystem::path path() const;
    // The same path as the user would read it.
    QString absoluteText() const;

    QLineEdit* lineEdit() const { return m_edit; }

signals:
    // A path was chosen with "Browse...". (Return is left to the dialog's default button.)
    void chosen();
    // The text was changed by typing or by "Browse...".
    void edited();

private:
    void browse();

    Kind m_kind;
    QString m_caption;
    QString m_filter;
    QLineEdit* m_edit = nullptr;
    QPushButton* m_browse = nullptr;
};

// The text of a path for messages.
QString pathText(const std::filesystem::path& path);

} // namespace velmora::exchange
