// The codec against the textbook's and lhasa's: each row "what/data/who", compared by ./bench/run.

#include "bench/benchprogram.h"
#include "bench/songbytes.h"
#include "bench/textbookcodec.h"
#include "songfile/lzhuff.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

extern "C" {
#include <lha_decoder.h>

using namespace brisel;
}

using BenchProgram::require;

namespace
{

using Textbook = TextbookCodec<29>;
using TextbookLh1 = TextbookCodec<60>;

void setBytes(benchmark::State &state, size_t bytes)
{
    state.SetBytesProcessed(static_cast<int64_t>(bytes) * state.iterations());
}

QByteArray compressed(const std::string &song)
{
    QByteArray stream;
    LzHuff().compress(QByteArray::fromStdString(song), stream);
    return stream;
}

void expandOurs(benchmark::State &state, const std::string &song)
{
    const QByteArray stream = compressed(song);
    QByteArray out;
    for (auto _ : state) {
        benchmark::DoNotOptimize(LzHuff().expand(stream, out));
        benchmark::DoNotOptimize(out.data());
    }
    require(out == QByteArray::fromStdString(song), "expand");
    setBytes(state, song.size());
}

void expandTextbook(benchmark::State &state, const std::string &song)
{
    const std::string stream = Textbook().encode(song);
    std::string out;
    for (auto _ : state) {
        out = Textbook().decode(stream, song.size());
        benchmark::DoNotOptimize(out.data());
    }
    require(out == song, "the textbook decoder");
    setBytes(state, song.size());
}

struct Source {
    const std::string &stream;
    size_t next = 0;
};

size_t readSource(void *buffer, size_t size, void *data)
{
    auto *source = static_cast<Source *>(data);
    const size_t count = std::min(size, source->stream.size() - source->next);
    std::memcpy(buffer, source->stream.data() + source->next, count);
    source->next += count;
    return count;
}

void expandLhasa(benchmark::State &state, const std::string &song)
{
    const std::string stream = TextbookLh1().encode(song);
    std::string name("-lh1-");
    std::string out(song.size(), '\0');
    for (auto _ : state) {
        Source source{stream};
        const std::unique_ptr<LHADecoder, decltype(&lha_decoder_free)> decoder(
            lha_decoder_new(lha_decoder_for_name(name.data()), readSource, &source, out.size()),
            lha_decoder_free);
        auto *bytes = reinterpret_cast<uint8_t *>(out.data());
        for (size_t done = 0, count = 1; count > 0 && done < out.size(); done += count)
            count = lha_decoder_read(decoder.get(), bytes + done, out.size() - done);
        benchmark::DoNotOptimize(out.data());
    }
    require(out == song, "lhasa");
    setBytes(state, song.size());
}

void compressOurs(benchmark::State &state, const std::string &song)
{
    const QByteArray in = QByteArray::fromStdString(song);
    QByteArray out;
    for (auto _ : state) {
        LzHuff().compress(in, out);
        benchmark::DoNotOptimize(out.data());
    }
    require(out.mid(4).toStdString() == Textbook().encode(song), "compress");
    setBytes(state, song.size());
}

void compressTextbook(benchmark::State &state, const std::string &song)
{
    std::string out;
    for (auto _ : state) {
        out = Textbook().encode(song);
        benchmark::DoNotOptimize(out.data());
    }
    setBytes(state, song.size());
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const std::vector<int> sizes =
        BenchProgram::takeSmallest(argc, argv) ? std::vector{5} : std::vector{20, 80, 200};
    for (const int kilobytes : sizes) {
        const std::string song = songBytes(kilobytes * 1000);
        const auto add = [&](const char *what, const char *who, auto function) {
            std::string name(what);
            name.append("/").append(std::to_string(kilobytes)).append(" KB/").append(who);
            benchmark::RegisterBenchmark(name.c_str(), function, song);
        };
        add("expand", "ours", expandOurs);
        add("expand", "textbook", expandTextbook);
        add("expand", "lhasa -lh1-", expandLhasa);
        add("compress", "ours", compressOurs);
        add("compress", "textbook", compressTextbook);
    }
    return BenchProgram::run(argc, argv) ? 0 : 1;
}
