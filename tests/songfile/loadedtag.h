#pragma once

#include "songfile/mp3header.h"

namespace brisel
{

/// The tag loaded from \a data, the start of an MP3.
inline Mp3Header loadedTag(const QByteArray &data)
{
    Mp3Header header;
    if (!header.loadHeader(data))
        qFatal("tag refused");
    return header;
}

/// True if the size field counts the bytes after the tag's header.
inline bool isSizeRight(const Mp3Header &header)
{
    return Mp3Header::getId3TagSize(header.stream()) + 10 ==
           static_cast<unsigned>(header.stream().size());
}

} // namespace brisel
