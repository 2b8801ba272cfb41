#pragma once

#include "tools/demo/demohome.h"
#include "tools/demo/demosongs.h"
#include "tools/demo/hand.h"
#include "tools/demo/narrator.h"

#include <QFile>
#include <QMainWindow>

namespace brisel
{

/// The objects that every step of the tour uses.
struct Stage {
    DemoHome &home;
    QMainWindow &window;
    Narrator &narrator;
    Hand &hand;
    QList<DemoSong> songs;
};

/// A file's bytes; empty if it can't be read.
inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace brisel
