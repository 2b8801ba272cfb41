#pragma once

#include "tests/docs/formatpages.h"

/// The examples of the pages, by name. One that is not there, or can't be read, fails the running
/// case.
namespace Examples
{

QString textOf(const QString &kind, const QString &name);
HexExample example(const QString &name);
/// The bytes of an example that leaves none out.
QByteArray bytes(const QString &name);
/// Where \a written differs from the page's bytes; empty when they are the same.
QString difference(const QByteArray &written, const QByteArray &told);

} // namespace Examples
