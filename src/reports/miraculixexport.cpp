#include "reports/miraculixexport.h"

#include <QDebug>
#include <QFile>
#include <QHash>
#include <QSaveFile>
#include <QSettings>
#include <QTextStream>
#include <QTime>
#include <QXmlStreamWriter>
#include <utility>

namespace {

const QString kProjectFile = QStringLiteral(".project.wdb");
const QString kSectionFile = QStringLiteral("/.section.wdb");
const QString kObservationFile = QStringLiteral("/.observations.wdb");

const QString kProjectGroup = QStringLiteral("Project/");
const QString kPipeKeys = QStringLiteral("Section/PCD");
const QString kInspectionKeys = QStringLiteral("Section/PID");
// "Project/" and "Section/" alike: a key less its group is its element's name.
constexpr int kGroupLength = 8;

// The identifiers as they stand in the file, the blank after the comma included.
const QString kCode = QStringLiteral(" CODE");
const QString kEnd = QStringLiteral(" END");
const QString kJpeg = QStringLiteral(" JPEG");
const QString kQuantity = QStringLiteral(" QANT");

constexpr qint64 kSecondsPerDay = 24 * 60 * 60;

// An element name the XML reader accepts. The survey writes plain ASCII keys; a
// key of a damaged or hand-edited file that is no name would make the file unreadable.
bool isElementName(const QString &name)
{
    if (name.isEmpty())
        return false;
    for (int i = 0; i < name.size(); ++i) {
        const char c = name.at(i).toLatin1();
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        const bool more = (c >= '0' && c <= '9') || c == '.' || c == '-';
        if (name.at(i).unicode() > 0x7f || !(letter || (i > 0 && more)))
            return false;
    }
    return true;
}

void writeText(QXmlStreamWriter &xml, const QString &element, const QString &text)
{
    xml.writeTextElement(element, SurveyExport::xmlText(text));
}

// A selection stored with its code, "Foul (F)", is exported as the code alone.
// Unlike the WRC file a single word stays as it is, "(F)" included.
QString codeOf(const QString &value)
{
    if (!value.contains(QLatin1Char('(')) || !value.contains(QLatin1Char(')')))
        return value;
    const QStringList pieces = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (pieces.size() < 2)
        return value;
    QString code = pieces.last();
    return code.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
}

// One element per key of the file that starts with `prefix`, in the file's key order.
void writeKeys(QXmlStreamWriter &xml, const QSettings &settings, const QString &prefix, bool codesOnly)
{
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        if (!key.startsWith(prefix))
            continue;
        const QString element = key.mid(kGroupLength);
        if (!isElementName(element)) {
            qWarning() << "MiraculIX export leaves out a key that is no element name:" << key << "in"
                       << settings.fileName();
            continue;
        }
        const QString value = SurveyExport::settingText(settings, key);
        writeText(xml, element, codesOnly ? codeOf(value) : value);
    }
}

// The recording's position "(@<ms>)" as the clock time into the video, "hh:mm:ss";
// it wraps past a day. A position that is no number counts as the start.
QString videoPosition(QString field)
{
    field = field.remove(QLatin1Char('(')).remove(QLatin1Char(')')).remove(QLatin1Char('@')).trimmed();
    bool ok = false;
    qint64 seconds = field.toLongLong(&ok) / 1000;
    if (!ok)
        seconds = qint64(field.toULongLong() / 1000);
    seconds %= kSecondsPerDay;
    if (seconds < 0)
        seconds += kSecondsPerDay;
    return QTime(0, 0).addSecs(int(seconds)).toString(Qt::TextDate);
}

// The file states metres whatever the coiler counted in: "12.5ft" is "12.5".
QString distance(QString field)
{
    return field.remove(QLatin1Char('m')).remove(QStringLiteral("ft")).trimmed();
}

// One line of the observation file: distance, identifier, value, (@position).
struct ObservationRecord {
    QString distance;
    QString id;
    QString value;
    QString position;

    // False for a line with fewer than four fields, such as one cut off by a power loss.
    bool read(const QString &line)
    {
        const QStringList fields = line.split(QLatin1Char(','));
        if (fields.size() < 4)
            return false;
        distance = fields.first();
        id = fields.at(1);
        // A remark may hold commas of its own: the value is everything up to the position.
        value = fields.mid(2, fields.size() - 3).join(QLatin1Char(',')).trimmed();
        position = fields.last();
        return true;
    }
};

// Turns a section's observation lines into "sectionobservation" elements: one
// per defect block (CODE .. END) and one per general photograph.
class ObservationBlocks
{
    Q_DECLARE_TR_FUNCTIONS(MiraculIXExport)
public:
    ObservationBlocks(QXmlStreamWriter &xml, QString section)
        : m_xml(xml),
          m_section(std::move(section)),
          m_movie(m_section + QLatin1Char('\\') + m_section + QStringLiteral("-video.mp4"))
    {
    }

    void read(const QString &line)
    {
        ObservationRecord record;
        if (!record.read(line))
            return;
        if (record.id == kCode)
            openBlock(record);
        else if (m_inBlock)
            addToBlock(record);
        else if (record.id == kJpeg)
            generalPhotograph(record);
    }

    // A block the file does not close, such as one cut off by a power loss, ends with the file.
    void finish()
    {
        if (m_inBlock)
            closeBlock();
    }

private:
    void openBlock(const ObservationRecord &record)
    {
        // A block never closed before the next one opens still keeps what it had.
        finish();
        writeHead(record, record.value);
        m_inBlock = true;
        m_quantities = 0;
    }

    void closeBlock()
    {
        m_xml.writeEndElement();
        m_inBlock = false;
    }

    void addToBlock(const ObservationRecord &record)
    {
        static const QHash<QString, QString> elements = {
            {QStringLiteral(" TEXT"), QStringLiteral("podtext")},
            {QStringLiteral(" CDEF"), QStringLiteral("PODContinuousDefect")},
            {QStringLiteral(" REMS"), QStringLiteral("PODRemarks")},
            {QStringLiteral(" CLKT"), QStringLiteral("PODToClock")},
            {QStringLiteral(" CLKF"), QStringLiteral("PODFromClock")},
        };
        if (record.id == kEnd)
            closeBlock();
        else if (record.id == kJpeg)
            writePicture(record.value);
        else if (record.id == kQuantity)
            writeText(m_xml, QStringLiteral("PODQuantification%1").arg(++m_quantities), record.value);
        else if (elements.contains(record.id))
            writeText(m_xml, elements.value(record.id), record.value);
    }

    // A snapshot outside a block is an observation of its own.
    void generalPhotograph(const ObservationRecord &record)
    {
        writeHead(record, QStringLiteral("GP"));
        writeText(m_xml, QStringLiteral("podtext"), tr("General photograph taken at this point"));
        // A single blank, not empty: the office's reader expects remarks here.
        writeText(m_xml, QStringLiteral("PODRemarks"), QStringLiteral(" "));
        writePicture(record.value);
        m_xml.writeEndElement();
    }

    void writeHead(const ObservationRecord &record, const QString &code)
    {
        m_xml.writeStartElement(QStringLiteral("sectionobservation"));
        writeText(m_xml, QStringLiteral("poddistance"), distance(record.distance));
        writeText(m_xml, QStringLiteral("podcode"), code);
        writeText(m_xml, QStringLiteral("podmovie"), m_movie);
        writeText(m_xml, QStringLiteral("podmpegposition"), videoPosition(record.position));
    }

    // Every picture of a block is a "PODPicture1": the number does not count them.
    // The office opens the files from Windows: the backslash is wanted.
    void writePicture(const QString &fileName)
    {
        writeText(m_xml, QStringLiteral("PODPicture1"), (m_section + QLatin1Char('\\') + fileName).trimmed());
    }

    QXmlStreamWriter &m_xml;
    const QString m_section;
    const QString m_movie;
    bool m_inBlock = false;
    int m_quantities = 0;
};

} // namespace

MiraculIXExport::MiraculIXExport(QString projectPath, QString savePath)
    : SurveyExport(std::move(projectPath), std::move(savePath))
{
}

bool MiraculIXExport::startExport()
{
    const QStringList sections = directoryList();
    const QSettings project(m_prj_path + kProjectFile, QSettings::IniFormat);
    // Written aside and moved into place, so the report never reads half a file
    // and a power loss mid-export leaves the last complete one.
    QSaveFile file(exportFilePath(project));
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning() << "XML File failed to open" << file.fileName() << file.errorString();
        return false;
    }
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    writeProject(xml, project);
    for (const QString &section : sections)
        writeSection(xml, section);
    xml.writeEndDocument();

    if (xml.hasError() || !file.commit()) {
        qWarning() << "XML File could not be written whole" << file.fileName() << file.errorString();
        return false;
    }
    clearCache();
    return true;
}

// An unnamed project's file is "unnamed.xml", as its folder is "unnamed.wcs": a
// file called ".xml" would be hidden from the report and the media browser.
QString MiraculIXExport::exportFilePath(const QSettings &project) const
{
    const QString name = settingText(project, QStringLiteral("Project/cdname")).trimmed();
    return m_save_path + fileSafeName(name.isEmpty() ? QStringLiteral("unnamed") : name) + QStringLiteral(".xml");
}

void MiraculIXExport::writeProject(QXmlStreamWriter &xml, const QSettings &project)
{
    xml.writeStartElement(QStringLiteral("exportdata"));
    // Distances are declared as metres whatever the coiler counted in.
    xml.writeAttribute(QStringLiteral("distanceunit"), QStringLiteral("meter"));
    xml.writeAttribute(QStringLiteral("cnameprefix"), QStringLiteral("lanthorn"));

    xml.writeStartElement(QStringLiteral("project"));
    writeKeys(xml, project, kProjectGroup, false);
    writeText(xml, QStringLiteral("ProjectID"), settingText(project, QStringLiteral("Project/ID")));
    xml.writeStartElement(QStringLiteral("documents"));
    xml.writeStartElement(QStringLiteral("document"));
    writeText(xml, QStringLiteral("filename"), QStringLiteral("Report.pdf"));
    writeText(xml, QStringLiteral("description"), QStringLiteral("WinCan Report PDF"));
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

void MiraculIXExport::writeSection(QXmlStreamWriter &xml, const QString &sectionDir)
{
    const QSettings section(sectionDir + kSectionFile, QSettings::IniFormat);
    xml.writeStartElement(QStringLiteral("section"));
    writeText(xml, QStringLiteral("sectionname"), sectionName(sectionDir));
    writeKeys(xml, section, kPipeKeys, true);
    xml.writeStartElement(QStringLiteral("sectioninspection"));
    writeKeys(xml, section, kInspectionKeys, true);
    writeObservations(xml, sectionDir);
    xml.writeEndElement();
    xml.writeEndElement();
}

// A section without an observation file has no observations; that is no error.
void MiraculIXExport::writeObservations(QXmlStreamWriter &xml, const QString &sectionDir)
{
    QFile file(sectionDir + kObservationFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return;
    QTextStream in(&file);
    ObservationBlocks blocks(xml, sectionName(sectionDir));
    QString line;
    while (in.readLineInto(&line))
        blocks.read(line);
    blocks.finish();
}
