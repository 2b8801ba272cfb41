#include "library/dialogs/markerdelegate.h"

#include "base/songtext.h"
#include "library/dialogs/markersmodel.h"
#include "songfile/rawmidifile.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>
#include <QValidator>

#include <limits>

namespace brisel
{

namespace
{

/// A text that was read may be invalid: as long as it is, each change of it is let through.
class MarkerTextValidator : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &input, int & /*position*/) const override
    {
        return RawMidiFile::isStorable({trimmedSongText(input), 0}) ? Acceptable : Invalid;
    }
};

/// A spin box whose refused input is announced.
class BarBox : public QSpinBox
{
public:
    BarBox(const MarkerDelegate &delegate, QWidget *parent) : QSpinBox(parent)
    {
        setRange(0, std::numeric_limits<quint16>::max());
        setFrame(false);
        connect(lineEdit(), &QLineEdit::inputRejected, &delegate,
                [&delegate] { emit delegate.inputRefused(MarkersModel::Bar); });
    }
};

} // namespace

QWidget *MarkerDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                      const QModelIndex &index) const
{
    emit started();
    const QString name = index.model()->headerData(index.column(), Qt::Horizontal).toString();
    QWidget *editor = nullptr;
    if (index.column() == MarkersModel::Bar) {
        editor = new BarBox(*this, parent);
    } else {
        auto *edit = new QLineEdit(parent);
        edit->setFrame(false);
        edit->setValidator(new MarkerTextValidator(edit));
        connect(edit, &QLineEdit::inputRejected, this,
                [this] { emit inputRefused(MarkersModel::Text); });
        editor = edit;
    }
    editor->setAccessibleName(name);
    editor->setAutoFillBackground(true);
    return editor;
}

bool MarkerDelegate::eventFilter(QObject *object, QEvent *event)
{
    const auto *edit = qobject_cast<QLineEdit *>(object);
    const bool isKey =
        event->type() == QEvent::KeyPress &&
        QList<int>{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab}.contains(
            static_cast<QKeyEvent *>(event)->key());
    const bool isLeft = event->type() == QEvent::FocusOut;
    if (edit != nullptr && !edit->hasAcceptableInput() && (isKey || (isLeft && edit->isModified())))
        emit textRefused();
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace brisel
