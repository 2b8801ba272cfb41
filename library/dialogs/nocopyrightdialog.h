#pragma once

#include "base/run.h"

#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class NoCopyrightDialog;
}

/// The program's one yes / yes-to-all / no / no-to-all question about a file. exec() returns a
/// Run::Answer.
class NoCopyrightDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NoCopyrightDialog(QWidget *parent = nullptr);
    ~NoCopyrightDialog() override;

    /// Asks about the file \a path in a dialog over \a parent. With an empty \a message the preset
    /// one is used. \a whenClosed: see setAnswerWhenClosed().
    [[nodiscard]] static Run::Answer ask(QWidget *parent, const QString &path,
                                         const QString &message,
                                         Run::Answer whenClosed = Run::Answer::Yes);

    void setFilename(const QString &fileName);
    /// Replaces the preset message, that the publisher did not publish the song.
    void setMessage(const QString &message);
    /// Hides (true) or shows the two "tutti" buttons.
    void setYesNoOnly(bool on);
    /// The answer if the dialog is closed, initially Yes; its button becomes the default. Yes or
    /// No.
    void setAnswerWhenClosed(Run::Answer answer);
    void reject() override { done(static_cast<int>(m_whenClosed)); }

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_yesPushButton_clicked() { done(static_cast<int>(Run::Answer::Yes)); }
    void on_yesAllPushButton_clicked() { done(static_cast<int>(Run::Answer::YesToAll)); }
    void on_noPushButton_clicked() { done(static_cast<int>(Run::Answer::No)); }
    void on_noAllPushButton_clicked() { done(static_cast<int>(Run::Answer::NoToAll)); }

private:
    void showTexts();

    std::unique_ptr<Ui::NoCopyrightDialog> m_ui;
    QString m_fileName;
    QString m_message;
    Run::Answer m_whenClosed = Run::Answer::Yes;
};

} // namespace brisel
