#pragma once

#include <QTemporaryDir>

/// Gives a test program a home of its own: HOME, the XDG folders and the working folder lie in a
/// temporary folder, so that settings, logs and catalogues of the user are neither read nor
/// written. What it and the programs that it starts leave in TMPDIR goes with it, also what they
/// could not remove because they were killed. Construct it before the application object.
class TestHome
{
public:
    TestHome();
    ~TestHome();
    TestHome(const TestHome &) = delete;
    TestHome &operator=(const TestHome &) = delete;

    /// The folder, also the working folder.
    QString path() const { return m_folder.path(); }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

private:
    QString m_oldFolder;
    QTemporaryDir m_folder;
    QTemporaryDir m_temporary;
};
