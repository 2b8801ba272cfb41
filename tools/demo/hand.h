#pragma once

#include "tests/dialogscript.h"

#include <QString>

#include <functional>
#include <memory>

class QMainWindow;
class QWidget;

namespace brisel
{

class Narrator;

/// A text of the program in the two languages of the demo.
struct ShownText {
    QString italian;
    QString english; ///< empty: any text but the Italian one
};

/// Acts as the user: clicks buttons and menu entries of the main window, answers the dialogs that
/// they open, and takes a picture of each.
class Hand
{
public:
    using Action = std::function<void(QWidget *dialog)>;

    Hand(QMainWindow &window, Narrator &narrator, bool english);

    /// Clears the expected dialogs; call before each step of the tour.
    void rest();
    /// Returns true if every expected dialog was opened and no other; prints the problems.
    bool checkAnswered();

    /// The next dialog is a \a className: takes a picture named \a picture (no picture if
    /// empty) and lets \a action answer it. An action may open further dialogs, which must be
    /// expected next, and then the same dialog again.
    void expectDialog(const char *className, const QString &picture, const Action &action);
    void expectMessage(const ShownText &text, int button, const QString &picture);
    void expectFiles(const QStringList &paths, const QString &picture);

    /// Clicks a button of the main window and returns when everything that it started has ended.
    void clickWindow(const QString &button);
    /// Opens the menu that has the action \a name and clicks the entry.
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

} // namespace brisel
