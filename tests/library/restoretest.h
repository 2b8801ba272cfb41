#pragma once

#include "history/historyrecorder.h"
#include "library/manualedit.h"
#include "library/restore.h"
#include "library/synchroniser.h"
#include "tests/library/samplelibrary.h"
#include "tests/scriptedrun.h"
#include "tests/testfiles.h"

#include <QTest>

namespace brisel
{

/// A test with a list of songs, a catalogue that knows "ONE", and a history.
class RestoreTest : public QObject
{
protected:
    void open()
    {
        m_library = std::make_unique<Sample::Library>(QList<Sample::CatalogueRow>{
            {QStringLiteral("ONE"), QStringLiteral("ONE LOVE"), QStringLiteral("X")}});
        m_history =
            std::make_unique<History>(m_library->path(QStringLiteral("data/history.sqlite")));
        m_run = std::make_unique<ScriptedRun>(RunReport::Operation::Restore);
    }

    void close()
    {
        m_run.reset();
        m_history.reset();
        m_library.reset();
        m_before.clear();
    }

    QString add(const QString &name, const QByteArray &content)
    {
        m_before.insert(m_library->path(name), content);
        return m_library->add(name, content);
    }

    void synchronise()
    {
        ScriptedRun run;
        HistoryRecorder recorder(*m_history, RunKind::Synchronisation);
        Synchroniser synchroniser(m_library->model(), m_library->database(), false);
        synchroniser.setRecorder(&recorder);
        QCOMPARE(synchroniser.run(run), Synchroniser::Outcome::Done);
        QVERIFY2(run.report().failed() == 0, qPrintable(run.report().text()));
    }

    void edit(int row, const QString &title)
    {
        const QString path = m_library->model().fileName(row);
        SongFile file(path);
        SongInfo info = file.info;
        info.title = title;
        HistoryRecorder recorder(*m_history, RunKind::Edit);
        ManualEdit edit(m_library->model(), file.song, info, path, row, {});
        edit.setRecorder(&recorder);
        ScriptedRun run;
        QCOMPARE(edit.run(run), ManualEdit::Outcome::Done);
        QVERIFY2(run.report().failed() == 0, qPrintable(run.report().text()));
    }

    /// As another program might; both paths stay in the list.
    void move(const QString &from, const QString &to) { QVERIFY(QFile::rename(from, to)); }

    QList<HistorySong> allSongs()
    {
        QList<HistorySong> songs;
        for (const HistoryRun &run : m_history->runs())
            songs += m_history->songs(run.id);
        return songs;
    }

    Restore::Outcome restore(QList<HistorySong> songs)
    {
        HistoryRecorder recorder(*m_history, RunKind::Restore);
        return Restore(m_library->model(), *m_history, std::move(songs), &recorder).run(*m_run);
    }

    /// Changes the song as another program might.
    void writeMarked(const QString &path)
    {
        MetaSong song;
        QVERIFY(song.importFile(path));
        SongInfo info;
        song.getSongInfo(info);
        info.title = QStringLiteral("By another program");
        song.setSongInfo(info, true);
        QVERIFY(song.saveToFile(path));
    }

    Restore::Outcome restoreLastRun() { return restore(songsOfLastRun()); }
    QList<HistorySong> songsOfLastRun() { return m_history->songs(m_history->runs().value(0).id); }
    QList<HistorySong> songsOfFirstRun() { return m_history->songs(m_history->runs().last().id); }

    std::unique_ptr<Sample::Library> m_library;
    std::unique_ptr<History> m_history;
    std::unique_ptr<ScriptedRun> m_run;
    QMap<QString, QByteArray> m_before;
};

} // namespace brisel
