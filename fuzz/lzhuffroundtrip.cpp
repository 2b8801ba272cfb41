#include "base/bytes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"
#include "songfile/lzhuff.h"

namespace brisel
{

void checkLzHuffRoundTrip(const QByteArray &input)
{
    // Longer songs are never saved.
    const QByteArray text = input.left(LzHuff::maxTextSize);
    LzHuff codec;
    QByteArray packed("left over");
    codec.compress(text, packed);
    REQUIRE(le32At(packed, 0) == static_cast<quint32>(text.size()));

    QByteArray back;
    REQUIRE(codec.expand(packed, back) == !text.isEmpty());
    REQUIRE(back == text);

    QByteArray again;
    codec.compress(text.left(4096), again);
    REQUIRE(text.size() > 4096 || again == packed);
}

} // namespace brisel
