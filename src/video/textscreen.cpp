#include "video/textscreen.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHash>
#include <QPainter>

namespace {
constexpr int kPenWidth = 5;
constexpr int kSurveyFontPixels = 11;
constexpr int kLargeFontPixels = 20;
constexpr int kLineSpacing = 23;
constexpr int kSurveyTop = 50;
constexpr int kLeftColumnX = 50;
constexpr int kRightColumnX = 400;
constexpr int kEndHeaderTop = 242;
const char *const kContext = "Video";

// Field keys carry their form's tag in front; the operator reads the name alone.
const char *const kFieldTags[] = {"PID", "PCD", "WC"};

// Every survey field the header knows, so translators see them all.
const char *const kKnownFields[] = {
    QT_TRANSLATE_NOOP("Video", "SiteAddress"), QT_TRANSLATE_NOOP("Video", "Postcode"),
    QT_TRANSLATE_NOOP("Video", "Operator"), QT_TRANSLATE_NOOP("Video", "Client"),
    QT_TRANSLATE_NOOP("Video", "Reason"), QT_TRANSLATE_NOOP("Video", "Drawing#"),
    QT_TRANSLATE_NOOP("Video", "ParkingRestrictions"), QT_TRANSLATE_NOOP("Video", "Start"),
    QT_TRANSLATE_NOOP("Video", "Direction"), QT_TRANSLATE_NOOP("Video", "End"),
    QT_TRANSLATE_NOOP("Video", "Date"), QT_TRANSLATE_NOOP("Video", "Time"),
    QT_TRANSLATE_NOOP("Video", "Material"), QT_TRANSLATE_NOOP("Video", "Size"),
    QT_TRANSLATE_NOOP("Video", "Duty"), QT_TRANSLATE_NOOP("Video", "Comments"),
    QT_TRANSLATE_NOOP("Video", "Project"), QT_TRANSLATE_NOOP("Video", "StartNode"),
    QT_TRANSLATE_NOOP("Video", "StartDepth"), QT_TRANSLATE_NOOP("Video", "EndNode"),
    QT_TRANSLATE_NOOP("Video", "EndDepth"), QT_TRANSLATE_NOOP("Video", "PipeMaterial"),
    QT_TRANSLATE_NOOP("Video", "PipeDimension1"), QT_TRANSLATE_NOOP("Video", "PipeShape"),
    QT_TRANSLATE_NOOP("Video", "Purpose"), QT_TRANSLATE_NOOP("Video", "Cleaning"),
    QT_TRANSLATE_NOOP("Video", "StartStreetName"), QT_TRANSLATE_NOOP("Video", "CityName"),
    QT_TRANSLATE_NOOP("Video", "Municipal"), QT_TRANSLATE_NOOP("Video", "JobID"),
    QT_TRANSLATE_NOOP("Video", "Remarks"), QT_TRANSLATE_NOOP("Video", "Contractor"),
    QT_TRANSLATE_NOOP("Video", "PipeLength"), QT_TRANSLATE_NOOP("Video", "LengthEstimated"),
    QT_TRANSLATE_NOOP("Video", "FinalCategory"), QT_TRANSLATE_NOOP("Video", "Location"),
    QT_TRANSLATE_NOOP("Video", "Weather"), QT_TRANSLATE_NOOP("Video", "Temperature"),
    QT_TRANSLATE_NOOP("Video", "Usage"), QT_TRANSLATE_NOOP("Video", "Type"),
    QT_TRANSLATE_NOOP("Video", "FlowControl"), QT_TRANSLATE_NOOP("Video", "DrainArea"),
    QT_TRANSLATE_NOOP("Video", "LiningMaterial"), QT_TRANSLATE_NOOP("Video", "LiningType"),
    QT_TRANSLATE_NOOP("Video", "Method"), QT_TRANSLATE_NOOP("Video", "ConstructionYear"),
};

// Fields whose stored key is not what the operator calls them.
const QHash<QString, const char *> &renamedFields()
{
    static const QHash<QString, const char *> renamed = {
        {QStringLiteral("SiteName"), QT_TRANSLATE_NOOP("Video", "FileName")},
        {QStringLiteral("SiteNum"), QT_TRANSLATE_NOOP("Video", "Site Name/Number")},
        {QStringLiteral("Invert"), QT_TRANSLATE_NOOP("Video", "Invert Depth")},
    };
    return renamed;
}

struct ColourPair {
    Qt::GlobalColor text;
    Qt::GlobalColor outline;
};

// Row 0 is black on white, the reverse of the overlay labels' first look: the
// headers are read over a picture that the labels' white text would drown in.
const ColourPair kColourPairs[] = {
    {Qt::black, Qt::white},          {Qt::magenta, Qt::darkMagenta}, {Qt::darkBlue, Qt::blue},
    {Qt::red, Qt::darkRed},          {Qt::white, Qt::black},         {Qt::green, Qt::darkGreen},
};

const ColourPair &colourPair(int setting)
{
    const int count = int(sizeof(kColourPairs) / sizeof(kColourPairs[0]));
    return kColourPairs[setting >= 0 && setting < count ? setting : 0];
}

QFont headerFont(int pixelSize)
{
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(pixelSize);
    return font;
}

void preparePainter(QPainter &painter, int fontPixels)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.setFont(headerFont(fontPixels));
}

// The text over a one-pixel outline on its four diagonals.
void drawOutlined(QPainter &painter, const QPoint &at, const QString &text, const QColor &textColour,
                  const QColor &outlineColour)
{
    painter.setPen(QPen(outlineColour, kPenWidth));
    for (const QPoint &offset : {QPoint(1, 1), QPoint(1, -1), QPoint(-1, -1), QPoint(-1, 1)})
        painter.drawText(at + offset, text);
    painter.setPen(QPen(textColour, kPenWidth));
    painter.drawText(at, text);
}

QString withoutFieldTag(QString key)
{
    for (const char *tag : kFieldTags) {
        if (key.startsWith(QLatin1String(tag))) {
            key.remove(0, int(qstrlen(tag)));
            break;
        }
    }
    return key;
}
} // namespace

QColor TextScreen::textColour(int colourSetting)
{
    return colourPair(colourSetting).text;
}

QColor TextScreen::outlineColour(int colourSetting)
{
    return colourPair(colourSetting).outline;
}

QString TextScreen::translateSurveyHeader(const QString &key)
{
    const auto renamed = renamedFields().constFind(key);
    if (renamed != renamedFields().constEnd())
        return QCoreApplication::translate(kContext, renamed.value());
    for (const char *known : kKnownFields)
        if (key == QLatin1String(known))
            return QCoreApplication::translate(kContext, known);
    return key;
}

QPoint TextScreen::surveyFieldPosition(int index)
{
    // Two columns only: fields past the second run on below the right column.
    if (index < kRowsPerColumn)
        return {kLeftColumnX, kLineSpacing * index + kSurveyTop};
    return {kRightColumnX, kLineSpacing * (index - kRowsPerColumn) + kSurveyTop};
}

QImage TextScreen::blankPicture()
{
    QImage picture(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

QImage TextScreen::surveyDetails(const QList<Field> &fields, int colourSetting)
{
    QImage picture = blankPicture();
    QPainter painter(&picture);
    preparePainter(painter, kSurveyFontPixels);
    for (int i = 0; i < fields.size(); ++i) {
        const QString line =
            translateSurveyHeader(withoutFieldTag(fields.at(i).first)) + QStringLiteral(": ") + fields.at(i).second;
        drawOutlined(painter, surveyFieldPosition(i), line, textColour(colourSetting), outlineColour(colourSetting));
    }
    return picture;
}

QImage TextScreen::endHeader(const QStringList &lines, int colourSetting)
{
    QImage picture = blankPicture();
    QPainter painter(&picture);
    preparePainter(painter, kLargeFontPixels);
    const QFontMetrics metrics(painter.font());
    for (int n = 0; n < lines.size(); ++n) {
        const int width = metrics.horizontalAdvance(lines.at(n)) + 2;
        // Centred on 384 rather than the picture's middle: the header has always sat there.
        const QPoint at(int(kHeight / 1.5) - width / 2, kLineSpacing * n + kEndHeaderTop);
        drawOutlined(painter, at, lines.at(n), textColour(colourSetting), Qt::white);
    }
    return picture;
}

QImage TextScreen::winCanCode(const QString &code, const QString &sentence, int colourSetting)
{
    QImage picture = blankPicture();
    QPainter painter(&picture);
    preparePainter(painter, kLargeFontPixels);
    const QString text = code + QLatin1Char('\n') + sentence;
    const int flags = Qt::AlignCenter | Qt::TextWordWrap;
    painter.setPen(QPen(outlineColour(colourSetting), kPenWidth));
    for (const QRect &rect : {QRect(11, 9, 701, 589), QRect(9, 9, 699, 589), QRect(11, 11, 701, 591),
                              QRect(9, 11, 699, 591)})
        painter.drawText(rect, flags, text);
    painter.setPen(QPen(textColour(colourSetting), kPenWidth));
    painter.drawText(QRect(10, 10, 700, 590), flags, text);
    return picture;
}
