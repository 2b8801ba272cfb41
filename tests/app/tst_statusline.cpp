#include "tests/app/samplewindow.h"
#include "tests/testprogram.h"

#include <QAction>

using namespace brisel;

/// The status bar of the real window.
class TestStatusLine : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_sample = std::make_unique<SampleWindow>(); }
    void cleanup();
    void countsTheSongsAtAllTimes();
    void countsInTheLanguageChosen();
    void countsAFewTimesASecond();
    void endsWhereTheButtonsAboveEnd();

private:
    QString songs() const { return label("songsLabel")->text(); }
    QLabel *label(const char *name) const
    {
        return m_sample->window->findChild<QLabel *>(QString::fromLatin1(name));
    }
    void choose(const char *language) const
    {
        m_sample->window->findChild<QAction *>(QString::fromLatin1(language))->trigger();
    }

    std::unique_ptr<SampleWindow> m_sample;
};

void TestStatusLine::cleanup()
{
    closeVerified(m_sample);
}

void TestStatusLine::countsTheSongsAtAllTimes()
{
    QVERIFY(label("songsLabel")->isVisible());
    QCOMPARE(songs(), u"0 song"_qs);
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs, u"three.mid"_qs});
    QTRY_COMPARE(songs(), u"3 song"_qs);
    m_sample->model->removeRows(0, 1);
    QTRY_COMPARE(songs(), u"2 song"_qs);
    m_sample->import({u"one.mid"_qs});
    QTRY_COMPARE(songs(), u"1 song"_qs);
}

void TestStatusLine::countsInTheLanguageChosen()
{
    m_sample->import({u"one.mid"_qs});
    choose("actionEnglish");
    QTRY_COMPARE(songs(), u"1 song"_qs);
    m_sample->import({u"one.mid"_qs, u"two.mid"_qs});
    QTRY_COMPARE(songs(), u"2 songs"_qs);
    choose("actionItalian");
    QTRY_COMPARE(songs(), u"2 song"_qs);
}

/// Setting a label for each of thousands of rows would slow down the import.
void TestStatusLine::countsAFewTimesASecond()
{
    SongInfo info;
    for (int row = 0; row < 200; ++row)
        m_sample->model->addSong(info);
    QCOMPARE(songs(), u"0 song"_qs);
    QTRY_COMPARE(songs(), u"200 song"_qs);
}

void TestStatusLine::endsWhereTheButtonsAboveEnd()
{
    const auto area = [this](const char *name) {
        const auto *widget = m_sample->window->findChild<QWidget *>(QString::fromLatin1(name));
        return QRect(widget->mapTo(m_sample->window.get(), QPoint(0, 0)), widget->size());
    };
    QCOMPARE(area("songsLabel").left(), area("transferFilesToolButton").left());
    QCOMPARE(area("detailsPushButton").right(), area("memoryToolButton").right());
}

BRISEL_TEST(QApplication, TestStatusLine)
#include "tst_statusline.moc"
