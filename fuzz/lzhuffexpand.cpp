#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "songfile/lzhuff.h"

namespace brisel
{

void checkLzHuffExpand(const QByteArray &input)
{
    QByteArray out("left over");
    LzHuff codec;
    const bool done = codec.expand(input, out);
    // A stream that ends inside its size field counts as too large.
    const quint32 announced = input.size() < 4 ? 0 : le32At(input, 0);
    REQUIRE(done == (announced > 0 && announced <= LzHuff::maxTextSize));
    REQUIRE(out.size() == static_cast<qsizetype>(done ? announced : 0));

    if (announced > 10000)
        return;
    // Again with the same codec: nothing of the first run may remain.
    QByteArray again;
    REQUIRE(codec.expand(input, again) == done);
    REQUIRE(again == out);
}

} // namespace brisel
