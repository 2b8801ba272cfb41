#pragma once

#include "tools/demo/demohome.h"
#include "tools/demo/demosongs.h"
#include "tools/demo/hand.h"
#include "tools/demo/narrator.h"

#include <QFile>
#include <QMainWindow>

/// What every step of the road works with.
struct Stage {
    DemoHome &home;
    QMainWindow &window;
    Narrator &narrator;
    Hand &hand;
    QList<DemoSong> songs;
};

/// A file's bytes; none when it can't be read.
inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
