#include "reports/flatpng.h"

#include <QFile>
#include <QImage>
#include <QString>
#include <csetjmp>
#include <cstdio>
#include <png.h>
#include <zlib.h>

namespace {

// Plain C from here on: libpng reports errors by longjmp, which must not cross
// anything with a destructor.
bool writeRows(FILE *file, const QImage &rows, int colourType)
{
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (!png)
        return false;
    png_infop info = png_create_info_struct(png);
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, png_uint_32(rows.width()), png_uint_32(rows.height()), 8, colourType,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
    png_set_compression_level(png, 1);
    png_set_compression_strategy(png, Z_RLE);
    png_write_info(png, info);
    for (int y = 0; y < rows.height(); ++y)
        png_write_row(png, rows.constScanLine(y));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return true;
}

bool writeFile(const QImage &rows, int colourType, const QString &path)
{
    if (rows.isNull())
        return false;
    FILE *file = std::fopen(QFile::encodeName(path).constData(), "wb");
    if (!file)
        return false;
    const bool written = writeRows(file, rows, colourType);
    return std::fclose(file) == 0 && written;
}

} // namespace

bool writeFlatPng(const QImage &image, const QString &path)
{
    return writeFile(image.convertToFormat(QImage::Format_RGB888), PNG_COLOR_TYPE_RGB, path);
}

bool writeFlatPngWithAlpha(const QImage &image, const QString &path)
{
    return writeFile(image.convertToFormat(QImage::Format_RGBA8888), PNG_COLOR_TYPE_RGB_ALPHA, path);
}
