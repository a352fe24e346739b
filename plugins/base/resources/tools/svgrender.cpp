// Build-time renderer of the plugin's images: draws an SVG source into PNG
// files, or into an ICO file holding one picture per requested size.
//
//   svgrender <in.svg> <out.png> <size>|<w>x<h>
//   svgrender <in.svg> <out.ico> <size>[,<size>...]
//
// The ICO container is written here with PNG payloads (valid since Windows
// Vista and read by Qt's ico plugin), because Qt's own ICO writer stores a
// single picture only; a one-size ICO goes through Qt's writer. Either way the
// file is read back and the build fails if Qt cannot load every picture.

#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QSaveFile>
#include <QSize>
#include <QStringList>
#include <QSvgRenderer>
#include <QtEndian>

#include <cstdio>

namespace {

int fail(QString const& message)
{
    std::fprintf(stderr, "svgrender: %s\n", qPrintable(message));
    return 1;
}

QSize parseSize(QString const& text)
{
    QStringList const parts = text.split(QLatin1Char('x'));
    bool okW = false;
    bool okH = false;
    int const w = parts.value(0).toInt(&okW);
    int const h = parts.size() > 1 ? parts.value(1).toInt(&okH) : w;
    if (parts.size() > 2 || !okW || (parts.size() > 1 && !okH) || w <= 0 || h <= 0 || w > 1024 || h > 1024)
        return QSize();
    return QSize(w, h);
}

QImage render(QSvgRenderer& renderer, QSize const& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

QByteArray pngBytes(QImage const& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

void putLe16(QByteArray& out, quint16 v)
{
    char b[2];
    qToLittleEndian(v, b);
    out.append(b, 2);
}

void putLe32(QByteArray& out, quint32 v)
{
    char b[4];
    qToLittleEndian(v, b);
    out.append(b, 4);
}

// ICONDIR, one ICONDIRENTRY per picture, then the PNG streams.
QByteArray icoContainer(QList<QImage> const& images)
{
    QList<QByteArray> payloads;
    for (QImage const& image : images)
        payloads.append(pngBytes(image));

    QByteArray out;
    putLe16(out, 0);        // reserved
    putLe16(out, 1);        // type: icon
    putLe16(out, quint16(images.size()));
    quint32 offset = 6 + 16 * quint32(images.size());
    for (int i = 0; i < images.size(); ++i) {
        int const w = images.at(i).width();
        int const h = images.at(i).height();
        out.append(char(w >= 256 ? 0 : w));   // 0 stands for 256
        out.append(char(h >= 256 ? 0 : h));
        out.append(char(0));                  // no palette
        out.append(char(0));                  // reserved
        putLe16(out, 1);                      // colour planes
        putLe16(out, 32);                     // bits per pixel
        putLe32(out, quint32(payloads.at(i).size()));
        putLe32(out, offset);
        offset += quint32(payloads.at(i).size());
    }
    for (QByteArray const& payload : payloads)
        out.append(payload);
    return out;
}

bool writeAtomically(QString const& path, QByteArray const& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(bytes);
    return file.commit();
}

bool readsBack(QString const& path, int expectedCount)
{
    QImageReader reader(path);
    int const count = reader.imageCount();
    if (expectedCount > 1 && count != expectedCount)
        return false;
    for (int i = 0; i < qMax(1, count); ++i) {
        if (i > 0 && !reader.jumpToImage(i))
            return false;
        if (reader.read().isNull())
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QStringList const args = app.arguments();
    if (args.size() != 4)
        return fail(QStringLiteral("usage: svgrender <in.svg> <out.png|out.ico> <size>[,<size>...]"));

    QString const input = args.at(1);
    QString const output = args.at(2);
    QList<QSize> sizes;
    for (QString const& text : args.at(3).split(QLatin1Char(','))) {
        QSize const size = parseSize(text);
        if (!size.isValid())
            return fail(QStringLiteral("bad size \"%1\"").arg(text));
        sizes.append(size);
    }

    QSvgRenderer renderer(input);
    if (!renderer.isValid())
        return fail(QStringLiteral("cannot read SVG \"%1\"").arg(input));

    QList<QImage> images;
    for (QSize const& size : sizes)
        images.append(render(renderer, size));

    bool const ico = output.endsWith(QLatin1String(".ico"), Qt::CaseInsensitive);
    bool written = false;
    if (!ico) {
        if (images.size() != 1)
            return fail(QStringLiteral("a PNG takes exactly one size"));
        written = writeAtomically(output, pngBytes(images.first()));
    } else if (images.size() == 1) {
        written = images.first().save(output, "ICO");
    } else {
        written = writeAtomically(output, icoContainer(images));
    }
    if (!written)
        return fail(QStringLiteral("cannot write \"%1\"").arg(output));
    if (!readsBack(output, ico ? images.size() : 1)) {
        QFile::remove(output);
        return fail(QStringLiteral("\"%1\" does not read back").arg(output));
    }
    return 0;
}
