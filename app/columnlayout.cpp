#include "app/columnlayout.h"

#include "app/columnfitting.h"
#include "base/settings.h"
#include "db/usersongsreltablemodel.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMouseEvent>
#include <QSqlRecord>
#include <QTableView>

#include <algorithm>

namespace brisel
{

static constexpr int largestWidth = 2000; ///< pixels, of a column in a stored state

ColumnLayout::ColumnLayout(QTableView &view, UserSongsRelTableModel &model, QMenu &menu)
    : QObject(&view), m_view(view), m_model(model)
{
    m_columns.append(model.colIdxOutcome());
    for (int column = 1; column < model.colIdxStatus(); ++column) {
        if (column != model.colIdxFilename())
            m_columns.append(column);
    }
    m_columns.append(model.choosableColumns());
    makeActions(menu);

    QHeaderView *header = view.horizontalHeader();
    header->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::sectionResized, this,
            [this](int column, int /*before*/, int width) {
                if (m_isDragging)
                    m_chosenWidths.insert(column, width);
            });
    connect(header, &QHeaderView::sectionHandleDoubleClicked, this,
            [this](int column) { m_chosenWidths.remove(column); });
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(
        header, &QWidget::customContextMenuRequested, &menu,
        [header, &menu](const QPoint &pos) { menu.popup(header->viewport()->mapToGlobal(pos)); });
    connect(
        &model, &QAbstractItemModel::headerDataChanged, this,
        [this](Qt::Orientation /*orientation*/, int first, int last) { retranslate(first, last); });
    showFirst();
}

void ColumnLayout::makeActions(QMenu &menu)
{
    QAction *before = menu.actions().value(0);
    for (const int column : std::as_const(m_columns)) {
        auto *action = new QAction(this);
        action->setObjectName(QStringLiteral("actionColumn_") + nameOf(column));
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, column](bool on) {
            showColumn(column, on);
            updateActions();
        });
        menu.insertAction(before, action);
        m_actions.append(action);
    }
    menu.insertSeparator(before);
    retranslate(0, m_model.columnCount() - 1);
}

/// The columns from \a first to \a last have new headings.
void ColumnLayout::retranslate(int first, int last)
{
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        const int column = m_columns.at(i);
        if (column < first || column > last)
            continue;
        QString heading = m_model.headerData(column, Qt::Horizontal).toString();
        if (heading.isEmpty())
            heading = m_model.headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
        m_actions.at(i)->setText(heading);
        m_actions.at(i)->setToolTip(tr("Mostra o nasconde la colonna \"%1\"").arg(heading));
    }
}

void ColumnLayout::showColumn(int column, bool on)
{
    m_view.setColumnHidden(column, !on);
    if (on && !m_chosenWidths.contains(column))
        fit();
}

/// The last column that is shown can't be hidden.
void ColumnLayout::updateActions()
{
    const auto isShown = [this](int column) { return !m_view.isColumnHidden(column); };
    const auto shown = std::count_if(m_columns.cbegin(), m_columns.cend(), isShown);
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        QAction *action = m_actions.at(i);
        action->setChecked(isShown(m_columns.at(i)));
        action->setEnabled(shown > 1 || !action->isChecked());
    }
}

QString ColumnLayout::nameOf(int column) const
{
    return m_model.record().fieldName(column);
}

void ColumnLayout::fit()
{
    QList<int> columns = m_columns;
    columns.removeIf([this](int column) {
        return m_view.isColumnHidden(column) || m_chosenWidths.contains(column);
    });
    const int outcome = m_model.colIdxOutcome();
    if (columns.removeOne(outcome))
        m_view.setColumnWidth(outcome, m_view.horizontalHeader()->sectionSizeHint(outcome));
    fitColumns(m_view, columns);
    narrowColumns(m_view, columns);
}

void ColumnLayout::reset()
{
    showFirst();
    m_view.horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder); // the order of the import
}

/// The columns of a first start, as wide as their contents.
void ColumnLayout::showFirst()
{
    QHeaderView *header = m_view.horizontalHeader();
    m_chosenWidths.clear();
    for (int place = 0; place < m_columns.size(); ++place) {
        const int column = m_columns.at(place);
        header->moveSection(header->visualIndex(column), place);
        m_view.setColumnHidden(column, m_model.choosableColumns().contains(column));
    }
    updateActions();
    fit();
}

void ColumnLayout::restore(const QSettings &settings)
{
    arrange(Settings::columns.in(settings).toUtf8());
}

void ColumnLayout::arrange(const QByteArray &state)
{
    QHeaderView *header = m_view.horizontalHeader();
    const QJsonObject layout = QJsonDocument::fromJson(state).object();
    QList<int> left = m_columns;
    int place = 0;
    for (const auto &value : layout.value(u"columns").toArray()) {
        const QJsonObject stored = value.toObject();
        const int column = m_model.fieldIndex(stored.value(u"name").toString());
        if (!left.removeOne(column))
            continue;
        header->moveSection(header->visualIndex(column), place++);
        m_view.setColumnHidden(column, !stored.value(u"shown").toBool(true));
        const int width = stored.value(u"width").toInt();
        if (width < header->minimumSectionSize() || width > largestWidth)
            continue;
        m_view.setColumnWidth(column, width);
        m_chosenWidths.insert(column, width);
    }
    if (std::all_of(m_columns.cbegin(), m_columns.cend(),
                    [this](int column) { return m_view.isColumnHidden(column); }))
        reset();
    const int sorted = m_model.fieldIndex(layout.value(u"sorted").toString());
    if (m_columns.contains(sorted))
        header->setSortIndicator(sorted, layout.value(u"descending").toBool() ? Qt::DescendingOrder
                                                                              : Qt::AscendingOrder);
    updateActions();
    fit();
}

void ColumnLayout::store(QSettings &settings) const
{
    const QHeaderView *header = m_view.horizontalHeader();
    QJsonArray columns;
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!m_columns.contains(column))
            continue;
        QJsonObject one{{QStringLiteral("name"), nameOf(column)},
                        {QStringLiteral("shown"), !m_view.isColumnHidden(column)}};
        if (m_chosenWidths.contains(column))
            one.insert(QStringLiteral("width"), m_chosenWidths.value(column));
        columns.append(one);
    }
    QJsonObject layout{{QStringLiteral("columns"), columns}};
    if (const int sorted = header->sortIndicatorSection(); m_columns.contains(sorted)) {
        layout.insert(QStringLiteral("sorted"), nameOf(sorted));
        layout.insert(QStringLiteral("descending"),
                      header->sortIndicatorOrder() == Qt::DescendingOrder);
    }
    const QString state = QString::fromUtf8(QJsonDocument(layout).toJson(QJsonDocument::Compact));
    if (state != Settings::columns.in(settings))
        Settings::columns.store(settings, state);
}

bool ColumnLayout::eventFilter(QObject *watched, QEvent *event)
{
    // The release of the right button goes to the menu that it opens.
    if (event->type() == QEvent::MouseButtonPress)
        m_isDragging = static_cast<const QMouseEvent *>(event)->button() == Qt::LeftButton;
    else if (event->type() == QEvent::MouseButtonRelease)
        m_isDragging = false;
    return QObject::eventFilter(watched, event);
}

} // namespace brisel
