// replay <target> <files or folders...>: runs a target on every file, like the fuzzer.

#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <cstdio>

using namespace brisel;

static const QMap<QString, void (*)(const QByteArray &)> &targets()
{
    static const QMap<QString, void (*)(const QByteArray &)> map{
        {QStringLiteral("lzhuffexpand"), checkLzHuffExpand},
        {QStringLiteral("lzhuffroundtrip"), checkLzHuffRoundTrip},
        {QStringLiteral("midifile"), checkMidiFile},
        {QStringLiteral("songtimeline"), checkSongTimeline},
        {QStringLiteral("zbxheader"), checkZbxHeader},
        {QStringLiteral("mp3header"), checkMp3Header},
        {QStringLiteral("metasong"), checkMetaSong},
        {QStringLiteral("songhead"), checkSongHead},
        {QStringLiteral("indexreader"), checkIndexReader},
        {QStringLiteral("memorycheck"), checkMemoryCheck},
        {QStringLiteral("playlists"), checkPlaylists},
        {QStringLiteral("memoryplaylists"), checkMemoryPlaylists},
        {QStringLiteral("markers"), checkMarkers},
        {QStringLiteral("catalogue"), checkCatalogue},
        {QStringLiteral("swapmark"), checkSwapMark},
        {QStringLiteral("givennames"), checkGivenNames},
    };
    return map;
}

static QStringList filesAt(const QString &path)
{
    if (QFileInfo(path).isFile())
        return {path};
    QStringList files;
    QDirIterator walk(path, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(walk.next());
    files.sort();
    return files;
}

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString name = arguments.isEmpty() ? QString() : arguments.takeFirst();
    const auto check = targets().value(name, nullptr);
    if (check == nullptr) {
        std::fprintf(stderr, "Usage: replay <target> <files or folders...>\nTargets: %s\n",
                     qPrintable(targets().keys().join(u' ')));
        return 2;
    }
    silenceLog();
    int count = 0;
    for (const QString &argument : arguments) {
        for (const QString &path : filesAt(QFileInfo(argument).absoluteFilePath())) {
            QFile file(path);
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "%s: can't be read\n", qPrintable(path));
                return 1;
            }
            // Printed before, in case the input ends the program.
            std::printf("%s\n", qPrintable(path));
            std::fflush(stdout);
            runBounded(check, file.readAll());
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
