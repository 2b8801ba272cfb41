#include "id3/unsynchronisation.h"

namespace brisel
{

namespace
{

constexpr char mark = '\xFF';
constexpr quint8 firstSync = 0xE0;

} // namespace

bool Unsynchronisation::isPossible(QByteArrayView data)
{
    for (qsizetype pos = data.indexOf(mark); pos >= 0; pos = data.indexOf(mark, pos + 1)) {
        if (pos + 1 == data.size() || static_cast<quint8>(data.at(pos + 1)) >= firstSync)
            return false;
    }
    return true;
}

QByteArray Unsynchronisation::undone(QByteArrayView data)
{
    QByteArray result;
    result.reserve(data.size());
    qsizetype copied = 0;
    for (qsizetype pos = data.indexOf(mark); pos >= 0; pos = data.indexOf(mark, pos + 1)) {
        if (pos + 1 < data.size() && data.at(pos + 1) == '\0') {
            result += data.sliced(copied, pos + 1 - copied);
            copied = pos + 2;
            ++pos;
        }
    }
    return result + data.sliced(copied).toByteArray();
}

} // namespace brisel
