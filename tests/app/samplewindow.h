#pragma once

#include "app/mainwindow.h"
#include "tests/dialogscript.h"
#include "tests/library/samplelibrary.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace brisel
{

/// The real window over a small catalogue, a folder of songs and an empty memory "CARD". The
/// summary after an import is switched off.
struct SampleWindow {
    SampleWindow()
    {
        QDir::setCurrent(folder.path());
        QDir().mkpath(at(u"volumes/CARD"_qs));
        qputenv("BRISEL_VOLUMES", QFile::encodeName(at(u"volumes"_qs)));
        Sample::makeCatalogue(folder.path(), {{u"ONE"_qs, u"ONE LOVE"_qs},
                                              {u"TWO"_qs, u"TWO SONGS"_qs},
                                              {u"THREE"_qs, u"THREE KINGS"_qs}});
        QSettings(u"kordia"_qs, u"brisel2pc"_qs).clear();
        window = std::make_unique<MainWindow>();
        window->enableCopyrightMessage(false);
        window->resize(1000, 700);
        window->show();
        table = window->findChild<QTableView *>();
        model = window->findChild<UserSongsRelTableModel *>();
    }
    ~SampleWindow()
    {
        window.reset();
        QDir::setCurrent(QDir::rootPath());
    }
    SampleWindow(const SampleWindow &) = delete;
    SampleWindow &operator=(const SampleWindow &) = delete;

    QString at(const QString &name) const { return folder.filePath(name); }
    void press(const char *button) const
    {
        QTest::mouseClick(window->findChild<QToolButton *>(QString::fromLatin1(button)),
                          Qt::LeftButton);
    }
    /// Shows the window in the language "it" or "en".
    void changeLanguage(const QString &language) const
    {
        const QString action = language == u"en"_qs ? u"actionEnglish"_qs : u"actionItalian"_qs;
        window->findChild<QAction *>(action)->trigger();
        QCoreApplication::processEvents();
    }
    /// Makes songs with these names and imports them by the button.
    void import(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names) {
            makeFile(at(name), Sample::midi(name.section(u'.', 0, 0).toLatin1(), true));
            paths.append(at(name));
        }
        script.expectFiles(paths);
        press("selectDirToolButton");
    }

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
    DialogScript script;
    QTableView *table = nullptr;
    UserSongsRelTableModel *model = nullptr;
};

/// Closes the window of \a sample; its script must be done.
inline void closeVerified(std::unique_ptr<SampleWindow> &sample)
{
    const QString problems = sample->script.problems().join(u'\n');
    const bool isDone = sample->script.isDone();
    sample.reset();
    QVERIFY2(isDone, qPrintable(problems));
}

/// Records what the progress dialogs show when runs process events: title, label and maximum.
class ProgressWatch : public QObject
{
public:
    ProgressWatch()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            const auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr || dialog->windowModality() != Qt::WindowModal)
                return;
            const QString shown = u"%1|%2|%3|%4"_qs.arg(
                dialog->windowTitle(), dialog->findChild<QLabel *>()->text(),
                dialog->findChild<QPushButton *>()->text(), QString::number(dialog->maximum()));
            if (!seen.contains(shown))
                seen.append(shown);
        });
        m_timer.start(0);
    }

    QStringList seen;

private:
    QTimer m_timer;
};

} // namespace brisel
