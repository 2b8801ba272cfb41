#include "library/dialogs/markersdialog.h"

#include "library/dialogs/markerdelegate.h"
#include "library/dialogs/markersmodel.h"
#include "songfile/rawmidifile.h"

#include "ui_markersdialog.h"

#include <QEvent>
#include <QShortcut>

#include <algorithm>
#include <limits>
#include <utility>

namespace brisel
{

MarkersDialog::MarkersDialog(const QList<Marker> &markers, bool isWritable, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::MarkersDialog>()),
      m_model(new MarkersModel(markers, isWritable, this)), m_isWritable(isWritable)
{
    m_ui->setupUi(this);
    connectTable();
    if (!markers.isEmpty())
        m_ui->markersTableView->setCurrentIndex(m_model->index(0, MarkersModel::Bar));
    m_ui->addPushButton->setEnabled(isWritable);
    m_ui->okPushButton->setEnabled(isWritable);
    m_ui->markersTableView->setFocus();
    show(isWritable ? Hint::Nothing : Hint::NotWritable);
    updateButtons();
}

MarkersDialog::~MarkersDialog() = default;

const QList<Marker> &MarkersDialog::markers() const
{
    return m_model->markers();
}

void MarkersDialog::connectTable()
{
    QTableView *table = m_ui->markersTableView;
    auto *delegate = new MarkerDelegate(this);
    table->setModel(m_model);
    table->setItemDelegate(delegate);
    table->horizontalHeader()->setSectionResizeMode(MarkersModel::Text, QHeaderView::Stretch);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MarkersDialog::updateButtons);
    connect(delegate, &MarkerDelegate::started, this, [this] {
        m_isRefused = false;
        show(Hint::Nothing);
    });
    connect(delegate, &MarkerDelegate::inputRefused, this, [this](int column) {
        show(column == MarkersModel::Bar ? Hint::BadBar : Hint::BadText);
    });
    connect(delegate, &MarkerDelegate::textRefused, this, [this] {
        m_isRefused = true;
        show(Hint::BadText);
    });
    connect(delegate, &MarkerDelegate::commitData, this, &MarkersDialog::forgetRefusal);
    connect(delegate, &MarkerDelegate::closeEditor, this, &MarkersDialog::onEditorClosed);
    auto *remove = new QShortcut(Qt::Key_Delete, table);
    remove->setContext(Qt::WidgetShortcut); // not in an editor of a cell
    connect(remove, &QShortcut::activated, m_ui->removePushButton, &QPushButton::click);
}

/// A refused text was corrected, or taken back.
void MarkersDialog::forgetRefusal()
{
    if (std::exchange(m_isRefused, false))
        show(Hint::Nothing);
}

/// A refused text that is left is dropped: the hint stays, and the dialog, if it was left for OK.
void MarkersDialog::onEditorClosed(QWidget * /*editor*/, QAbstractItemDelegate::EndEditHint hint)
{
    if (hint != QAbstractItemDelegate::NoHint)
        forgetRefusal();
    else if (!m_ui->okPushButton->hasFocus())
        m_isRefused = false;
}

void MarkersDialog::accept()
{
    m_ui->okPushButton->setFocus(); // ends an edit that is under way
    if (std::exchange(m_isRefused, false))
        m_ui->markersTableView->setFocus();
    else
        QDialog::accept();
}

void MarkersDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        show(m_hint);
    }
}

void MarkersDialog::on_addPushButton_clicked()
{
    QTableView *table = m_ui->markersTableView;
    const int row = m_model->addAfter(table->currentIndex().row());
    table->setCurrentIndex(m_model->index(row, MarkersModel::Bar));
    const QModelIndex text = m_model->index(row, MarkersModel::Text);
    table->setCurrentIndex(text);
    table->edit(text);
}

void MarkersDialog::on_removePushButton_clicked()
{
    QTableView *table = m_ui->markersTableView;
    QList<int> rows;
    for (const QModelIndex &index : table->selectionModel()->selectedRows())
        rows.append(index.row());
    if (rows.isEmpty())
        return;
    const int first = *std::min_element(rows.cbegin(), rows.cend());
    m_model->removeMarkers(rows);
    const int next = std::min(first, m_model->rowCount() - 1);
    if (next >= 0)
        table->setCurrentIndex(m_model->index(next, MarkersModel::Bar));
    table->setFocus();
    updateButtons();
}

void MarkersDialog::updateButtons()
{
    m_ui->removePushButton->setEnabled(m_isWritable &&
                                       m_ui->markersTableView->selectionModel()->hasSelection());
}

void MarkersDialog::show(Hint hint)
{
    m_hint = hint;
    QString text;
    if (hint == Hint::NotWritable)
        text =
            tr("In questa song i marker stanno dove il programma non può riscriverli: si possono "
               "solo guardare.");
    else if (hint == Hint::BadBar)
        text = tr("La battuta di un marker va da 0 a %1.").arg(std::numeric_limits<quint16>::max());
    else if (hint == Hint::BadText)
        text = tr("Il testo di un marker ha al massimo %1 caratteri, solo dell'alfabeto "
                  "dell'Europa occidentale.")
                   .arg(RawMidiFile::maxMarkerText);
    m_ui->hintLabel->setText(text);
    m_ui->hintLabel->setVisible(hint != Hint::Nothing);
    m_ui->markersTableView->setAccessibleDescription(
        hint == Hint::Nothing ? m_ui->markersTableView->toolTip() : text);
}

} // namespace brisel
