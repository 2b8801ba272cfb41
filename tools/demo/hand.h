#pragma once

#include "tests/dialogscript.h"

#include <QString>

#include <functional>
#include <memory>

class Narrator;
class QMainWindow;
class QWidget;

/// A text of the program in the two languages that the demo walks in.
struct ShownText {
    QString italian;
    QString english; ///< empty: any but the Italian one
};

/// The user's hand: clicks buttons and menu entries of the main window and answers the dialogs
/// that come of it, each with a picture.
class Hand
{
public:
    using Action = std::function<void(QWidget *dialog)>;

    Hand(QMainWindow &window, Narrator &narrator, bool english);

    /// Forgets what was expected; call before each step of the road.
    void rest();
    /// True when every expected dialog came and no other; tells what went otherwise.
    bool checkAnswered();

    /// The next dialog is a \a className: takes a picture named \a picture (none when empty) and
    /// lets \a action answer it. An action may open further dialogs, which are expected next, and
    /// after them the same dialog once more.
    void expectDialog(const char *className, const QString &picture, const Action &action);
    void expectMessage(const ShownText &text, int button, const QString &picture);
    void expectFiles(const QStringList &paths, const QString &picture);

    /// Clicks a button of the main window and returns when all that it started is over.
    void clickWindow(const QString &button);
    /// Opens the menu with the action \a name by the mouse and clicks the entry.
    void chooseMenu(const QString &name, const QString &picture);

    static void click(QWidget *dialog, const QString &button);
    /// Replaces the text of a line edit or of an editable combo box by typing.
    static void type(QWidget *dialog, const QString &edit, const QString &text);
    /// Chooses an item of a combo box by the keyboard.
    static void choose(QWidget *dialog, const QString &comboBox, int item);

    QString shown(const ShownText &text) const { return m_english ? text.english : text.italian; }

private:
    void watch(QWidget *dialog);

    QMainWindow &m_window;
    Narrator &m_narrator;
    bool m_english;
    std::unique_ptr<DialogScript> m_script;
};
