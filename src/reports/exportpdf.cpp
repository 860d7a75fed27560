#include "reports/exportpdf.h"

#include "core/consolesettings.h"
#include "core/unitpaths.h"
#include "reports/corvaneexport.h"
#include "reports/graphicgen.h"
#include "reports/ostrareportsplitter.h"
#include "reports/reportlogo.h"
#include "reports/wincanreport.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTimer>

const QString exportPDF::kFooterLine = QStringLiteral("<footer><p style=\"page-break-after: always;\"></p></footer>");

namespace {

// Our own marker: the observation table of the page being filled takes its rows here.
const QString kObservationRowsMarker = QStringLiteral("<!--ObservationRows-->");
const QString kObservationRowsFull = QStringLiteral("<!--ObservationRowsFull-->");
const QString kEngineersNotesFile = QStringLiteral("EngineersNotes.txt");
const QString kReportFile = QStringLiteral("Report.pdf");
const QString kConverter = QStringLiteral("wkhtmltopdf");

void removeIfPresent(const QString &path)
{
    if (QFile::exists(path) && !QFile::remove(path))
        qWarning() << "Could not remove" << path;
}

QString afterEquals(const QString &line)
{
    return line.mid(line.indexOf(QLatin1Char('=')) + 1).trimmed();
}

// A picture field names a file; text that happens to hold commas does not.
bool isPictureField(const QString &field)
{
    static const QRegularExpression picture(QStringLiteral("\\.(jpe?g|png)$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return picture.match(field.trimmed()).hasMatch();
}

// distance, [picture,] text: a text with commas of its own is put back together.
QStringList observationFields(const QString &line)
{
    const QStringList parts = line.split(QLatin1Char(','));
    QStringList fields{parts.value(0).trimmed()};
    int textFrom = 1;
    if (parts.size() > 2 && isPictureField(parts.at(1))) {
        fields << parts.at(1).trimmed();
        textFrom = 2;
    }
    if (parts.size() > textFrom)
        fields << parts.mid(textFrom).join(QLatin1Char(',')).trimmed();
    return fields;
}

} // namespace

exportPDF::exportPDF(QObject *parent) : QObject(parent)
{
    imperialSetting = ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool() ? QStringLiteral("ft")
                                                                                                  : QStringLiteral("m");
}

exportPDF::~exportPDF()
{
    if (m_converter && m_converter->state() != QProcess::NotRunning) {
        m_converter->disconnect(this);
        m_converter->kill();
        m_converter->waitForFinished(2000);
    }
}

QString exportPDF::workingCopyPath() { return unitPath(QStringLiteral("/opt/hbi/bin/PDF.txt")); }
QString exportPDF::winCanWorkingCopyPath() { return unitPath(QStringLiteral("/opt/hbi/bin/WinCanPDF.txt")); }
QString exportPDF::filledPath() { return unitPath(QStringLiteral("/opt/hbi/bin/PDFtemp.txt")); }
QString exportPDF::htmlPath() { return unitPath(QStringLiteral("/opt/hbi/bin/PDF.html")); }

QString exportPDF::languageDir()
{
    return unitPath(QStringLiteral("/opt/hbi/languages/") + ConsoleSettings::languageCode() + QStringLiteral("/ostra/"));
}

int exportPDF::getNoJobs() const
{
    return jobs.size();
}

int exportPDF::getNoObs(int job) const
{
    if (job < 0 || job >= jobs.size()) {
        qWarning() << "Job number out of range \t requested =" << job;
        return -1;
    }
    return jobs.at(job).size();
}

QStringList exportPDF::getObs(int job, int obs) const
{
    return jobs.value(job).value(obs);
}

void exportPDF::startReport(QString projectDir)
{
    if (!projectDir.endsWith(QLatin1Char('/')))
        projectDir += QLatin1Char('/');
    dir = projectDir;
    image_path = projectDir;
    langDir = languageDir();
    jobs.clear();
    pipeInfo.clear();
    observation.clear();
    observation.reserve(100);
    jobs.reserve(20);
    pipeInfo.reserve(20);
}

void exportPDF::createPDF(QString projectDir)
{
    isWinCan = false;
    startReport(projectDir);
    emit progress(tr("Filling report"));
    fillInfo();

    emit progress(tr("Drawing pipe graphics"));
    GraphicGen graphic;
    graphic.setPath(image_path);
    graphic.createPipe(jobs, pipeInfo);

    txtPath = dir + kReportFile;
    removeIfPresent(txtPath);
    startConverter();
}

void exportPDF::createWinCanPDF(QString projectDir)
{
    isWinCan = true;
    startReport(projectDir);
    emit progress(tr("Filling report"));
    parseXML();

    emit progress(tr("Drawing pipe graphics"));
    GraphicGen graphic;
    graphic.setPath(image_path);
    graphic.createWinCanPipe(jobs, pipeInfo);

    txtPath = dir + kReportFile;
    removeIfPresent(txtPath);
    // Without the page the converter still runs, fails, and the survey goes on.
    if (!QFile::exists(htmlPath()))
        qWarning() << "nosuch file" << htmlPath();
    startConverter();
}

// The WinCan report is filled from the project's exchange XML.
void exportPDF::parseXML()
{
    removeIfPresent(workingCopyPath());
    removeIfPresent(htmlPath());
    removeIfPresent(winCanWorkingCopyPath());
    if (!QFile::copy(langDir + QStringLiteral("WinCanPDFtemplate.txt"), winCanWorkingCopyPath()))
        qWarning() << "Report template could not be copied" << langDir + QStringLiteral("WinCanPDFtemplate.txt");
    if (!m_report.load(winCanWorkingCopyPath())) {
        qWarning() << "file failed to open" << winCanWorkingCopyPath();
        return;
    }
    WinCanReport report(&m_report, dir, langDir, imperialSetting);
    report.begin();
    const QStringList exports = QDir(dir).entryList({QStringLiteral("*.xml")}, QDir::Files);
    if (exports.isEmpty())
        qWarning() << "No WinCan export in" << dir << "to make a report from";
    for (const QString &file : exports) {
        // A file that cannot be read through ends the reading: no half-filled report.
        if (!report.readFile(dir + file))
            break;
        // The last page ends the report rather than opening an empty one.
        m_report.removeLastLine(kFooterLine);
        writeHtml();
    }
    jobs = report.jobs();
    pipeInfo = report.pipeInfo();
}

void exportPDF::startConverter()
{
    m_converter = new QProcess(this);
    m_converter->setProcessChannelMode(QProcess::MergedChannels);
    connect(m_converter, &QProcess::readyRead, this, &exportPDF::converterOutput);
    connect(m_converter, &QProcess::errorOccurred, this, &exportPDF::converterFailed);
    connect(m_converter, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, [this](int exitCode) {
        if (isWinCan)
            resizeFinished(exitCode);
        else
            resizeFinishedOstra(exitCode);
    });
    emit progress(tr("Converting report"));
    if (mLargeProject && !isWinCan) {
        m_converter->start(QStringLiteral("/bin/sh"),
                           {unitPath(QStringLiteral("/opt/hbi/reporting/createPDF.sh")), txtPath});
    } else {
        m_converter->start(kConverter, {htmlPath(), txtPath});
    }
}

void exportPDF::converterOutput()
{
    static const QRegularExpression percent(QStringLiteral("(\\d+)%"));
    const QString text = QString::fromLocal8Bit(m_converter->readAll());
    QRegularExpressionMatchIterator it = percent.globalMatch(text);
    QString last;
    while (it.hasNext())
        last = it.next().captured(1);
    if (!last.isEmpty())
        emit progress(tr("Converting report: %1%").arg(last));
}

// Without a converter there is no PDF, but the survey must not wait for one.
void exportPDF::converterFailed(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    qWarning() << "PDF converter could not be started, no report written:" << m_converter->program()
               << m_converter->errorString();
    if (isWinCan)
        resizeFinished();
    else
        resizeFinishedOstra();
}

void exportPDF::resizeFinished(int exitCode)
{
    if (exitCode != 0)
        qWarning() << "PDF converter ended with exit code" << exitCode;
    resizeFinished();
}

void exportPDF::resizeFinished()
{
    cleanUp();
    emit pdfresizeFinished(image_path);
}

void exportPDF::resizeFinishedOstra(int exitCode)
{
    if (exitCode != 0)
        qWarning() << "PDF converter ended with exit code" << exitCode;
    resizeFinishedOstra();
}

void exportPDF::resizeFinishedOstra()
{
    cleanUp();
    if (!m_finishedTimer) {
        m_finishedTimer = new QTimer(this);
        m_finishedTimer->setInterval(kFinishedRepeatMs);
        connect(m_finishedTimer, &QTimer::timeout, this, &exportPDF::resizeDelay);
    }
    m_finishedTimer->start();
}

void exportPDF::resizeDelay()
{
    emit pdfresizeFinishedOstra(image_path);
}

void exportPDF::cleanUp()
{
    obsData.clear();
    tempData.clear();
    txtPath.clear();
    dir.clear();
    observation.clear();
    jobs.clear();
    pipeInfo.clear();
    removeIfPresent(workingCopyPath());
    removeIfPresent(filledPath());
    // txtPath is empty by now, so the finished report always stays and PDF.html
    // waits for the next report to remove it: the order is kept on purpose.
    if (QFile::exists(htmlPath()) && !txtPath.isEmpty() && QFile::exists(txtPath))
        QFile::remove(txtPath);
}

// ---- Filling ----------------------------------------------------------------------

void exportPDF::fillInfo()
{
    if (!langDir.endsWith(QLatin1Char('/')))
        langDir += QLatin1Char('/');
    mWrc = CorvaneExport::wrcFieldsWanted();
    prepareWorkingCopy(mWrc ? QStringLiteral("wrcTemplate.txt") : QStringLiteral("PDFtemplate.txt"));
    const QStringList exports = exportFiles();
    picCount = 0;
    jobCount = 0;
    if (!m_report.load(workingCopyPath()))
        qWarning() << "file failed to open" << workingCopyPath();

    insertMapPage();
    insertSitePage();
    insertEngineersNotes();

    for (const QString &file : exports) {
        const QStringList lines = ReportTemplate::readLines(dir + file);
        for (const QString &line : lines)
            readExportLine(line);
    }
    finishFilling();
}

void exportPDF::prepareWorkingCopy(const QString &frame)
{
    removeIfPresent(workingCopyPath());
    removeIfPresent(htmlPath());
    if (!QFile::copy(langDir + frame, workingCopyPath()))
        qWarning() << "Report template could not be copied" << langDir + frame;
    refreshStoreBadges();
}

void exportPDF::refreshStoreBadges()
{
    const QStringList folders{unitPath(QStringLiteral("/opt/hbi/reporting/")), unitPath(QStringLiteral("/opt/hbi/bin/"))};
    for (const QString &folder : folders) {
        for (const QString &badge : {QStringLiteral("AppStore"), QStringLiteral("PlayStore")}) {
            removeIfPresent(folder + badge + QStringLiteral(".PNG"));
            QFile::copy(langDir + badge + QStringLiteral(".png"), folder + badge + QStringLiteral(".PNG"));
        }
    }
}

QStringList exportPDF::exportFiles() const
{
    QStringList files = QDir(dir).entryList({QStringLiteral("*.txt")}, QDir::Files);
    files.removeAll(kEngineersNotesFile);
    return files;
}

void exportPDF::insertMapPage()
{
    const QString map = dir + QStringLiteral("ReportMap.png");
    if (QFile::exists(map))
        m_report.insertFileAt(QStringLiteral("<!--MapPage!-->"), langDir + QStringLiteral("mapPage.txt"));
    m_report.replaceText(QStringLiteral("mMap"), map);
}

void exportPDF::insertSitePage()
{
    m_report.insertFileAt(QStringLiteral("<!--SitePage!-->"), langDir + QStringLiteral("sitePage.txt"));
    QString site = dir + QStringLiteral("ReportSite.png");
    if (!QFile::exists(site))
        site = dir + QStringLiteral("ReportSite.jpg");
    if (!QFile::exists(site))
        site = langDir + QStringLiteral("EmptySiteImage.png");
    m_report.replaceText(QStringLiteral("mSiteIMG"), site);
}

void exportPDF::insertEngineersNotes()
{
    QFile notes(dir + kEngineersNotesFile);
    if (!notes.open(QIODevice::ReadOnly))
        return;
    QStringList lines = QString::fromUtf8(notes.readAll()).remove(QLatin1Char('\r')).split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = line.toHtmlEscaped() + QStringLiteral("<br>");
    m_report.insertLinesAt(QStringLiteral("<!--EngineersNotes!-->"), lines);
    m_report.replaceText(QStringLiteral("mEngNote"), tr("Engineer's Notes"));
}

void exportPDF::readExportLine(const QString &line)
{
    if (line.contains(QLatin1String("Job"))) {
        startJob();
        return;
    }
    const QStringList parts = line.split(QLatin1Char('='));
    if (parts.size() >= 2) {
        const QString value = afterEquals(line);
        if (fillProjectField(line, value) || fillSectionField(parts.at(0), value))
            return;
    }
    if (!line.trimmed().isEmpty())
        addObservation(line);
}

// The project's fields and the section's name: found anywhere in the line.
bool exportPDF::fillProjectField(const QString &line, const QString &value)
{
    struct Field {
        const char *word;
        const char *placeholder;
        QString *keep;
    };
    const Field fields[] = {
        {"Site Name", "mSite", nullptr},      {"SiteNum", "mNoSite", &siteNumStr},
        {"Address", "mStreet", &street},      {"TownName", "mTown", &town},
        {"Weather", "mWeather", &weather},    {"Postcode", "mPostcode", &postcode},
        {"Parking", "mParking", nullptr},     {"Client", "mClient", nullptr},
        {"Reference", "mReference", &reference}, {"Drawing", "mDrawing", nullptr},
        {"Reason", "mReason", nullptr},       {"Operator", "mOperator", &engineer},
        {"Export Date", "mExdate", &date},    {"Export Time", "mExtime", nullptr},
    };
    for (const Field &field : fields) {
        if (!line.contains(QLatin1String(field.word)))
            continue;
        m_report.replaceText(QLatin1String(field.placeholder), value);
        if (field.keep)
            *field.keep = value;
        if (field.keep == &street)
            address = value + QStringLiteral(",\n");
        else if (field.keep == &town)
            address += value;
        return true;
    }
    if (line.contains(QLatin1String("Section"))) {
        mSection = value.left(value.lastIndexOf(QLatin1Char('\\'))).trimmed();
        m_report.replaceText(QStringLiteral("mSection"), mSection);
        return true;
    }
    return false;
}

// A section's fields, found by the key before "=".
bool exportPDF::fillSectionField(const QString &key, const QString &value)
{
    if (key.contains(QLatin1String("Start"))) {
        startNode = value;
        tempData << value;
        m_report.replaceText(QStringLiteral("mStart"), value);
        return true;
    }
    if (key.contains(QLatin1String("Direction"))) {
        direction = value.contains(QLatin1Char('Z'))   ? tr("Unknown")
                    : value.contains(QLatin1Char('D')) ? tr("Downstream")
                                                       : tr("Upstream");
        tempData << value;
        m_report.replaceText(QStringLiteral("mDirection"), direction);
        return true;
    }
    if (key.contains(QLatin1String("End"))) {
        endNode = value;
        tempData << value;
        m_report.replaceText(QStringLiteral("mEnd"), value);
        return true;
    }
    // The lining is asked before the material, whose word it holds, or it would never show.
    const std::pair<const char *, const char *> simple[] = {
        {"LiningMaterial", "mLining"}, {"Material", "mMaterial"}, {"Size", "mSize"},         {"Duty", "mDuty"},
        {"Invert", "mInvert"},     {"EDepth", "mEDepth"},     {"Date", "mDate"},
        {"Time", "mTime"},         {"Comments", "mComments"}, {"Method", "mMethod"},
        {"Precleaned", "mCleaned"}, {"PipelineRef", "mPipeRef"}, {"Shape", "mShape"},
        {"Type", "mType"},         {"Flow", "mFlow"},
    };
    for (const auto &field : simple) {
        if (key.contains(QLatin1String(field.first))) {
            m_report.replaceText(QLatin1String(field.second), value);
            return true;
        }
    }
    if (key.contains(QLatin1String("SEngineer"))) {
        secOperator = value;
        m_report.replaceText(QStringLiteral("mSecOperator"), value);
        return true;
    }
    return false;
}

void exportPDF::blankPhotoSlots()
{
    for (int slot = 1; slot <= kPhotosPerPage; ++slot)
        m_report.replaceRaw(QStringLiteral("mComment%1").arg(slot), QString());
    m_report.replaceRaw(QStringLiteral("mComment"), QString());
    for (int slot = 1; slot <= kPhotosPerPage; ++slot) {
        m_report.replaceRaw(tr("Observation [mDesignator%1]:").arg(slot), QString());
        m_report.replaceRaw(QStringLiteral("mSnap%1").arg(slot), QString());
    }
}

void exportPDF::fillNodes(bool withEngineer)
{
    m_report.replaceText(QStringLiteral("mEnd"), endNode);
    m_report.replaceText(QStringLiteral("mStart"), startNode);
    m_report.replaceText(QStringLiteral("mDirection"), direction);
    m_report.replaceText(QStringLiteral("mSection"), mSection);
    if (withEngineer)
        m_report.replaceText(QStringLiteral("mSecOperator"), secOperator);
}

void exportPDF::setPipePicture()
{
    m_report.replaceText(QStringLiteral("mPipe"), image_path + QStringLiteral("pipegraphic%1_%2.png")
                                                                   .arg(jobCount - 1)
                                                                   .arg(pageCount));
}

void exportPDF::startJob()
{
    pageCount = 1;
    ++jobCount;
    if (jobCount > 1) {
        jobs.append(observation);
        pipeInfo.append(tempData);
    }
    observation.clear();
    tempData.clear();
    picCount = 0;

    blankPhotoSlots();
    fillNodes(true);
    m_report.replaceRaw(QStringLiteral("NewJobPage"), QStringLiteral("JobEnd"));
    m_report.replaceRaw(QStringLiteral("NewSnapShot"), QStringLiteral("NewJobStart"));
    m_report.replaceRaw(kObservationRowsMarker, kObservationRowsFull);
    const int at = m_report.indexOf(QStringLiteral("<!--NewJobStart-->"));
    m_report.replaceRaw(QStringLiteral("NewJobStart"), QStringLiteral("JobAdded"));
    if (at >= 0) {
        bool ok = false;
        const QString page = mWrc ? QStringLiteral("wrcJobStartPage.txt") : QStringLiteral("jobStartPage.txt");
        const QStringList lines = ReportTemplate::readLines(langDir + page, &ok);
        if (!ok)
            qWarning() << "error opening file" << langDir + page;
        m_report.insertLines(at, lines);
    }
    setPipePicture();
    if (mWrc)
        m_report.insertFileAfter(QStringLiteral("<!--NewJobPage-->"), langDir + QStringLiteral("wrcPage.txt"));
}

void exportPDF::addObservation(const QString &line)
{
    obsData = observationFields(line);
    observation.append(obsData);
    const int number = observation.size();
    if (number > pageCount * kObservationsPerPage) {
        ++pageCount;
        m_report.replaceRaw(kObservationRowsMarker, kObservationRowsFull);
        m_report.insertFileAt(QStringLiteral("<!--NewJobPage-->"), langDir + QStringLiteral("jobPage.txt"));
        setPipePicture();
    }
    addObservationRow(obsData, number);
    if (obsData.size() > 2)
        fillPhotoSlot(obsData, number);
}

void exportPDF::addObservationRow(const QStringList &obs, int number)
{
    const bool photo = obs.size() > 2;
    const QString distance = QString::number(obs.value(0).remove(QRegularExpression(QStringLiteral("[a-z]"))).toDouble(), 'f', 2);
    const QString row = QStringLiteral("<tr><td class=\"num\">%1</td><td class=\"dist\">%2 %3</td><td>%4</td>"
                                       "<td class=\"photo\">%5</td></tr>")
                            .arg(number)
                            .arg(distance, imperialSetting, obs.value(photo ? 2 : 1).toHtmlEscaped(),
                                 photo ? tr("Photo") : QString());
    m_report.insertLinesAt(kObservationRowsMarker, {row});
}

void exportPDF::fillPhotoSlot(const QStringList &obs, int number)
{
    ++picCount;
    if (picCount > kPhotosPerPage) {
        m_report.insertFileAt(QStringLiteral("<!--NewSnapShot-->"), langDir + QStringLiteral("snapshotPage.txt"));
        picCount = 1;
        fillNodes(false);
    }
    QString image = obs.at(1);
    image.remove(QLatin1Char(' '));
    image.replace(QLatin1Char('\\'), QLatin1Char('/'));
    m_report.replaceText(QStringLiteral("mSnap%1").arg(picCount), dir + image);
    m_report.replaceRaw(QStringLiteral("mDesignator%1").arg(picCount), QString::number(number));
    m_report.replaceText(QStringLiteral("mComment%1").arg(picCount), obs.at(2));
}

void exportPDF::finishFilling()
{
    m_report.replaceText(QStringLiteral("mLogo"), fittedUserLogo());
    m_report.replaceText(QStringLiteral("mAddress"), address);
    m_report.replaceText(QStringLiteral("mStreet"), street);
    m_report.replaceText(QStringLiteral("mNoSite"), siteNumStr);
    m_report.replaceText(QStringLiteral("mPostcode"), postcode);
    m_report.replaceText(QStringLiteral("mOperator"), engineer);
    m_report.replaceText(QStringLiteral("mExdate"), date);
    m_report.replaceText(QStringLiteral("mReference"), reference);
    m_report.replaceText(QStringLiteral("mWeather"), weather);
    m_report.replaceText(QStringLiteral("mTown"), town);
    m_report.replaceText(QStringLiteral("mSecOperator"), secOperator);
    // The last job's further pages hold its node placeholders still.
    fillNodes(false);
    blankPhotoSlots();
    m_report.replaceRaw(QStringLiteral("mEngNote"), QString());
    m_report.replaceRaw(QStringLiteral("mSecOperator"), QString());
    m_report.numberLines(QStringLiteral("mPageNo"), tr("Page "));
    if (jobCount > 0) {
        jobs.append(observation);
        pipeInfo.append(tempData);
    }

    const int entries = QDir(image_path).entryList(QDir::Dirs).size();
    mLargeProject = entries >= kLargeProjectEntries;
    if (mLargeProject)
        OstraReportSplitter::writeParts(m_report.lines());
    else
        m_report.removeLastLine(kFooterLine);

    writeHtml();
}

void exportPDF::writeHtml()
{
    if (!m_report.write(filledPath()))
        qWarning() << "Error opening temp file" << filledPath();
    removeIfPresent(htmlPath());
    if (!QFile::copy(filledPath(), htmlPath()))
        qWarning() << "Report HTML could not be written" << htmlPath();
}
