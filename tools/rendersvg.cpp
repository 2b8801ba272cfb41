/// Build-time tool: draws an SVG as a PNG, so that the program needs no SVG reader to show its own
/// images. Usage: rendersvg <in.svg> <out.png> <scale>, scale 1 or 2.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <QTextStream>

namespace
{

int fail(int code, const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    return code;
}

/// The whole drawing at \a scale image dots a unit; null when the image can't be made.
QImage draw(QSvgRenderer &drawing, int scale)
{
    QImage image(drawing.defaultSize() * scale, QImage::Format_ARGB32_Premultiplied);
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
        return fail(2, u"usage: rendersvg <in.svg> <out.png> <scale>"_qs);
    const QString source = QString::fromLocal8Bit(argv[1]);
    const QString target = QString::fromLocal8Bit(argv[2]);
    const int scale = QString::fromLocal8Bit(argv[3]).toInt();
    if (scale != 1 && scale != 2)
        return fail(2, u"rendersvg: the scale is 1 or 2"_qs);

    QSvgRenderer drawing(source);
    if (!drawing.isValid())
        return fail(1, u"rendersvg: can't read the drawing "_qs + source);
    const QImage image = draw(drawing, scale);
    if (image.isNull())
        return fail(1, u"rendersvg: no size in "_qs + source);
    if (!image.save(target, "PNG"))
        return fail(1, u"rendersvg: can't write "_qs + target);
    return 0;
}
