#pragma once

#include <QStyledItemDelegate>

namespace brisel
{

/// Edits the cells of MarkersModel. What a song can't hold can't be typed or pasted.
class MarkerDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

signals:
    /// An editor was opened.
    void started() const;
    /// Something was typed or pasted that a cell of \a column can't hold; it is not in the editor.
    void inputRefused(int column) const;
    /// A text with characters that can't be typed, which it had when it was read, is not taken.
    void textRefused() const;
};

} // namespace brisel
