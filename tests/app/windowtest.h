#pragma once

#include "app/mainwindow.h"

#include <QTest>

namespace brisel
{

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
    /// The part of the window with this object name; a missing one ends the test program.
    template <typename Kind>
    Kind *find(const char *name) const
    {
        auto *object = m_window->findChild<Kind *>(QString::fromLatin1(name));
        if (object == nullptr)
            qFatal("no %s", name);
        return object;
    }

    std::unique_ptr<MainWindow> m_window;
};

} // namespace brisel
