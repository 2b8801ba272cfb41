#include "songfile/midikeys.h"

#include <QMap>

namespace brisel
{

using namespace Qt::StringLiterals;

namespace
{

const QMap<quint16, QString> &valueToKey()
{
    static const QMap<quint16, QString> map{
        {0x0700, u"C#"_s}, {0x0701, u"A#-"_s}, //
        {0x0600, u"F#"_s}, {0x0601, u"D#-"_s}, //
        {0x0500, u"B"_s},  {0x0501, u"G#-"_s}, //
        {0x0400, u"E"_s},  {0x0401, u"C#-"_s}, //
        {0x0300, u"A"_s},  {0x0301, u"F#-"_s}, //
        {0x0200, u"D"_s},  {0x0201, u"B-"_s},  //
        {0x0100, u"G"_s},  {0x0101, u"E-"_s},  //
        {0x0000, u"C"_s},  {0x0001, u"A-"_s},  //
        {0xFF00, u"F"_s},  {0xFF01, u"D-"_s},  //
        {0xFE00, u"Bb"_s}, {0xFE01, u"G-"_s},  //
        {0xFD00, u"Eb"_s}, {0xFD01, u"C-"_s},  //
        {0xFC00, u"Ab"_s}, {0xFC01, u"F-"_s},  //
        {0xFB00, u"Db"_s}, {0xFB01, u"Bb-"_s}, //
        {0xFA00, u"Gb"_s}, {0xFA01, u"Eb-"_s}, //
        {0xF900, u"Cb"_s}, {0xF901, u"Ab-"_s}, //
    };
    return map;
}

QMap<QString, quint16> makeKeyToValue()
{
    QMap<QString, quint16> map;
    for (auto entry = valueToKey().cbegin(); entry != valueToKey().cend(); ++entry)
        map.insert(entry.value(), entry.key());
    // Names in the catalogue that have no signature of their own. "G#" is written as E major, not
    // as A flat, as songs always were, and is read back as "E".
    map.insert(u"G#"_s, 0x0400);
    map.insert(u"Db-"_s, 0x0401);
    map.insert(u"D#"_s, 0xFD00);
    return map;
}

} // namespace

std::optional<quint16> MidiKeys::valueOf(const QString &name)
{
    static const QMap<QString, quint16> keyToValue = makeKeyToValue();
    const auto entry = keyToValue.constFind(name);
    return entry == keyToValue.cend() ? std::nullopt : std::optional(entry.value());
}

QString MidiKeys::nameOf(quint16 value)
{
    return valueToKey().value(value);
}

QStringList MidiKeys::names()
{
    return valueToKey().values();
}

} // namespace brisel
