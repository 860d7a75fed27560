// Draws the simulated unit's splash and logo pictures, so the kit carries no
// binary artwork: drawartwork <output folder>
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QTextStream>

namespace {

struct Brand {
    QString name;
    QString strapline;
    QColor accent;
};

void drawPipeMark(QPainter &p, const QRectF &box, const QColor &accent)
{
    p.setPen(QPen(accent, box.width() / 14.0));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(box);
    p.setPen(QPen(Qt::white, box.width() / 28.0));
    p.drawEllipse(box.adjusted(box.width() / 4, box.height() / 4, -box.width() / 4, -box.height() / 4));
}

QImage splash(const Brand &brand)
{
    QImage image(800, 600, QImage::Format_ARGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, 600);
    sky.setColorAt(0, QColor(10, 20, 35));
    sky.setColorAt(1, QColor(30, 45, 70));
    p.fillRect(image.rect(), sky);
    drawPipeMark(p, QRectF(320, 120, 160, 160), brand.accent);
    QFont title(QStringLiteral("Liberation Sans"), 48, QFont::Bold);
    p.setFont(title);
    p.setPen(Qt::white);
    p.drawText(QRect(0, 310, 800, 80), Qt::AlignCenter, brand.name);
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 20));
    p.setPen(brand.accent);
    p.drawText(QRect(0, 390, 800, 40), Qt::AlignCenter, brand.strapline);
    return image;
}

QImage logo(const Brand &brand)
{
    QImage image(420, 100, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    drawPipeMark(p, QRectF(10, 10, 80, 80), brand.accent);
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 30, QFont::Bold));
    // The logo sits on the console's light pages.
    p.setPen(QColor(0x20, 0x20, 0x20));
    p.drawText(QRect(105, 0, 315, 100), Qt::AlignVCenter | Qt::AlignLeft, brand.name);
    return image;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: drawartwork <output folder>\n";
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    const Brand lanthorn{QStringLiteral("LANTHORN"), QStringLiteral("Sewer inspection console"), QColor(255, 200, 0)};
    const Brand wayfell{QStringLiteral("WAYFELL"), QStringLiteral("Drain inspection console"), QColor(0, 200, 255)};
    bool ok = splash(lanthorn).save(out + QStringLiteral("/lanthorn_splash.png"))
              && splash(wayfell).save(out + QStringLiteral("/wayfell_splash.png"))
              && logo(lanthorn).save(out + QStringLiteral("/lanthorn_logo.png"))
              && logo(wayfell).save(out + QStringLiteral("/wayfell_logo.png"));
    return ok ? 0 : 1;
}
