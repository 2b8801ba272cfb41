#pragma once

#include <QDialog>

#include <memory>

namespace brisel
{

class SongRename;

namespace Ui
{
class RenameSongDialog;
}

/// Asks for the new name of a song on a memory, and shows while it is typed why it is not possible.
class RenameSongDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a rename must outlive this.
    explicit RenameSongDialog(const SongRename &rename, QWidget *parent = nullptr);
    ~RenameSongDialog() override;

    /// The typed name without the suffix, which is possible after an accepted exec().
    QString base() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_nameLineEdit_textChanged() { showProblem(); }
    void on_renamePushButton_clicked() { accept(); }
    void on_cancelPushButton_clicked() { reject(); }

private:
    void showProblem();

    const SongRename &m_rename;
    std::unique_ptr<Ui::RenameSongDialog> m_ui;
};

} // namespace brisel
