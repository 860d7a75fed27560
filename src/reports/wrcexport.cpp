#include "reports/wrcexport.h"

#include "core/consolesettings.h"
#include "reports/corvaneexport.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTextStream>
#include <QXmlStreamWriter>
#include <cmath>
#include <utility>

namespace {

const QString kWrcHost = QStringLiteral("http://www.wrcplc.co.uk");
const QString kNamespace = kWrcHost + QStringLiteral("/srm/mscc");
const QString kSchema = kWrcHost + QStringLiteral("/srm/schemas/mscc5_cctv_final_draft.xsd");
const QString kStylesheet = kWrcHost + QStringLiteral("/srm/schemas/mscc5_cctv_stylesheet_final_draft.xsl");
const QString kSchemaInstance = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

const QString kProjectFile = QStringLiteral(".project.sdb");
const QString kSectionFile = QStringLiteral("/.section.sdb");
const QString kObservationFile = QStringLiteral("/.observations.sdb");
const QString kRemark = QStringLiteral("REM");
// What a missing field shows in the file, so the office sees it was never given.
constexpr char kError[] = "ERROR";

// Distances beyond what the schema's field holds are written as its largest value.
constexpr double kLongestDistance = 999.9;
// Kept factor: the office's files have always been made with 0.305, not 0.3048.
constexpr double kMetresPerFoot = 0.305;

enum class Source { kProject, kSection };

enum class Rule {
    kAlways,         // the value or its default
    kRequired,       // only when not blank; a blank one marks the header incomplete
    kIfNotBlank,     // only when not blank
    kIfPresent,      // only when the key is in the file, even empty
    kIfNumber,       // only when it reads as a number; written as stored
};

struct HeaderField {
    const char *element;
    Source source;
    const char *key;
    const char *fallback;
    Rule rule;
    bool trimmed;
    bool stripCode;
};

// The order of the elements is the schema's; readers check it.
const HeaderField kHeaderFields[] = {
    {"Client", Source::kProject, "Project/Client", "", Rule::kRequired, false, false},
    {"NameOfSurveyor", Source::kProject, "Project/Operator", "", Rule::kRequired, false, false},
    {"ClientsJobRef", Source::kProject, "Project/Reference", "", Rule::kRequired, false, false},
    {"PipelineLengthRef", Source::kSection, "Section/PipelineRef", kError, Rule::kAlways, true, false},
    {"Date", Source::kSection, "Section/Date", kError, Rule::kAlways, false, false},
    {"Time", Source::kSection, "Section/Time", kError, Rule::kAlways, false, false},
    {"LocationStreet", Source::kProject, "Project/Address", kError, Rule::kAlways, true, false},
    {"LocationTown", Source::kProject, "Project/TownName", kError, Rule::kAlways, true, false},
    {"StartNodeRef", Source::kSection, "Section/Start", kError, Rule::kAlways, true, false},
    {"Node1Ref", Source::kSection, "Section/Start", kError, Rule::kAlways, true, false},
    {"DepthAtStartNode", Source::kSection, "Section/Invert", "", Rule::kIfNumber, false, false},
    {"FinishNodeRef", Source::kSection, "Section/End", kError, Rule::kAlways, true, false},
    {"DepthAtFinishNode", Source::kSection, "Section/EDepth", "", Rule::kIfNumber, false, false},
    {"TypeOfDrainSewer", Source::kSection, "Section/Type", "", Rule::kIfPresent, false, true},
    {"Direction", Source::kSection, "Section/Direction", kError, Rule::kAlways, false, true},
    {"UseOfDrainSewer", Source::kSection, "Section/Duty", "", Rule::kIfNotBlank, true, true},
    {"Shape", Source::kSection, "Section/Shape", "", Rule::kIfNotBlank, true, true},
    {"Material", Source::kSection, "Section/Material", "", Rule::kRequired, true, true},
    {"LiningMaterial", Source::kSection, "Section/LiningMaterial", "", Rule::kIfPresent, true, true},
    {"Precleaned", Source::kSection, "Section/Precleaned", kError, Rule::kAlways, false, true},
    {"GeneralRemarks", Source::kSection, "Section/Comments", kError, Rule::kRequired, true, false},
    {"FlowControlMeasures", Source::kSection, "Section/Flow", "", Rule::kIfPresent, false, true},
    {"Weather", Source::kProject, "Project/Weather", "", Rule::kIfPresent, false, true},
    {"MethodOfInspection", Source::kSection, "Section/Method", kError, Rule::kAlways, false, true},
};

// A selection stored with its code, "Foul (F)", is exported as the code alone.
QString codeOf(const QString &value)
{
    if (!value.contains(QLatin1Char('(')) || !value.contains(QLatin1Char(')')))
        return value;
    const QStringList pieces = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QString code = pieces.size() < 2 ? value : pieces.last();
    return code.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
}

// "225 x 300mm" is "225  300": the letters go, the blanks stay.
QString heightDiameter(const QString &size)
{
    QString value = size.toLower();
    value.remove(QRegularExpression(QStringLiteral("[a-z]")));
    return value;
}

QString distanceField(QString field)
{
    return field.remove(QStringLiteral("ft")).remove(QLatin1Char('m'));
}

QString timeField(QString field)
{
    return field.remove(QLatin1Char('(')).remove(QLatin1Char(')')).remove(QLatin1Char('@'));
}

// To the decimetre, halves away from zero; the small allowance keeps a value such
// as 10 ft (3.05 m, held in binary as 3.0499...) from falling to the lower one.
QString oneDecimal(double metres)
{
    const double tenths = std::floor(std::fabs(metres) * 10.0 + 0.5 + 1e-9);
    return QString::number(std::copysign(tenths, metres) / 10.0, 'f', 1);
}

} // namespace

WRCExport::WRCExport(QString projectPath)
    : mProjectPath(std::move(projectPath)),
      mImperial(ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool())
{
    if (!mProjectPath.isEmpty() && !mProjectPath.endsWith(QLatin1Char('/')))
        mProjectPath += QLatin1Char('/');
}

void WRCExport::exportIfWanted(const QString &projectPath)
{
    if (!CorvaneExport::wrcFieldsWanted())
        return;
    if (WRCExport(projectPath).WRCExport_Start())
        qInfo() << "WRC Export Successful" << projectPath;
    else
        qWarning() << "WRC Export Failed" << projectPath;
}

bool WRCExport::WRCExport_Start()
{
    const QSettings project(mProjectPath + kProjectFile, QSettings::IniFormat);
    // Unlike the text export, the site name keeps its case and its outer blanks.
    const QString siteNameKey = QStringLiteral("Project/Site Name");
    const QString name = SurveyExport::fileSafeName(project.contains(siteNameKey)
                                                        ? SurveyExport::settingText(project, siteNameKey)
                                                        : QStringLiteral("unnamed"));
    QFile file(mProjectPath + name + QStringLiteral(".xml"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qWarning() << "WRC xml file failed to open" << file.fileName() << file.errorString();
        return false;
    }

    QXmlStreamWriter writer(&file);
    WRCExport_Writer = &writer;
    writer.setAutoFormatting(true);
    writer.writeStartDocument(QStringLiteral("1.0"));
    writer.writeProcessingInstruction(QStringLiteral("xml-stylesheet type=\"text/xsl\""),
                                      QStringLiteral("href=\"%1\"").arg(kStylesheet));
    writer.writeStartElement(QStringLiteral("SurveyGroup"));
    writer.writeAttribute(QStringLiteral("xmlns"), kNamespace);
    writer.writeAttribute(QStringLiteral("xmlns:xsi"), kSchemaInstance);
    // The attribute's name is the program's own and the office's readers expect it.
    writer.writeAttribute(QStringLiteral("xmlns:schemalocation"), kSchema);

    for (const QString &sectionDir : WRCExport_GetDir()) {
        mSectionPath = sectionDir.mid(sectionDir.lastIndexOf(QLatin1Char('/')) + 1) + QLatin1Char('\\');
        writer.writeStartElement(QStringLiteral("Survey"));
        writer.writeAttribute(QStringLiteral("xmlns"), kNamespace);
        if (WRCExport_WriteHeader(sectionDir))
            qDebug() << "WRC header of" << sectionDir << "lacks fields the office needs";
        WRCExport_WriteObservations(sectionDir);
        writer.writeEndElement();
    }

    writer.writeEndElement();
    writer.writeEndDocument();
    WRCExport_Writer = nullptr;
    file.close();
    if (writer.hasError() || file.error() != QFileDevice::NoError) {
        qWarning() << "WRC xml file could not be written whole" << file.fileName() << file.errorString();
        return false;
    }
    return true;
}

// By name, not by age: the office's tools list the sections as a file browser would.
QStringList WRCExport::WRCExport_GetDir() const
{
    QStringList sections;
    for (const QString &entry : QDir(mProjectPath).entryList(QDir::Dirs)) {
        if (entry != QLatin1String(".") && entry != QLatin1String(".."))
            sections << mProjectPath + entry;
    }
    return sections;
}

bool WRCExport::WRCExport_WriteHeader(QString sectionDir)
{
    const QSettings project(mProjectPath + kProjectFile, QSettings::IniFormat);
    const QSettings section(sectionDir + kSectionFile, QSettings::IniFormat);
    bool missing = false;

    WRCExport_Writer->writeStartElement(QStringLiteral("Header"));
    for (const HeaderField &field : kHeaderFields) {
        const QSettings &settings = field.source == Source::kProject ? project : section;
        const QString key = QLatin1String(field.key);
        QString value = settings.contains(key) ? SurveyExport::settingText(settings, key) : QLatin1String(field.fallback);
        if (field.trimmed)
            value = value.trimmed();
        bool write = true;
        switch (field.rule) {
        case Rule::kAlways:
            break;
        case Rule::kRequired:
            write = !value.trimmed().isEmpty();
            missing = missing || !write;
            break;
        case Rule::kIfNotBlank:
            write = !value.trimmed().isEmpty();
            break;
        case Rule::kIfPresent:
            write = settings.contains(key);
            break;
        case Rule::kIfNumber:
            value.toFloat(&write);
            break;
        }
        if (write)
            WRCExport_WriteElement(QLatin1String(field.element), value, field.stripCode);
    }
    WRCExport_WriteElement(QStringLiteral("Standard"), QStringLiteral("MSCC-5 Domestic"), false);
    const QString size = section.contains(QStringLiteral("Section/Size"))
                             ? SurveyExport::settingText(section, QStringLiteral("Section/Size"))
                             : QStringLiteral("0");
    WRCExport_WriteElement(QStringLiteral("HeightDiameter"), heightDiameter(size), false);
    WRCExport_WriteElement(QStringLiteral("VideoImageFilename"), mSectionPath + QStringLiteral("video.mp4"), false);
    WRCExport_Writer->writeEndElement();
    return missing;
}

void WRCExport::WRCExport_WriteElement(QString tag, QString value, bool stripCode)
{
    if (stripCode)
        value = codeOf(value);
    // The schema wants every element it is given to hold something.
    if (value.isEmpty())
        value = QStringLiteral("0");
    writeText(tag, value);
}

void WRCExport::writeText(const QString &tag, const QString &value)
{
    WRCExport_Writer->writeTextElement(tag, SurveyExport::xmlText(value));
}

void WRCExport::WRCExport_WriteObservations(QString sectionDir)
{
    WRCExport_Writer->writeStartElement(QStringLiteral("Observations"));
    QFile file(sectionDir + kObservationFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << "Failed to open file..." << file.fileName() << file.errorString();
    } else {
        WRCExport_ResetObsStrings();
        QTextStream in(&file);
        QString line;
        while (in.readLineInto(&line))
            readObservationLine(line);
        // A block the file never closed is dropped.
        WRCExport_ResetObsStrings();
    }
    WRCExport_Writer->writeEndElement();
}

void WRCExport::WRCExport_ResetObsStrings()
{
    eCurrentMode = eNone;
    for (QString *text : {&mObsCode, &mObsDistance, &mObsTime, &mObsText, &mObsRemarks, &mObsJpeg, &mObsFrom, &mObsTo})
        text->clear();
    mquantList.clear();
}

// distance, type, value, (@position); a comma in a remark moves the later fields.
void WRCExport::readObservationLine(const QString &line)
{
    const QStringList fields = line.split(QLatin1Char(','));
    if (fields.size() < 4)
        return;
    const QString id = fields.at(1).trimmed();
    const QString value = fields.at(2);
    if (id == QLatin1String("CODE")) {
        WRCExport_ResetObsStrings();
        eCurrentMode = eCode;
        mObsCode = value;
        takePlace(fields);
    } else if (id == QLatin1String("JPEG")) {
        if (eCurrentMode == eNone) {
            eCurrentMode = eSnap;
            mObsCode = kRemark;
        }
        if (eCurrentMode == eSnap)
            takePlace(fields);
        if (eCurrentMode != eText)
            mObsJpeg = value;
    } else if (id == QLatin1String("TEXT")) {
        mObsText = value;
        if (eCurrentMode == eNone) {
            eCurrentMode = eText;
            mObsCode = kRemark;
            takePlace(fields);
        } else if (eCurrentMode == eSnap) {
            mObsRemarks = mObsText;
        }
        // Kept: the text itself never reaches the file; a snapshot's comment does, as its remark.
        if (eCurrentMode != eCode) {
            WRCExport_ObstoXML();
            WRCExport_ResetObsStrings();
        }
    } else if (id == QLatin1String("REMS")) {
        if (eCurrentMode == eCode)
            mObsRemarks = value;
    } else if (id == QLatin1String("END")) {
        WRCExport_ObstoXML();
        WRCExport_ResetObsStrings();
    } else if (id == QLatin1String("CLKT")) {
        mObsTo = value;
    } else if (id == QLatin1String("CLKF")) {
        mObsFrom = value;
    } else if (id == QLatin1String("QANT")) {
        mquantList << value.trimmed();
    } else {
        qWarning() << "Unknown ID in WRC Export..." << id << "in" << mSectionPath;
    }
}

void WRCExport::takePlace(const QStringList &fields)
{
    mObsDistance = distanceField(fields.at(0));
    mObsTime = timeField(fields.at(3));
}

void WRCExport::WRCExport_ObstoXML()
{
    QXmlStreamWriter &writer = *WRCExport_Writer;
    writer.writeStartElement(QStringLiteral("Observation"));
    writeText(QStringLiteral("VideoRef"), videoReference());
    const QString jpeg = mObsJpeg.trimmed();
    if (!jpeg.isEmpty()) {
        writer.writeStartElement(QStringLiteral("PhotographRefs"));
        writeText(QStringLiteral("PhotographRef"), mSectionPath + jpeg);
        writer.writeEndElement();
    }
    writeText(QStringLiteral("Distance"), distanceInMetres());
    const QString code = mObsCode.trimmed();
    writeText(QStringLiteral("Code"), code);
    // A code with more quantities than the block recorded gets only those it has.
    const QStringList tags = WRCExport_GetTagsFromObsCode(code);
    for (int i = 0; i < tags.size() && i < mquantList.size(); ++i)
        writeText(tags.at(i), mquantList.at(i));
    if (isClockReference(mObsFrom))
        writeText(QStringLiteral("ClockRefAtFrom"), mObsFrom.trimmed());
    if (isClockReference(mObsTo))
        writeText(QStringLiteral("ClockRefTo"), mObsTo.trimmed());
    const QString remarks = mObsRemarks.trimmed();
    if (!remarks.isEmpty())
        writeText(QStringLiteral("Remarks"), remarks);
    writer.writeEndElement();
}

// The recording's position as a clock time. Kept: it goes through the local
// time zone, as the office's files have always had it.
QString WRCExport::videoReference() const
{
    const double seconds = mObsTime.trimmed().toDouble() / 1000.0;
    const qint64 whole = std::isfinite(seconds) ? qint64(std::llround(qBound(-1e15, seconds, 1e15))) : 0;
    return QDateTime::fromSecsSinceEpoch(whole, Qt::LocalTime).toString(QStringLiteral("hh:mm:ss"));
}

QString WRCExport::distanceInMetres() const
{
    const double recorded = mObsDistance.trimmed().toDouble();
    double metres = mImperial ? recorded * kMetresPerFoot : recorded;
    if (!std::isfinite(metres))
        metres = 0.0;
    return oneDecimal(qMin(metres, kLongestDistance));
}

// Kept: 12 o'clock is not written, only 1 to 11.
bool WRCExport::isClockReference(const QString &hour)
{
    const int value = hour.trimmed().toInt();
    return value >= 1 && value <= 11;
}

QStringList WRCExport::WRCExport_GetTagsFromObsCode(QString code)
{
    static const QStringList kDimensionCodes = {QStringLiteral("CN"), QStringLiteral("CX"), QStringLiteral("CXI"),
                                                QStringLiteral("JN"), QStringLiteral("JX"), QStringLiteral("SC")};
    static const QStringList kPercentageCodes = {QStringLiteral("WL"),  QStringLiteral("CXI"), QStringLiteral("D"),
                                                 QStringLiteral("DEE"), QStringLiteral("DEG"), QStringLiteral("DER"),
                                                 QStringLiteral("DES"), QStringLiteral("OB"),  QStringLiteral("XP")};
    QStringList tags;
    if (kDimensionCodes.contains(code))
        tags << QStringLiteral("Dimension1");
    if (code == QLatin1String("PC"))
        tags << QStringLiteral("Dimension1");
    if (kPercentageCodes.contains(code))
        tags << QStringLiteral("Percentage");
    return tags;
}
