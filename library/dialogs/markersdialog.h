#pragma once

#include "songfile/songinfo.h"

#include <QAbstractItemDelegate>
#include <QDialog>
#include <QList>

#include <memory>

namespace brisel
{

class MarkersModel;

namespace Ui
{
class MarkersDialog;
}

/// A table of the markers of one song, in which they are added, changed and removed.
class MarkersDialog : public QDialog
{
    Q_OBJECT

public:
    /// \a isWritable: false for a song whose markers can only be shown; the dialog says why.
    MarkersDialog(const QList<Marker> &markers, bool isWritable, QWidget *parent = nullptr);
    ~MarkersDialog() override;

    /// In the order of their bars.
    const QList<Marker> &markers() const;

public slots:
    /// Stays open if the content of the open editor is refused.
    void accept() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_addPushButton_clicked();
    void on_removePushButton_clicked();

private:
    enum class Hint { Nothing, NotWritable, BadBar, BadText };

    void connectTable();
    void forgetRefusal();
    void onEditorClosed(QWidget *editor, QAbstractItemDelegate::EndEditHint hint);
    void show(Hint hint);
    void updateButtons();

    std::unique_ptr<Ui::MarkersDialog> m_ui;
    MarkersModel *m_model;
    const bool m_isWritable;
    bool m_isRefused = false; ///< the text of the open editor, or the one that was left for OK
    Hint m_hint = Hint::Nothing;
};

} // namespace brisel
