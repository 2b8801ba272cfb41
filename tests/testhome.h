#pragma once

#include <QTemporaryDir>

namespace brisel
{

/// Gives a test program its own home: HOME, the XDG folders and the working folder are in a
/// temporary folder, so the user's settings, logs and catalogues are neither read nor written. The
/// destructor also removes everything that the test and its child processes left in TMPDIR.
/// Construct it before the application object.
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

} // namespace brisel
