#include "app/mnemonics.h"

#include <QAction>
#include <QEvent>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

#include <map>
#include <utility>

namespace brisel
{

namespace
{

/// The character behind the mark; null without one. "&&" is a plain character.
QChar mnemonicOf(const QString &text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) == u'&') {
            if (text.at(i + 1) != u'&')
                return text.at(i + 1).toLower();
            ++i;
        }
    }
    return {};
}

/// Keyboards of all languages have these.
bool isUsual(QChar character)
{
    return character.unicode() < 0x80 && character.isLetterOrNumber();
}

/// The positions of the characters that may become the mnemonic, the best ones first.
QList<qsizetype> candidatesIn(const QString &text)
{
    QList<qsizetype> starts;
    QList<qsizetype> others;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isUsual(text.at(i)))
            (i == 0 || text.at(i - 1).isSpace() ? starts : others).append(i);
    }
    return starts + others;
}

/// Finds a character for each of several texts, so that as many as possible have one: a text gives
/// up its character if there is another one for it.
class Matching
{
public:
    explicit Matching(QSet<QChar> taken) : m_taken(std::move(taken)) {}

    void add(QAction *action)
    {
        QSet<QChar> tried = m_taken;
        find(action, tried);
    }
    void apply() const
    {
        for (const auto &[action, place] : m_places)
            action->setText(action->text().insert(place, u'&'));
    }

private:
    bool find(QAction *action, QSet<QChar> &tried)
    {
        return take(action, tried, false) || take(action, tried, true);
    }

    /// Takes a free character, or one that another text can do without.
    bool take(QAction *action, QSet<QChar> &tried, bool fromOthers)
    {
        const QString text = action->text();
        for (const qsizetype place : candidatesIn(text)) {
            const QChar character = text.at(place).toLower();
            QAction *owner = m_owners.value(character);
            if (tried.contains(character) || (owner != nullptr && !fromOthers))
                continue;
            tried.insert(character);
            if (owner != nullptr && !find(owner, tried))
                continue;
            m_owners.insert(character, action);
            m_places[action] = place;
            return true;
        }
        return false;
    }

    const QSet<QChar> m_taken;
    QHash<QChar, QAction *> m_owners;
    std::map<QAction *, qsizetype> m_places;
};

void addMnemonicsTo(const QList<QAction *> &actions)
{
    QSet<QChar> taken;
    for (const QAction *action : actions)
        taken.insert(mnemonicOf(action->text()));
    Matching matching(taken);
    for (QAction *action : actions) {
        if (!action->isSeparator() && mnemonicOf(action->text()).isNull())
            matching.add(action);
    }
    matching.apply();
}

} // namespace

void addMnemonics(QMenu &menu)
{
    addMnemonicsTo(menu.actions());
}

Mnemonics::Mnemonics(QMenuBar &bar) : QObject(&bar), m_bar(bar)
{
    addMnemonicsTo(bar.actions());
    for (QMenu *menu : bar.findChildren<QMenu *>())
        connect(menu, &QMenu::aboutToShow, this, [menu] { addMnemonics(*menu); });
    bar.installEventFilter(this);
}

/// The window has set its texts again when its menu bar gets the event.
bool Mnemonics::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        addMnemonicsTo(m_bar.actions());
    return QObject::eventFilter(watched, event);
}

} // namespace brisel
