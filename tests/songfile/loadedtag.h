#pragma once

#include "songfile/mp3header.h"

/// \a data, an MP3's start, as its tag is loaded.
inline Mp3Header loadedTag(const QByteArray &data)
{
    Mp3Header header;
    if (!header.loadHeader(data))
        qFatal("tag refused");
    return header;
}

/// True when the size field counts the bytes behind the tag's header.
inline bool isSizeRight(const Mp3Header &header)
{
    return Mp3Header::getId3TagSize(header.stream()) + 10 ==
           static_cast<unsigned>(header.stream().size());
}
