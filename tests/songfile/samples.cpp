#include "tests/songfile/samples.h"

#include "songfile/lzhuff.h"

#include <QFile>
#include <QtEndian>

namespace brisel
{

static QByteArray number(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray Samples::midi(const QByteArray &events, int format)
{
    const QByteArray note = bytes("\x00\x90\x3C\x40\x60\x80\x3C\x40\x00\xFF\x2F\x00");
    QList<QByteArray> tracks{events + note};
    if (format != 0)
        tracks.append(bytes("\x00\x91\x40\x40\x60\x81\x40\x40\x00\xFF\x2F\x00"));
    return MidiBytes::file(tracks, format);
}

quint32 Samples::trackLength(const QByteArray &midi)
{
    return qFromBigEndian<quint32>(midi.constData() + midi.indexOf("MTrk") + 4);
}

quint32 Samples::trackBytes(const QByteArray &midi)
{
    const qsizetype start = midi.indexOf("MTrk") + 8;
    const qsizetype next = midi.indexOf("MTrk", start);
    return static_cast<quint32>((next < 0 ? midi.size() : next) - start);
}

QMap<QByteArray, QByteArray> Samples::unreadableEvents()
{
    QMap<QByteArray, QByteArray> events{
        {"no status", bytes("\0\x40\x40")},
        {"a delta of five bytes", bytes("\x81\x80\x80\x80\0\x90\x40\x40")},
        {"a length of five bytes", bytes("\0\xFF\x01\x80\x80\x80\x80\0")}};
    // System common and real-time messages.
    for (int status = 0xF1; status < 0xFF; ++status) {
        if (status != 0xF7)
            events.insert(QByteArray::number(status, 16),
                          bytes("\0") + static_cast<char>(status) + bytes("\0\0"));
    }
    return events;
}

QByteArray Samples::frame(const QByteArray &id, const QByteArray &text)
{
    return id + number(static_cast<quint32>(text.size() + 1)) + QByteArray(3, '\0') + text;
}

QByteArray Samples::tag(const QByteArray &frames)
{
    const auto size = static_cast<unsigned>(frames.size());
    QByteArray header = bytes("ID3\x03\0\0");
    for (const int shift : {21, 14, 7, 0})
        header += static_cast<char>((size >> shift) & 0x7F);
    return header + frames;
}

QByteArray Samples::audio(int size)
{
    QByteArray data = bytes("\xFF\xFB\x90\x44");
    while (data.size() < size)
        data += static_cast<char>(data.size() * 31 % 251);
    return data.left(size);
}

QByteArray Samples::containerHeader(const QByteArray &magic, int size)
{
    QByteArray header(size, '\0');
    for (int i = 0; i < size; ++i)
        header[i] = static_cast<char>(i % 255 + 1);
    struct Field {
        int offset;
        int width;
    };
    for (const Field field : {Field{38, 2}, Field{42, 13}, Field{90, 20}, Field{122, 32},
                              Field{154, 31}, Field{185, 1}, Field{186, 96}})
        header.replace(field.offset, field.width, QByteArray(field.width, '\0'));
    return header.replace(0, 4, magic);
}

QByteArray Samples::container(const QByteArray &header, const QByteArray &midi)
{
    QByteArray compressed;
    LzHuff().compress(midi, compressed);
    return header + compressed;
}

void Samples::write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
}

QByteArray Samples::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace brisel
