#pragma once

#include "tests/docs/formatpages.h"

namespace brisel
{

/// The examples of the pages, by name. A missing or invalid example fails the running case.
namespace Examples
{

QString textOf(const QString &kind, const QString &name);
HexExample example(const QString &name);
/// The bytes of an example that spells out all of them.
QByteArray bytes(const QString &name);
/// Describes where \a written differs from the page's bytes; empty if they are the same.
QString difference(const QByteArray &written, const QByteArray &told);

} // namespace Examples

} // namespace brisel
