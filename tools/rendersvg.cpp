/// Build-time tool: draws an SVG as a PNG, so that the program needs no SVG reader for its own
/// images, and desktops find its icon in every size.
/// Usage: rendersvg <in.svg> <out.png> <size>, where the size is a scale, 1 or 2, or a width in
/// pixels, for example 48px.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <QTextStream>

#include <algorithm>

namespace
{

int fail(int code, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    return code;
}

/// The size that \a wanted means for a drawing of the size \a own; invalid if it is not a size.
QSize imageSize(const QString &wanted, QSize own)
{
    if (wanted == u"1"_qs || wanted == u"2"_qs)
        return own * wanted.toInt();
    const int width = wanted.endsWith(u"px"_qs) ? wanted.chopped(2).toInt() : 0;
    if (width < 1 || width > 4096 || own.isEmpty())
        return {};
    return {width, std::max(1, qRound(double(own.height()) * width / own.width()))};
}

/// The whole drawing at \a size; null if the image can't be made.
QImage draw(QSvgRenderer &drawing, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(image.rect()));
    return image;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 4)
        return fail(2, u"usage: rendersvg <in.svg> <out.png> <size>"_qs);
    const QString source = QString::fromLocal8Bit(argv[1]);
    const QString target = QString::fromLocal8Bit(argv[2]);
    const QString wanted = QString::fromLocal8Bit(argv[3]);
    if (!imageSize(wanted, {1, 1}).isValid())
        return fail(2, u"rendersvg: the size is 1, 2 or a width from 1px to 4096px"_qs);

    QSvgRenderer drawing(source);
    if (!drawing.isValid())
        return fail(1, u"rendersvg: can't read the drawing "_qs + source);
    const QImage image = draw(drawing, imageSize(wanted, drawing.defaultSize()));
    if (image.isNull())
        return fail(1, u"rendersvg: no size in "_qs + source);
    if (!image.save(target, "PNG"))
        return fail(1, u"rendersvg: can't write "_qs + target);
    return 0;
}
