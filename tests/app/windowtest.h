#pragma once

#include "app/mainwindow.h"

#include <QTest>

namespace brisel
{

/// The part of \a window with the object name \a name; a missing one ends the test program.
template <typename Kind>
Kind *partOf(const QWidget &window, const char *name)
{
    auto *object = window.findChild<Kind *>(QString::fromLatin1(name));
    if (object == nullptr)
        qFatal("no %s", name);
    return object;
}

/// A test of the window as it opens: each case opens a new one.
class WindowTest : public QObject
{
protected:
    void open()
    {
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    template <typename Kind>
    Kind *find(const char *name) const
    {
        return partOf<Kind>(*m_window, name);
    }

    std::unique_ptr<MainWindow> m_window;
};

} // namespace brisel
