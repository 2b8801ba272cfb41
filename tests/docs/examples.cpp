#include "tests/docs/examples.h"

#include <QTest>

#include <algorithm>

namespace brisel
{

namespace
{

/// Fails the running case.
void fail(const QString &problem)
{
    QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
}

} // namespace

QString Examples::textOf(const QString &kind, const QString &name)
{
    for (const QString &page : FormatPages::names()) {
        for (const FormatPages::Block &block : FormatPages::blocksIn(FormatPages::text(page))) {
            if (block.kind == kind && block.name == name)
                return block.text;
        }
    }
    fail(u"no page has the example "_qs + name);
    return {};
}

HexExample Examples::example(const QString &name)
{
    const std::optional<HexExample> example = HexExample::parse(textOf(u"hex"_qs, name));
    if (!example)
        fail(u"this example can't be read: "_qs + name);
    return example.value_or(HexExample());
}

QByteArray Examples::bytes(const QString &name)
{
    const HexExample told = example(name);
    if (!told.isComplete())
        fail(u"this example leaves bytes out: "_qs + name);
    return told.bytes();
}

QString Examples::difference(const QByteArray &written, const QByteArray &told)
{
    for (qsizetype i = 0; i < std::max(written.size(), told.size()); ++i) {
        const QByteArray ours = written.mid(i, 1).toHex();
        const QByteArray pages = told.mid(i, 1).toHex();
        if (ours != pages)
            return u"byte 0x%1 is \"%2\", the page says \"%3\""_qs.arg(
                QString::number(i, 16), QString::fromLatin1(ours), QString::fromLatin1(pages));
    }
    return {};
}

} // namespace brisel
