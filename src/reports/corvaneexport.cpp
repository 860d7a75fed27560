#include "reports/corvaneexport.h"

#include "core/consolesettings.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QSettings>
#include <QTextStream>
#include <utility>

namespace {

const QString kLineEnd = QStringLiteral("\r\n");
const QString kFieldSeparator = QStringLiteral(", ");

const QString kProjectFile = QStringLiteral(".project.sdb");
const QString kSectionFile = QStringLiteral("/.section.sdb");
const QString kObservationFile = QStringLiteral("/.observations.sdb");
const QString kSiteNameKey = QStringLiteral("Project/Site Name");
const QString kSizeKey = QStringLiteral("Section/Size");

const QStringList kProjectKeys = {
    kSiteNameKey,
    QStringLiteral("Project/Address"),
    QStringLiteral("Project/Postcode"),
    QStringLiteral("Project/Parking Restrictions"),
    QStringLiteral("Project/Client"),
    QStringLiteral("Project/Reference"),
    QStringLiteral("Project/Drawing Number"),
    QStringLiteral("Project/Reason"),
    QStringLiteral("Project/Operator"),
    QStringLiteral("Project/SiteNum"),
};
const QStringList kProjectWrcKeys = {QStringLiteral("Project/TownName"), QStringLiteral("Project/Weather")};

const QStringList kSectionKeys = {
    QStringLiteral("Section/Start"),
    QStringLiteral("Section/Direction"),
    QStringLiteral("Section/End"),
    QStringLiteral("Section/Material"),
    kSizeKey,
    QStringLiteral("Section/Duty"),
    QStringLiteral("Section/Invert"),
    QStringLiteral("Section/EDepth"),
    QStringLiteral("Section/Date"),
    QStringLiteral("Section/Time"),
    QStringLiteral("Section/Comments"),
    QStringLiteral("Section/SEngineer"),
};
// EDepth and Comments stand in both lists: readers of the WRC layout expect them twice.
const QStringList kSectionWrcKeys = {
    QStringLiteral("Section/EDepth"),
    QStringLiteral("Section/Flow"),
    QStringLiteral("Section/LiningMaterial"),
    QStringLiteral("Section/Method"),
    QStringLiteral("Section/PipelineRef"),
    QStringLiteral("Section/Precleaned"),
    QStringLiteral("Section/Shape"),
    QStringLiteral("Section/Type"),
    QStringLiteral("Section/Comments"),
};

void writeLine(QTextStream &out, const QString &name, const QString &value)
{
    out << name << " = " << value << kLineEnd;
}

// Turns a section's observation lines into the export's lines, one per
// comment, snapshot with comment, or defect block.
class ObservationConverter
{
public:
    ObservationConverter(QTextStream &out, QString section) : m_out(out), m_section(std::move(section)) {}

    void read(const QString &line)
    {
        // distance, type, text, (@position); a comma in a remark moves the later fields.
        const QStringList fields = line.split(QLatin1Char(','));
        if (fields.size() < 4)
            return;
        const QString id = fields.at(1).trimmed();
        const QString value = fields.at(2);
        if (id == QLatin1String("JPEG"))
            snapshot(fields.at(0), value);
        else if (id == QLatin1String("CODE"))
            openBlock(fields.at(0));
        else if (id == QLatin1String("TEXT"))
            comment(fields.at(0), value.trimmed());
        else if (id == QLatin1String("REMS"))
            remark(value.trimmed());
        else if (id == QLatin1String("END"))
            closeEntry();
        else if (!isIgnored(id))
            qWarning() << "Unknown ID in Observation File..." << id << "in" << m_section;
    }

private:
    // The export carries what an observation says, not its code, clock or quantities.
    static bool isIgnored(const QString &id)
    {
        static const QStringList ignored = {QStringLiteral("CDEF"), QStringLiteral("CLKT"), QStringLiteral("CLKF"),
                                            QStringLiteral("QANT")};
        return ignored.contains(id);
    }

    // The unit goes: "12.5ft" and "12.5m" are both "12.5" in the export.
    static QString distance(QString field) { return field.remove(QStringLiteral("ft")).remove(QLatin1Char('m')); }

    QString imageReference(const QString &fileName) const
    {
        const QString name = fileName.trimmed();
        return name.isEmpty() ? name : m_section + QLatin1Char('\\') + name;
    }

    void snapshot(const QString &distanceField, const QString &fileName)
    {
        switch (m_mode) {
        case eNone:
        case eSnap:
            m_mode = eSnap;
            m_image = imageReference(fileName);
            m_distance = distance(distanceField);
            break;
        case eCode:
            // A snapshot asked for inside a block belongs to the defect's distance.
            m_image = imageReference(fileName);
            break;
        case eText:
            break;
        }
    }

    void openBlock(const QString &distanceField)
    {
        m_mode = eCode;
        m_distance = distance(distanceField);
    }

    void comment(const QString &distanceField, const QString &text)
    {
        m_text = text;
        switch (m_mode) {
        case eNone:
            m_distance = distance(distanceField);
            closeEntry();
            break;
        case eSnap:
            // Written at the snapshot's distance, not the comment's.
            closeEntry();
            break;
        case eCode:
        case eText:
            break;
        }
    }

    void remark(const QString &text)
    {
        if (m_mode == eCode)
            m_text = (m_text + QLatin1Char(' ') + text).trimmed();
    }

    // Kept behaviour: the text is not cleared here, so a block with no TEXT line
    // repeats the text of the entry before it.
    void closeEntry()
    {
        m_out << m_distance << kFieldSeparator;
        if (!m_image.isEmpty())
            m_out << m_image << kFieldSeparator;
        m_out << m_text << kLineEnd;
        m_mode = eNone;
        m_image.clear();
    }

    QTextStream &m_out;
    const QString m_section;
    eObsMode_t m_mode = eNone;
    QString m_image;
    QString m_distance;
    QString m_text;
};

} // namespace

CorvaneExport::CorvaneExport(QString projectPath, QString savePath)
    : SurveyExport(std::move(projectPath), std::move(savePath))
{
}

bool CorvaneExport::wrcFieldsWanted()
{
    return ConsoleSettings::isEnglishUk() && ConsoleSettings().value(QStringLiteral("SurveyData/WRC"), false).toBool();
}

bool CorvaneExport::startExport()
{
    const QStringList sections = directoryList();
    const QSettings project(m_prj_path + kProjectFile, QSettings::IniFormat);
    QFile file(exportFilePath(project));
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning() << "Export File failed to open" << file.fileName() << file.errorString();
        return false;
    }
    QTextStream out(&file);
    out.setCodec("UTF-8");

    const bool wrc = wrcFieldsWanted();
    writeProject(out, project, wrc);
    int job = 0;
    for (const QString &section : sections)
        writeJob(out, ++job, section, wrc);

    out.flush();
    file.close();
    if (out.status() != QTextStream::Ok || file.error() != QFileDevice::NoError) {
        qWarning() << "Export File could not be written whole" << file.fileName() << file.errorString();
        return false;
    }
    clearCache();
    return true;
}

QString CorvaneExport::exportFilePath(const QSettings &project) const
{
    const QString name = settingText(project, kSiteNameKey).trimmed().toLower();
    return m_save_path + fileSafeName(name) + QStringLiteral(".txt");
}

void CorvaneExport::writeProject(QTextStream &out, const QSettings &project, bool wrc) const
{
    writeFields(out, project, kProjectKeys);

    const QDateTime now = QDateTime::currentDateTime();
    const bool twentyFourHour = ConsoleSettings().value(QStringLiteral("Clock_mode"), 0).toInt() == 0;
    writeLine(out, QStringLiteral("Export Date"), now.toString(tr("dd/MM/yy")));
    writeLine(out, QStringLiteral("Export Time"),
              now.toString(twentyFourHour ? QStringLiteral("hh:mm") : QStringLiteral("hh:mm AP")));

    if (wrc)
        writeFields(out, project, kProjectWrcKeys);
}

// Each settings key is written without its group: "Section/Start" as "Start = ...".
void CorvaneExport::writeFields(QTextStream &out, const QSettings &settings, const QStringList &keys)
{
    for (const QString &key : keys) {
        QString value = settingText(settings, key);
        if (key == kSizeKey)
            value = value.toLower();
        writeLine(out, key.mid(key.indexOf(QLatin1Char('/')) + 1), value);
    }
}

void CorvaneExport::writeJob(QTextStream &out, int job, const QString &sectionDir, bool wrc) const
{
    const QSettings section(sectionDir + kSectionFile, QSettings::IniFormat);
    const QString name = sectionName(sectionDir);

    out << kLineEnd << kLineEnd << "Job " << job << kLineEnd;
    // The office opens the video from a Windows machine: the backslash is wanted.
    writeLine(out, QStringLiteral("Section Video"), name + QStringLiteral("\\video.mp4"));
    writeFields(out, section, kSectionKeys);
    if (wrc)
        writeFields(out, section, kSectionWrcKeys);
    writeObservations(out, sectionDir);
}

void CorvaneExport::writeObservations(QTextStream &out, const QString &sectionDir) const
{
    QFile file(sectionDir + kObservationFile);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return;
    QTextStream in(&file);
    ObservationConverter converter(out, sectionName(sectionDir));
    QString line;
    while (in.readLineInto(&line))
        converter.read(line);
}
