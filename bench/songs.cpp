// Reading songs, against other ways of reading them: each row "what/data/who", compared by
// ./bench/run. The files are in the page cache.

#include "base/filereading.h"
#include "bench/benchprogram.h"
#include "bench/songbytes.h"
#include "index/songhead.h"
#include "index/songinfoindex.h"
#include "songfile/metasong.h"
#include "tools/samplesongs.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <tpropertymap.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace brisel;

using namespace Qt::StringLiterals;
using BenchProgram::require;

namespace
{

SongInfo songInfo()
{
    SongInfo info;
    info.title = u"Bella ciao"_s;
    info.artist = u"Anonimo"_s;
    info.author = u"Tradizionale"_s;
    info.genre = u"Popolare"_s;
    info.key = u"A-"_s;
    info.length = 215;
    info.userBpm = 120;
    info.isKordia = true;
    return info;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "the disk");
}

void importOurs(benchmark::State &state, const QString &path)
{
    SongInfo info;
    MetaSong song;
    for (auto _ : state) {
        require(song.importFile(path), "import");
        song.getSongInfo(info);
        benchmark::DoNotOptimize(info);
    }
    require(info.title == songInfo().title && info.userBpm == songInfo().userBpm, "import");
}

void importTagLib(benchmark::State &state, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    TagLib::PropertyMap properties;
    for (auto _ : state) {
        TagLib::MPEG::File file(name.constData(), false);
        properties = file.ID3v2Tag()->properties();
        benchmark::DoNotOptimize(properties);
    }
    require(properties["TITLE"].toString() == "Bella ciao", "TagLib");
    require(properties["BPM"].toString() == "120", "TagLib");
}

void recordOurs(benchmark::State &state, const QString &path)
{
    SongInfoIndex song;
    song.absolutePath = path;
    QByteArray prefix;
    FileState fileState;
    for (auto _ : state) {
        require(SongHead::read(path, prefix, fileState) && SongHead::parse(prefix, song),
                "the record");
        benchmark::DoNotOptimize(song);
    }
    require(song.title == u"BELLA CIAO"_s && song.genre == u"POPOLARE"_s, "the record");
}

void recordTagLib(benchmark::State &state, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    TagLib::String title;
    for (auto _ : state) {
        TagLib::MPEG::File file(name.constData(), false);
        const TagLib::ID3v2::Tag *tag = file.ID3v2Tag();
        title = tag->title();
        benchmark::DoNotOptimize(tag->artist());
        benchmark::DoNotOptimize(tag->genre());
    }
    require(title == "Bella ciao", "TagLib");
}

/// One read of the file, and one pass over its bytes.
void readAndPass(benchmark::State &state, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    std::ptrdiff_t marks = 0;
    for (auto _ : state) {
        const int handle = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
        struct stat entry {
        };
        require(handle >= 0 && ::fstat(handle, &entry) == 0, "the read");
        const auto size = static_cast<size_t>(entry.st_size);
        const auto bytes = std::make_unique_for_overwrite<char[]>(size);
        require(::read(handle, bytes.get(), size) == entry.st_size, "the read");
        ::close(handle);
        marks = std::count(bytes.get(), bytes.get() + size, '\xFF');
        benchmark::DoNotOptimize(marks);
    }
    require(marks > 0, "the pass");
}

/// Opens a song, sets another title and saves it.
void saveOurs(benchmark::State &state, const QString &path)
{
    const QString titles[] = {u"Bella ciao"_s, u"Bella Ciao"_s};
    size_t turn = 0;
    SongInfo info;
    for (auto _ : state) {
        MetaSong song;
        require(song.importFile(path), "import");
        song.getSongInfo(info);
        info.title = titles[turn++ % std::size(titles)];
        song.setSongInfo(info, true);
        require(song.saveToFile(path), "the save");
    }
}

/// Copies the same file and renames the copy over it.
void copyAndRename(benchmark::State &state, const QString &path)
{
    const std::filesystem::path song(path.toStdString());
    const std::filesystem::path copy(song.string() + ".copy");
    for (auto _ : state) {
        require(std::filesystem::copy_file(song, copy), "the copy");
        std::filesystem::rename(copy, song);
    }
}

template <typename Function>
void add(const char *name, Function function, const QString &path)
{
    benchmark::RegisterBenchmark(name, [=](benchmark::State &state) {
        function(state, path);
    })->Unit(benchmark::kNanosecond);
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QTemporaryDir folder;
    require(folder.isValid(), "the disk");

    const QString mp3 = folder.filePath(u"song.mp3"_s);
    writeFile(mp3, SampleSongs::mp3(SampleSongs::Tag::Id3v23, songInfo(), 300));
    add("import/MP3 of 5 MB/ours", importOurs, mp3);
    add("import/MP3 of 5 MB/TagLib", importTagLib, mp3);
    add("save/MP3 of 5 MB/ours", saveOurs, mp3);
    add("save/MP3 of 5 MB/copy and rename", copyAndRename, mp3);
    add("record/MP3 of 5 MB/ours", recordOurs, mp3);
    add("record/MP3 of 5 MB/TagLib", recordTagLib, mp3);

    const std::vector<int> sizes =
        BenchProgram::takeSmallest(argc, argv) ? std::vector{5} : std::vector{20, 80, 200};
    for (const int kilobytes : sizes) {
        const QString plain = folder.filePath(u"song%1.mid"_s.arg(kilobytes));
        writeFile(plain, QByteArray::fromStdString(songBytes(kilobytes * 1000)));
        MetaSong song;
        require(song.importFile(plain), "import");
        song.setSongInfo(songInfo(), true);
        require(song.saveToFile(plain), "the save");
        const std::string row = "import/MIDI of " + std::to_string(kilobytes) + " KB/";
        add((row + "ours").c_str(), importOurs, plain);
        add((row + "read and pass").c_str(), readAndPass, plain);
        const std::string save = "save/MIDI of " + std::to_string(kilobytes) + " KB/";
        add((save + "ours").c_str(), saveOurs, plain);
        add((save + "copy and rename").c_str(), copyAndRename, plain);
    }
    return BenchProgram::run(argc, argv) ? 0 : 1;
}
