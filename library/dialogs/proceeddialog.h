#pragma once

#include <QDialog>

#include <memory>

namespace brisel
{

namespace Ui
{
class ProceedDialog;
}

/// The summary after an import, with the offer to synchronise.
class ProceedDialog : public QDialog
{
    Q_OBJECT

public:
    /// The results of exec(). Closing the dialog counts as No.
    enum Answer { No = 0, Yes = 1 };

    explicit ProceedDialog(QWidget *parent = nullptr);
    ~ProceedDialog() override;

    /// Sets the counts of the summary: files that opened, those of the publisher, files that did
    /// not open.
    void setFilesCount(int songs, int publisherSongs, int unknown);

    /// Returns false if the user wants no more messages about copyright.
    bool getShowAgainValue() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_yesPushButton_clicked() { done(Yes); }
    void on_noPushButton_clicked() { done(No); }

private:
    void showSummary();

    std::unique_ptr<Ui::ProceedDialog> m_ui;
    int m_songs = 0;
    int m_publisherSongs = 0;
    int m_unknown = 0;
};

} // namespace brisel
