#include "songfile/metasong.h"
#include "tests/logcapture.h"
#include "tests/songfile/samples.h"
#include "tests/songfile/tagmaker.h"
#include "tests/testprogram.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <memory>

#include <id3v2frame.h>
#include <id3v2tag.h>
#include <mpegfile.h>

using namespace brisel;

using namespace Qt::StringLiterals;

namespace
{

/// A field of a song, and the names that readers give its frame.
struct TagField {
    const char *frame;
    const char *frame22;
    void (*set)(SongInfo &info, const QString &text);
};

constexpr std::array tagFields{
    TagField{"TPE1", "TP1", [](SongInfo &info, const QString &text) { info.artist = text; }},
    TagField{"TIT2", "TT2", [](SongInfo &info, const QString &text) { info.title = text; }},
    TagField{"TCOM", "TCM", [](SongInfo &info, const QString &text) { info.author = text; }},
    TagField{"TCON", "TCO", [](SongInfo &info, const QString &text) { info.genre = text; }},
    TagField{"TKEY", "TKE", [](SongInfo &info, const QString &text) { info.key = text; }},
    TagField{"TLEN", "TLE",
             [](SongInfo &info, const QString &text) { info.length = text.toInt() / 1000; }},
    TagField{"TBPM", "TBP",
             [](SongInfo &info, const QString &text) { info.userBpm = text.toInt(); }}};

QString newText(const TagField &field, int choice)
{
    if (field.frame == QByteArray("TBPM"))
        return QString::number(60 + choice);
    if (field.frame == QByteArray("TLEN"))
        return QString::number(1000 * (1 + choice));
    const QString texts[] = {u"New"_s, u"Citt\u00E0 nuova"_s, u"\u03A9 \u2014 nuovo"_s,
                             u"A longer text "_s.repeated(12).trimmed()};
    return texts[choice % int(std::size(texts))];
}

/// The bytes after the tag of \a song.
QByteArray audioOf(const QByteArray &song)
{
    constexpr qsizetype headerSize = 10;
    if (!song.startsWith("ID3"))
        return song;
    qsizetype size = 0;
    for (qsizetype i = 6; i < headerSize; ++i)
        size = size * 128 + static_cast<quint8>(song.at(i));
    const bool hasFooter = song.at(3) == 4 && (song.at(5) & 0x10) != 0;
    return song.mid(headerSize + size + (hasFooter ? headerSize : 0));
}

/// The frames that TagLib finds, except for those of \a field and the edit mark: each frame's
/// name, and its content unless \a onlyNames.
QStringList framesByTagLib(const QString &path, const TagField &field, bool onlyNames)
{
    TagLib::MPEG::File file(QFile::encodeName(path).constData(), false);
    QStringList found;
    if (!file.hasID3v2Tag())
        return found;
    for (const TagLib::ID3v2::Frame *frame : file.ID3v2Tag()->frameList()) {
        const TagLib::ByteVector id = frame->frameID();
        const QByteArray name(id.data(), static_cast<qsizetype>(id.size()));
        if (name == field.frame || name == field.frame22 || name.startsWith("MED"))
            continue;
        const TagLib::ByteVector bytes = onlyNames ? TagLib::ByteVector() : frame->render();
        const QByteArray content(bytes.data(), static_cast<qsizetype>(bytes.size()));
        found.append(QString::fromLatin1(name + ' ' + content.toHex()));
    }
    return found;
}

} // namespace

/// Tags of every version and form, saved with one change: independent readers find everything
/// else unchanged.
class TestMp3Kept : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void keepsWhatOthersRead_data();
    void keepsWhatOthersRead();
    void keepsWhatOthersReadInSynchronisations();
    void keepsTheCorpus();

private:
    enum class Mode { ByHand, Automatic };
    /// Whether readers may find more than before.
    enum class More { Allowed, None };

    bool save(const QString &name, const QByteArray &song, const TagField &field,
              const QString &text, Mode mode, More more);
    void checkWithTagLib(const QString &name, const TagField &field, bool onlyNames) const;
    void checkWithMutagen() const;
    QString before(const QString &name) const { return m_folder->filePath(u"before/"_s + name); }
    QString after(const QString &name) const { return m_folder->filePath(u"after/"_s + name); }

    std::unique_ptr<LogCapture> m_log;
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_list; ///< what mutagen looks for, see comparetags.py
};

void TestMp3Kept::init()
{
    m_log = std::make_unique<LogCapture>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_list.clear();
    for (const QString &name : {u"before"_s, u"after"_s})
        QVERIFY(QDir(m_folder->path()).mkdir(name));
}

void TestMp3Kept::cleanup()
{
    m_folder.reset();
    m_log.reset();
}

/// Saves \a song with \a text in \a field; false if the program does not open it.
bool TestMp3Kept::save(const QString &name, const QByteArray &song, const TagField &field,
                       const QString &text, Mode mode, More more)
{
    Samples::write(before(name), song);
    Samples::write(after(name), song);
    MetaSong metaSong;
    if (!metaSong.importFile(after(name)))
        return false;
    SongInfo info;
    metaSong.getSongInfo(info);
    field.set(info, text);
    info.altArtist = info.artist;
    metaSong.setSongInfo(info, mode == Mode::ByHand);
    if (!metaSong.saveToFile(after(name)))
        qFatal("not saved: %s", qPrintable(name));
    // A text that can't be read is kept.
    metaSong.getSongInfo(info);
    if (mode == Mode::Automatic && info.artist != text)
        return true;
    m_list += name.toUtf8().toHex() + ' ' + field.frame + ' ' + field.frame22 + ' ' +
              text.toUtf8().toHex() + (more == More::None ? " all\n" : " kept\n");
    return true;
}

void TestMp3Kept::checkWithTagLib(const QString &name, const TagField &field, bool onlyNames) const
{
    const QStringList kept = framesByTagLib(after(name), field, onlyNames);
    for (const QString &frame : framesByTagLib(before(name), field, onlyNames))
        QVERIFY2(kept.contains(frame), qPrintable(frame.left(200)));
}

void TestMp3Kept::checkWithMutagen() const
{
    const QString list = m_folder->filePath(u"list"_s);
    Samples::write(list, m_list);
    QProcess reader;
    reader.start(QStringLiteral(BRISEL_PYTHON),
                 {QStringLiteral(BRISEL_COMPARE_TAGS), before({}), after({}), list});
    QVERIFY(reader.waitForFinished(300000));
    const QByteArray errors = reader.readAllStandardError();
    QVERIFY2(errors.isEmpty(), errors.constData());
    const QByteArray differences = reader.readAllStandardOutput();
    QVERIFY2(differences == "compared " + QByteArray::number(m_list.count('\n')) + '\n',
             differences.left(3000).constData());
}

void TestMp3Kept::keepsWhatOthersRead_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 6; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void TestMp3Kept::keepsWhatOthersRead()
{
    QFETCH(const quint32, seed);
    constexpr int songs = 150;
    TagMaker maker(seed);
    for (int i = 0; i < songs; ++i) {
        const QByteArray audio = Samples::audio(400 + maker.number(400));
        const QByteArray song = maker.song(audio);
        const QString name = u"%1.mp3"_s.arg(i);
        const TagField &field = tagFields.at(i % tagFields.size());
        QVERIFY(
            save(name, song, field, newText(field, maker.number(100)), Mode::ByHand, More::None));
        // TagLib guesses the kind of size for each frame, and is wrong for the last one.
        checkWithTagLib(name, field, maker.hasPlainSizes());
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(maker.description()));
        QVERIFY2(Samples::read(after(name)).endsWith(audio), qPrintable(maker.description()));
    }
    checkWithMutagen();
}

void TestMp3Kept::keepsWhatOthersReadInSynchronisations()
{
    constexpr int songs = 150;
    TagMaker maker(1000);
    for (int i = 0; i < songs; ++i) {
        const QByteArray audio = Samples::audio(400);
        const QString name = u"%1.mp3"_s.arg(i);
        const TagField &artist = tagFields.front();
        QVERIFY(save(name, maker.song(audio), artist, u"The artist \u2014"_s, Mode::Automatic,
                     More::Allowed));
        checkWithTagLib(name, artist, maker.hasPlainSizes());
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(maker.description()));
        QVERIFY2(Samples::read(after(name)).endsWith(audio), qPrintable(maker.description()));
    }
    checkWithMutagen();
}

void TestMp3Kept::keepsTheCorpus()
{
    const QString corpus = qEnvironmentVariable("BRISEL_CORPUS");
    if (corpus.isEmpty())
        QSKIP("BRISEL_CORPUS names no folder of songs");
    int songs = 0;
    for (QDirIterator files(corpus, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QByteArray song = Samples::read(files.next());
        const QString name = files.fileName() + u".mp3"_s;
        const TagField &field = tagFields.at(songs % tagFields.size());
        if (song.startsWith("MThd") ||
            !save(name, song, field, newText(field, songs), Mode::ByHand, More::Allowed))
            continue;
        ++songs;
        checkWithTagLib(name, field, false);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(files.filePath()));
        QVERIFY2(Samples::read(after(name)).endsWith(audioOf(song)), qPrintable(files.filePath()));
    }
    QVERIFY(songs > 0);
    checkWithMutagen();
}

BRISEL_TEST(QCoreApplication, TestMp3Kept)
#include "tst_mp3kept.moc"
