#include "app/songfilter.h"

#include "app/outcomebuttons.h"
#include "base/runguard.h"
#include "db/usersongsreltablemodel.h"

#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>
#include <QTableView>

#include <algorithm>
#include <array>
#include <utility>

namespace brisel
{

namespace
{

/// The fields whose texts are read while the program is idle, a line each. Only the folder's own
/// name is among the lines, so the folder is not one of them.
constexpr std::array linedFields{SongSearch::Field::Title, SongSearch::Field::Artist,
                                 SongSearch::Field::Genre, SongSearch::Field::Author,
                                 SongSearch::Field::FileName};

} // namespace

SongFilter::SongFilter(QLineEdit &field, QTableView &view, UserSongsRelTableModel &model)
    : QObject(&view), m_field(field), m_view(view), m_model(model)
{
    using Field = SongSearch::Field;
    const std::pair<Field, QString> columns[] = {
        {Field::Title, QStringLiteral("title")},   {Field::Artist, QStringLiteral("artist")},
        {Field::Genre, QStringLiteral("genre")},   {Field::Author, QStringLiteral("author")},
        {Field::Folder, QStringLiteral("folder")}, {Field::FileName, QStringLiteral("shortname")},
        {Field::Format, QStringLiteral("type")},   {Field::Key, QStringLiteral("key")},
        {Field::Bpm, QStringLiteral("userbpm")},   {Field::Length, QStringLiteral("length")}};
    for (const auto &[searched, name] : columns)
        m_columns.insert(searched, model.fieldIndex(name));
    constexpr int pause = 20; // milliseconds between two portions of texts
    m_reading.setInterval(pause);
    connect(&m_reading, &QTimer::timeout, this, &SongFilter::readSomeTexts);
    forgetTexts();
    readOutcomeWords();
    field.installEventFilter(this);
    connect(&field, &QLineEdit::textChanged, this, &SongFilter::search);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_isOutdated = true; });
    connect(&model, &QAbstractItemModel::modelReset, this, [this] {
        applyToAll();
        emit changed();
    });
    connect(&model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &first, const QModelIndex &last) {
                forgetTexts(first.row(), last.row());
                apply(first.row(), last.row());
                emit changed();
            });
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex & /*parent*/, int first, int last) {
                m_texts.insert(first, last - first + 1, QString());
                forgetTexts(first, last);
                emit changed();
            });
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex & /*parent*/, int first, int last) {
                for (int row = first; row <= last; ++row)
                    m_hidden -= m_view.isRowHidden(row) ? 1 : 0;
                m_texts.remove(first, last - first + 1);
                m_firstUnread = std::min(m_firstUnread, first);
            });
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &SongFilter::changed);
    connectKeys();
}

void SongFilter::connectTo(OutcomeButtons &buttons)
{
    connect(&buttons, &OutcomeButtons::chosen, this, &SongFilter::setOutcome);
    connect(this, &SongFilter::changed, &buttons,
            [&buttons, this] { buttons.setChosen(m_outcome); });
}

bool SongFilter::hidesAll() const
{
    return m_hidden > 0 && m_hidden == m_model.rowCount();
}

void SongFilter::connectKeys()
{
    const auto connectKey = [this](const QKeySequence &key, QWidget &widget,
                                   Qt::ShortcutContext context, auto &&act) {
        auto *shortcut = new QShortcut(key, &widget);
        shortcut->setContext(context);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    connectKey(QKeySequence::Find, *m_field.window(), Qt::WindowShortcut, [this] {
        m_field.setFocus(Qt::ShortcutFocusReason);
        m_field.selectAll();
    });
    for (QWidget *widget : {static_cast<QWidget *>(&m_field), static_cast<QWidget *>(&m_view)})
        connectKey(QKeySequence(Qt::Key_Escape), *widget, Qt::WidgetShortcut,
                   [this] { showAll(); });
    connectKey(QKeySequence(Qt::Key_Down), m_field, Qt::WidgetShortcut, [this] { enterRows(); });
    connect(&m_field, &QLineEdit::returnPressed, this, &SongFilter::enterRows);
}

void SongFilter::search()
{
    const SongSearch wanted(m_field.text());
    if (wanted == m_search)
        return;
    m_search = wanted;
    applyToAll();
    emit changed();
}

bool SongFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        readOutcomeWords();
        applyToAll();
        emit changed();
    }
    return QObject::eventFilter(watched, event);
}

QString SongFilter::countText() const
{
    const int rows = m_model.rowCount();
    return isOn() ? tr("%1 di %2").arg(rows - m_hidden).arg(rows) : QString();
}

void SongFilter::setOutcome(std::optional<SongOutcome> outcome)
{
    if (outcome == m_outcome)
        return;
    m_outcome = outcome;
    applyToAll();
    emit changed();
}

void SongFilter::showAll()
{
    m_field.clear();
    setOutcome(std::nullopt);
    m_view.setFocus(Qt::ShortcutFocusReason);
    m_view.scrollTo(m_view.currentIndex());
}

/// Moves the focus from the field to the current row; if it is hidden, to the first visible one.
void SongFilter::enterRows()
{
    const int rows = m_model.rowCount();
    if (rows == 0 || hidesAll())
        return;
    const int current = m_view.currentIndex().row();
    if (current < 0 || m_view.isRowHidden(current)) {
        int row = 0;
        while (m_view.isRowHidden(row))
            ++row;
        m_view.setCurrentIndex(m_model.index(row, m_columns.value(SongSearch::Field::Title)));
    }
    m_view.setFocus(Qt::ShortcutFocusReason);
}

void SongFilter::apply(int first, int last)
{
    if (!isOn() && m_hidden == 0)
        return;
    // The header would search the position of each row, which takes a pass over all rows every
    // time.
    QHeaderView *header = m_view.verticalHeader();
    header->setUpdatesEnabled(false);
    for (int row = first; row <= last; ++row) {
        const bool wasHidden = m_view.isRowHidden(row);
        const bool isHidden = !matches(row);
        if (wasHidden == isHidden)
            continue;
        m_view.setRowHidden(row, isHidden);
        m_hidden += isHidden ? 1 : -1;
    }
    header->setUpdatesEnabled(true);
}

void SongFilter::applyToAll()
{
    if (m_isOutdated)
        forgetTexts();
    apply(0, m_model.rowCount() - 1);
}

/// After the model was read again, before the first use: whoever follows the model may choose an
/// outcome before the filter is notified. The view still hides the row numbers that it hid before.
void SongFilter::forgetTexts()
{
    const int rows = m_model.rowCount();
    m_isOutdated = false;
    m_texts = QStringList(rows);
    forgetTexts(0, rows - 1);
    m_hidden = 0;
    for (int row = 0; row < rows; ++row)
        m_hidden += m_view.isRowHidden(row) ? 1 : 0;
}

/// The rows were changed, or are new.
void SongFilter::forgetTexts(int first, int last)
{
    std::fill(m_texts.begin() + first, m_texts.begin() + (last + 1), QString());
    m_firstUnread = std::min(m_firstUnread, first);
    if (m_firstUnread < m_texts.size())
        m_reading.start();
}

/// A portion takes a small part of the time between two paintings. A run has the processor for
/// itself.
void SongFilter::readSomeTexts()
{
    if (RunGuard::isActive())
        return;
    constexpr int portion = 1000; // rows
    const int rows = static_cast<int>(m_texts.size());
    for (int read = 0; read < portion && m_firstUnread < rows; ++m_firstUnread) {
        QString &text = m_texts[m_firstUnread];
        if (!text.isNull())
            continue;
        text = foldedTexts(m_firstUnread);
        ++read;
    }
    if (m_firstUnread >= rows)
        m_reading.stop();
}

bool SongFilter::matches(int row)
{
    if (m_outcome.has_value() && m_model.outcome(row) != *m_outcome)
        return false;
    const QStringList &words = m_search.words();
    const auto isFound = [this, row](const QString &word) {
        return textsOf(row).contains(word) || beginsOutcome(m_model.outcome(row), word);
    };
    return std::all_of(words.cbegin(), words.cend(), isFound) &&
           m_search.fulfils(
               [this, row](SongSearch::Field field) { return foldedText(row, field); });
}

/// The texts of a row that words are searched in.
const QString &SongFilter::textsOf(int row)
{
    QString &texts = m_texts[row];
    if (texts.isNull())
        texts = foldedTexts(row);
    return texts;
}

QString SongFilter::foldedText(int row, SongSearch::Field field)
{
    if (field == SongSearch::Field::Outcome)
        return m_outcomeTexts.at(static_cast<size_t>(m_model.outcome(row)));
    const auto *const lined = std::find(linedFields.cbegin(), linedFields.cend(), field);
    if (lined == linedFields.cend())
        return foldedForSearch(textOf(row, field));
    return foldedLine(textsOf(row), lined - linedFields.cbegin());
}

/// Whether a word of the outcome begins with \a word, which has to be long enough that it hardly
/// means another text.
bool SongFilter::beginsOutcome(SongOutcome outcome, const QString &word) const
{
    constexpr qsizetype least = 4;
    const QStringList &words = m_outcomeWords.at(static_cast<size_t>(outcome));
    return word.size() >= least &&
           std::any_of(words.cbegin(), words.cend(),
                       [&word](const QString &begun) { return begun.startsWith(word); });
}

void SongFilter::readOutcomeWords()
{
    for (const SongOutcome outcome : allSongOutcomes) {
        const auto number = static_cast<size_t>(outcome);
        m_outcomeTexts.at(number) = foldedForSearch(outcomeWord(outcome));
        m_outcomeWords.at(number) = m_outcomeTexts.at(number).split(u' ');
    }
}

QString SongFilter::textOf(int row, SongSearch::Field field) const
{
    return m_model.index(row, m_columns.value(field)).data().toString();
}

/// Of the path only the name of the song's own folder: those above it are common to all songs.
QString SongFilter::foldedTexts(int row) const
{
    QStringList texts;
    for (const SongSearch::Field field : linedFields)
        texts.append(textOf(row, field).replace(u'\n', u' '));
    texts.append(textOf(row, SongSearch::Field::Folder).section(u'/', -1));
    return foldedForSearch(texts.join(u'\n')); // words must not match across two texts
}

} // namespace brisel
