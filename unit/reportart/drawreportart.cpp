// Draws the pictures the PDF report is made of, so the kit carries no binary
// artwork: drawreportart <kit root> <language code>...
// The pipe bitmaps share the report's drawing frame: the pipe's axis runs from
// (1145, 228) at the start manhole to (192.4, 778) at the end manhole.
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>
#include <QtMath>

namespace {

const QPointF kPipeStart(1145, 228);
const QPointF kPipeEnd(1145 - 1100 * 0.866, 228 + 1100 * 0.5);
// Along the pipe and across it.
const QPointF kAlong(-0.866, 0.5);
const QPointF kAcross(0.5, 0.866);
constexpr double kRadius = 40;
const QColor kClayDark(150, 80, 48);
const QColor kClayLight(232, 160, 112);
const QColor kConcrete(150, 150, 145);

QImage water()
{
    QImage image(256, 256, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(image.rect(), QColor(40, 96, 140));
    for (int row = 0; row < 16; ++row) {
        QPainterPath wave;
        const double y = row * 16 + 8;
        wave.moveTo(0, y);
        for (int x = 0; x <= 256; x += 32)
            {
            wave.quadTo(x + 8, y - 5 + (row % 2) * 2, x + 16, y);
            wave.quadTo(x + 24, y + 5, x + 32, y);
        }
        p.setPen(QPen(QColor(120, 180, 220, 170), 2));
        p.drawPath(wave);
    }
    return image;
}

QLinearGradient acrossGradient(const QPointF &centre, const QColor &edge, const QColor &middle)
{
    QLinearGradient g(centre - kAcross * kRadius, centre + kAcross * kRadius);
    g.setColorAt(0, edge);
    g.setColorAt(0.35, middle);
    g.setColorAt(1, edge.darker(130));
    return g;
}

void drawManhole(QPainter &p, const QPointF &pipeEnd)
{
    const QRectF shaft(pipeEnd.x() - 70, pipeEnd.y() - 190, 140, 250);
    QLinearGradient side(shaft.left(), 0, shaft.right(), 0);
    side.setColorAt(0, kConcrete.darker(140));
    side.setColorAt(0.4, kConcrete.lighter(120));
    side.setColorAt(1, kConcrete.darker(160));
    p.setPen(QPen(QColor(70, 70, 70), 2));
    p.setBrush(side);
    p.drawRect(shaft);
    p.setBrush(QColor(60, 60, 60));
    p.drawEllipse(QRectF(shaft.left(), shaft.top() - 22, shaft.width(), 44));
    p.setBrush(kConcrete.darker(110));
    p.drawEllipse(QRectF(shaft.left(), shaft.bottom() - 22, shaft.width(), 44));
    p.setPen(QPen(QColor(200, 200, 195), 4));
    for (double y = shaft.top() + 20; y < shaft.bottom() - 40; y += 28)
        p.drawLine(QPointF(shaft.center().x() - 22, y), QPointF(shaft.center().x() + 22, y));
}

// The pipe as a band at 30 degrees; an end that continues on the next page fades out.
void drawPipe(QPainter &p, const QImage &pattern, bool startFades, bool endFades)
{
    const QPointF a = kPipeStart - kAlong * (startFades ? 60 : 0);
    const QPointF b = kPipeEnd + kAlong * (endFades ? 60 : 0);
    QPolygonF band(QVector<QPointF>{a - kAcross * kRadius, b - kAcross * kRadius, b + kAcross * kRadius, a + kAcross * kRadius});
    p.setPen(Qt::NoPen);
    p.setBrush(acrossGradient((a + b) / 2, kClayDark, kClayLight));
    p.drawPolygon(band);
    QPolygonF flow(QVector<QPointF>{a + kAcross * (kRadius * 0.55), b + kAcross * (kRadius * 0.55), b + kAcross * (kRadius * 0.9),
                   a + kAcross * (kRadius * 0.9)});
    p.setBrush(QBrush(pattern));
    p.setOpacity(0.75);
    p.drawPolygon(flow);
    p.setOpacity(1);
    p.setPen(QPen(kClayDark.darker(150), 3));
    p.drawLine(a - kAcross * kRadius, b - kAcross * kRadius);
    p.drawLine(a + kAcross * kRadius, b + kAcross * kRadius);
    // Joints every so often, as a clay pipe has.
    p.setPen(QPen(kClayDark.darker(120), 2));
    for (double s = 110; s < 1100; s += 110) {
        const QPointF c = kPipeStart + kAlong * s;
        p.drawLine(c - kAcross * kRadius, c + kAcross * kRadius);
    }
    auto fade = [&](const QPointF &end, const QPointF &outwards) {
        QLinearGradient g(end - outwards * 60, end);
        g.setColorAt(0, QColor(255, 255, 255, 0));
        g.setColorAt(1, QColor(255, 255, 255, 255));
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawPolygon(QPolygonF(QVector<QPointF>{end - outwards * 60 - kAcross * (kRadius + 4), end - kAcross * (kRadius + 4),
                                end + kAcross * (kRadius + 4), end - outwards * 60 + kAcross * (kRadius + 4)}));
    };
    if (startFades)
        fade(a, -kAlong);
    if (endFades)
        fade(b, kAlong);
}

QImage pipe(const QImage &pattern, bool startManhole, bool endManhole)
{
    QImage image(1500, 1000, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    if (startManhole)
        drawManhole(p, kPipeStart + QPointF(40, 0));
    if (endManhole)
        drawManhole(p, kPipeEnd + QPointF(-40, 0));
    drawPipe(p, pattern, !startManhole, !endManhole);
    return image;
}

QImage junction(bool near)
{
    // The pipe point lies at (2, 58) of the near symbol and (159, 58) of the far
    // one. A near connection comes towards the viewer, below the pipe; a far one
    // leaves it away from the viewer, above and behind it.
    QImage image(near ? 150 : 190, near ? 180 : 90, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF root = near ? QPointF(2, 58) : QPointF(159, 58);
    const QPointF tip = root + (near ? kAcross : -kAcross) * (near ? 100 : 55);
    const QLineF line(root, tip);
    p.setPen(QPen(kClayDark.darker(130), 38, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(line);
    p.setPen(QPen(kClayLight, 30, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(line);
    p.translate(tip);
    p.rotate(-line.angle() + 90);
    p.setPen(QPen(kClayDark.darker(150), 3));
    p.setBrush(QColor(45, 35, 30));
    p.drawEllipse(QRectF(-19, -8, 38, 16));
    return image;
}

QImage arrow(bool upstream)
{
    QImage image(220, 90, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(110, 45);
    // Along the pipe, towards the start manhole (upstream) or away from it.
    p.rotate(upstream ? -30 : 150);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(31, 78, 110));
    p.drawPolygon(QPolygonF(QVector<QPointF>{{-80, -10}, {40, -10}, {40, -26}, {85, 0}, {40, 26}, {40, 10}, {-80, 10}}));
    return image;
}

void drawMark(QPainter &p, const QRectF &box, const QColor &ring, const QColor &core)
{
    p.setPen(QPen(ring, box.width() / 10));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(box);
    p.setPen(Qt::NoPen);
    p.setBrush(core);
    p.drawEllipse(box.adjusted(box.width() * 0.3, box.height() * 0.3, -box.width() * 0.3, -box.height() * 0.3));
}

QImage defaultLogo()
{
    QImage image(863, 226, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    drawMark(p, QRectF(40, 33, 160, 160), QColor(31, 78, 110), QColor(232, 160, 112));
    p.setPen(Qt::black);
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 88, QFont::Bold));
    p.drawText(QRect(240, 10, 600, 150), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("ostra"));
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 26));
    p.drawText(QRect(246, 150, 600, 60), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("drain inspection reporting"));
    return image;
}

QImage storeBadge(const QString &line1, const QString &line2)
{
    QImage image(480, 140, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(160, 160, 160), 3));
    p.setBrush(Qt::black);
    p.drawRoundedRect(QRectF(2, 2, 476, 136), 22, 22);
    drawMark(p, QRectF(24, 30, 80, 80), Qt::white, QColor(232, 160, 112));
    p.setPen(Qt::white);
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 20));
    p.drawText(QRect(130, 18, 340, 44), Qt::AlignLeft | Qt::AlignVCenter, line1);
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 34, QFont::Bold));
    p.drawText(QRect(130, 60, 340, 60), Qt::AlignLeft | Qt::AlignVCenter, line2);
    return image;
}

QImage emptySite()
{
    QImage image(1000, 600, QImage::Format_ARGB32);
    image.fill(QColor(236, 240, 243));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(160, 172, 184), 6));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(400, 200, 200, 140), 18, 18);
    p.drawEllipse(QRectF(455, 225, 90, 90));
    p.drawRect(QRectF(430, 180, 50, 20));
    p.setFont(QFont(QStringLiteral("Liberation Sans"), 30));
    p.drawText(QRect(0, 380, 1000, 60), Qt::AlignCenter, QStringLiteral("No site photograph"));
    return image;
}

bool save(const QImage &image, const QString &path, const char *format = "PNG")
{
    QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/'))));
    if (image.save(path, format))
        return true;
    QTextStream(stderr) << "drawreportart: cannot write " << path << "\n";
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 2) {
        QTextStream(stderr) << "usage: drawreportart <kit root> <language code>...\n";
        return 2;
    }
    const QString kit = QString::fromLocal8Bit(argv[1]);
    const QString bin = kit + QStringLiteral("/opt/hbi/bin/");
    const QImage pattern = water();
    bool ok = save(pattern, bin + QStringLiteral("ocean_v2_256.BMP"), "BMP")
              && save(pipe(pattern, true, true), bin + QStringLiteral("3DPipe.png"))
              && save(pipe(pattern, true, false), bin + QStringLiteral("3DPipeSO.png"))
              && save(pipe(pattern, false, false), bin + QStringLiteral("3DPipePO.png"))
              && save(pipe(pattern, false, true), bin + QStringLiteral("3DPipeEO.png"))
              && save(arrow(true), bin + QStringLiteral("Upstream.png"))
              && save(arrow(false), bin + QStringLiteral("Downstream.png"))
              && save(junction(true), bin + QStringLiteral("Junction_near.png"))
              && save(junction(false), bin + QStringLiteral("Junction_far.png"));
    // The report refers to the default logo by name, from beside whichever HTML file is converted.
    const QImage logo = defaultLogo();
    ok = ok && save(logo, bin + QStringLiteral("Logo-wback-btext.PNG"))
         && save(logo, kit + QStringLiteral("/opt/hbi/reporting/Logo-wback-btext.PNG"));
    for (int i = 2; i < argc && ok; ++i) {
        const QString ostra = kit + QStringLiteral("/opt/hbi/languages/") + QString::fromLocal8Bit(argv[i])
                              + QStringLiteral("/ostra/");
        ok = save(emptySite(), ostra + QStringLiteral("EmptySiteImage.png"))
             && save(storeBadge(QStringLiteral("Get the ostra app"), QStringLiteral("iPhone & iPad")),
                     ostra + QStringLiteral("AppStore.png"))
             && save(storeBadge(QStringLiteral("Get the ostra app"), QStringLiteral("Android")),
                     ostra + QStringLiteral("PlayStore.png"));
    }
    return ok ? 0 : 1;
}
