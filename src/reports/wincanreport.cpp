#include "reports/wincanreport.h"

#include "reports/wincanconversions.h"

#include <QDebug>
#include <QFile>
#include <QXmlStreamReader>

#include <cmath>

namespace {

// Our own marker: the observation table of the page being filled takes its rows here.
const QString kObservationRowsMarker = QStringLiteral("<!--ObservationRows-->");
const QString kObservationRowsFull = QStringLiteral("<!--ObservationRowsFull-->");
const QString kProjectFile = QStringLiteral(".project.wdb");
const QString kInspectionNumber = QStringLiteral("1");

using Convert = QString (*)(const QString &);

QString asText(const QString &text)
{
    return text;
}

// A distance or length the drawing and the totals can use: anything else counts 0.
float number(const QString &text)
{
    const float value = text.trimmed().toFloat();
    return std::isfinite(value) ? value : 0.0f;
}

} // namespace

WinCanReport::WinCanReport(ReportTemplate *report, const QString &projectDir, const QString &languageDir,
                           const QString &imperial)
    : m_report(report), dir(projectDir), langDir(languageDir), imperialSetting(imperial)
{
}

QString WinCanReport::pageFile(const char *name) const
{
    return langDir + QLatin1String(name);
}

void WinCanReport::begin()
{
    const QString map = dir + QStringLiteral("ReportMap.png");
    if (QFile::exists(map))
        m_report->insertFileAt(QStringLiteral("<!--MapPage!-->"), pageFile("winMapPage.txt"));
    else
        qInfo() << "error opening map file" << map;
    fill(QStringLiteral("mMap"), map);
}

bool WinCanReport::readFile(const QString &file)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << "Couldn't open xmlfile.xml to load settings for download" << file;
        return false;
    }
    return read(&in, file);
}

bool WinCanReport::read(QIODevice *device, const QString &name)
{
    QXmlStreamReader xml(device);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartElement)
            startElement(xml);
        else if (token == QXmlStreamReader::EndElement)
            endElement(xml.name());
    }
    if (xml.hasError()) {
        qWarning() << "xmlFile.xml Parse Error" << name << xml.errorString() << "at line" << xml.lineNumber();
        return false;
    }
    finishFile();
    return true;
}

void WinCanReport::startElement(QXmlStreamReader &xml)
{
    const QString name = xml.name().toString();
    if (name == QLatin1String("section")) {
        startSection();
        return;
    }
    if (name == QLatin1String("sectioninspection")) {
        startInspection();
        return;
    }
    if (name == QLatin1String("exportdata") || name == QLatin1String("project")
        || name == QLatin1String("sectionobservation"))
        return;
    // Every other element the report uses holds text only; a stray child is read as text.
    const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
    if (!fillField(name, text)) {
        fillNode(name, text);
        fillObservationField(name, text);
    }
}

void WinCanReport::endElement(const QStringRef &name)
{
    if (name == QLatin1String("sectionobservation"))
        endObservation();
    else if (name == QLatin1String("sectioninspection"))
        endInspection();
    else if (name == QLatin1String("section"))
        endSection();
    else if (name == QLatin1String("exportdata"))
        endProject();
}

bool WinCanReport::fillField(const QString &name, const QString &text)
{
    struct Field {
        const char *element;
        const char *placeholder;
        Convert convert;
        QString WinCanReport::*keep;
    };
    static const Field fields[] = {
        {"catalogbase", "mStandard1", asText, nullptr},
        {"catalogcustom", "mStandard2", asText, nullptr},
        {"cddate", nullptr, asText, &WinCanReport::projectDate},
        {"cdname", "mProjectName", asText, nullptr},
        {"ProjectID", "mProjectNumber", asText, &WinCanReport::projectId},
        {"sectionname", "mSection", asText, &WinCanReport::section},
        {"PCDCityName", "mTown", asText, &WinCanReport::town},
        {"PCDConstructionYear", "mYear", asText, nullptr},
        {"PCDFinalCategory", "mGrade", WinCanConversions::convertWinCanGrade, &WinCanReport::grade},
        {"PCDLiningMaterial", "mLiningM", WinCanConversions::convertWinCanLiningMat, nullptr},
        {"PCDMunicipal", "mPostcode", asText, &WinCanReport::postcode},
        {"PCDLiningType", "mLiningT", WinCanConversions::convertWinCanLining, nullptr},
        {"PCDFlowControl", "mflow", WinCanConversions::convertWinCanFlow, nullptr},
        {"PIDPurpose", "mPurpose", WinCanConversions::convertWinCanPurpose, nullptr},
        {"PCDPipeMaterial", "mMaterial", WinCanConversions::convertWinCanMaterial, nullptr},
        {"PCDStartStreetName", "mRoad", asText, &WinCanReport::road},
        {"PCDType", "mToP", WinCanConversions::convertWinCanType, nullptr},
        {"PCDUsage", "mUse", WinCanConversions::convertWinCanUse, nullptr},
        {"PIDCleaning", "mCleaned", WinCanConversions::convertWinCanPreCleaned, &WinCanReport::cleaned},
        {"PIDClient", "mClient", asText, &WinCanReport::client},
        {"PIDContractor", "mContractor", asText, &WinCanReport::contractor},
        {"PIDDate", "mDate", asText, &WinCanReport::date},
        {"PIDTime", "mTime", asText, &WinCanReport::time},
        {"PIDOperator", "mOperator", asText, &WinCanReport::operatorName},
        {"PIDJobID", "mReference", asText, &WinCanReport::reference},
        {"PIDLengthEstimated", "mTotLength", asText, nullptr},
        {"PIDMethod", "mMethod", WinCanConversions::convertWinCanMethod, &WinCanReport::method},
        {"PIDRemarks", "mComments", asText, nullptr},
        {"PIDWeather", "mWeather", WinCanConversions::convertWinCanWeather, &WinCanReport::weather},
    };
    for (const Field &field : fields) {
        if (name != QLatin1String(field.element))
            continue;
        const QString value = field.convert(text);
        if (field.placeholder)
            fill(QLatin1String(field.placeholder), value);
        if (field.keep)
            this->*field.keep = value;
        return true;
    }
    if (name == QLatin1String("PCDLocation")) {
        fill(QStringLiteral("mLocation"), WinCanConversions::convertWinCanLocation(text, dir + kProjectFile));
    } else if (name == QLatin1String("PCDPipeDimension1")) {
        fill(QStringLiteral("mSize"), text);
        m_profiles.startProfile(text);
    } else if (name == QLatin1String("PCDPipeLength")) {
        sectionLength = text;
        fill(QStringLiteral("mLngthSect"), text);
        totalPipeLength += number(text);
    } else if (name == QLatin1String("PCDPipeShape")) {
        fillProfile(text);
    } else if (name == QLatin1String("PIDDirection")) {
        setDirection(text);
    } else {
        return false;
    }
    return true;
}

void WinCanReport::fillNode(const QString &name, const QString &text)
{
    // Depth first, node second, as the exchange file lists them.
    if (name == QLatin1String("PCDStartDepth"))
        startNodes[0] = text;
    else if (name == QLatin1String("PCDStartNode"))
        startNodes[1] = text;
    else if (name == QLatin1String("PCDEndDepth"))
        endNodes[0] = text;
    else if (name == QLatin1String("PCDEndNode"))
        endNodes[1] = text;
}

void WinCanReport::fillObservationField(const QString &name, const QString &text)
{
    if (name == QLatin1String("poddistance")) {
        obs.distance = text;
        inspDist = number(text);
    } else if (name == QLatin1String("podcode")) {
        obs.code = text;
        finalObs = text;
        m_defects.count(text);
    } else if (name == QLatin1String("podtext")) {
        obs.text = obs.text.isEmpty() ? text : obs.text + QLatin1Char(' ') + text;
    } else if (name == QLatin1String("PODContinuousDefect")) {
        obs.continuous = true;
        obs.mark = text;
    } else if (name == QLatin1String("PODRemarks")) {
        obs.remarks = text;
    } else if (name == QLatin1String("PODPicture1")) {
        addPicture(text);
    }
}

// ---- Sections ----------------------------------------------------------------------

void WinCanReport::startSection()
{
    pageCount = 1;
    ++sectionNumber;
    if (sectionNumber > 1) {
        if (m_jobs.size() < sectionNumber - 1)
            m_jobs.append(observation);
        replaceWithSectionBefore();
    }
    observation.clear();
    obs = Observation();
    picCount = 0;
    blankPhotoSlots();
    m_report->replaceRaw(QStringLiteral("NewJobPage"), QStringLiteral("JobEnd"));
    m_report->replaceRaw(QStringLiteral("NewSnapShot"), QStringLiteral("NewJobStart"));
    m_report->replaceRaw(kObservationRowsMarker, kObservationRowsFull);
    blank(QStringLiteral("mLocation"));
    blank(QStringLiteral("mLiningT"));
    blank(QStringLiteral("mPurpose"));
    insertJobStartPage();
    fill(QStringLiteral("mNoSection"), QString::number(sectionNumber));
    fill(QStringLiteral("mInspectionNo"), kInspectionNumber);
    setPipePicture();
    if (sectionNumber > 1) {
        m_report->insertFileAt(QStringLiteral("<!--section summary end-->"), pageFile("WinCanSecSum.txt"));
        m_report->insertFileAt(QStringLiteral("<!--defect summary end-->"), pageFile("WinCanDefect.txt"));
    }
    fill(QStringLiteral("mSectNumber"), QString::number(sectionNumber));
    startNodes = QStringList{QStringLiteral(" "), QStringLiteral(" ")};
    endNodes = startNodes;
    sectionLength.clear();
    mProfileStr.clear();
}

// The pages of the section before still hold the placeholders of values that
// came only once for it.
void WinCanReport::replaceWithSectionBefore()
{
    fill(QStringLiteral("mRoad"), road);
    fill(QStringLiteral("mTown"), town);
    fill(QStringLiteral("mPostcode"), postcode);
    fill(QStringLiteral("mInspectionNo"), kInspectionNumber);
    fill(QStringLiteral("mContractor"), contractor);
    fill(QStringLiteral("mReference"), reference);
    fill(QStringLiteral("mClient"), client);
    fill(QStringLiteral("mWeather"), weather);
    fill(QStringLiteral("mMethod"), method);
    fill(QStringLiteral("mCleaned"), cleaned);
    fill(QStringLiteral("mGrade"), grade);
    fill(QStringLiteral("mSection"), section);
}

void WinCanReport::insertJobStartPage()
{
    const QString marker = QStringLiteral("<!--NewJobStart-->");
    const int at = m_report->indexOf(marker);
    m_report->replaceRaw(QStringLiteral("NewJobStart"), QStringLiteral("JobAdded"));
    if (at < 0)
        return;
    bool ok = false;
    const QStringList lines = ReportTemplate::readLines(pageFile("WinCanJobStartPage.txt"), &ok);
    if (!ok)
        qWarning() << "error opening file" << pageFile("WinCanJobStartPage.txt");
    m_report->insertLines(at, lines);
}

void WinCanReport::setPipePicture()
{
    fill(QStringLiteral("mPipe"), dir + QStringLiteral("pipegraphic%1_%2.png").arg(sectionNumber - 1).arg(pageCount));
}

void WinCanReport::blankPhotoSlots()
{
    for (int slot = 1; slot <= kPhotosPerPage; ++slot) {
        blank(QStringLiteral("mComment%1").arg(slot));
        blank(QCoreApplication::translate("exportPDF", "Observation [mDesignator%1]:").arg(slot));
        blank(QStringLiteral("mSnap%1").arg(slot));
        blank(QStringLiteral("mRemarks%1").arg(slot));
    }
}

void WinCanReport::fillProfile(const QString &shapeCode)
{
    const QString shape = WinCanConversions::convertShapecode(shapeCode);
    fill(QStringLiteral("mShape"), shape);
    const QString unit = imperialSetting == QLatin1String("ft") ? QStringLiteral("inch") : QStringLiteral("mm");
    mProfileStr = m_profiles.addSection(shape, unit, double(number(sectionLength)));
    fill(QStringLiteral("mProfile"), mProfileStr);
}

void WinCanReport::endSection()
{
    const QVector<int> &counts = m_defects.section();
    for (int i = 0; i < WinCanDefectCounters::kCounters; ++i)
        fill(WinCanDefectCounters::sectionPlaceholder(i), QString::number(counts.at(i)));
    m_defects.closeSection();
}

// ---- Inspections -------------------------------------------------------------------

void WinCanReport::startInspection()
{
    ++inspNumber;
    if (inspNumber > 1)
        m_report->insertFileAt(QStringLiteral("<!--new inspection end-->"), pageFile("WinCanInspSum.txt"));
    fill(QStringLiteral("mSectNumber"), QString::number(sectionNumber));
    inspDist = 0;
    directionSeen = false;
    directionString = QStringLiteral(" ");
}

void WinCanReport::setDirection(const QString &value)
{
    const QString code = value.trimmed().toUpper();
    const bool upstream = code == QLatin1String("U");
    const bool downstream = code == QLatin1String("D");
    if (!upstream && !downstream)
        return; // placed as for no direction when the inspection ends
    const QStringList &up = upstream ? endNodes : startNodes;
    const QStringList &down = upstream ? startNodes : endNodes;
    fill(QStringLiteral("mUpDepth"), up.at(0));
    fill(QStringLiteral("mUpstream"), up.at(1));
    fill(QStringLiteral("mDownDepth"), down.at(0));
    fill(QStringLiteral("mDownstream"), down.at(1));
    directionString = upstream ? QStringLiteral(" Upstream") : QStringLiteral(" Downstream");
    fill(QStringLiteral("mDirection"), directionString);
    setJobInfo(upstream ? QStringLiteral("(U)") : QStringLiteral("(D)"));
    directionSeen = true;
}

// One information list a job, however many inspections the section has.
void WinCanReport::setJobInfo(const QString &direction)
{
    if (sectionNumber < 1)
        return;
    if (m_pipeInfo.size() < sectionNumber)
        m_pipeInfo.resize(sectionNumber);
    m_pipeInfo[sectionNumber - 1] =
        QStringList{startNodes.at(1), direction, endNodes.at(1), startNodes.at(0), endNodes.at(0)};
}

void WinCanReport::endInspection()
{
    fill(QStringLiteral("mInspLength"), QString::number(inspDist, 'g', 6));
    fill(QStringLiteral("mDirection"), directionString);
    fill(QStringLiteral("mDate"), date);
    fill(QStringLiteral("mTime"), time);
    fill(QStringLiteral("mOperator"), operatorName);
    m_profiles.addInspected(mProfileStr, double(inspDist));
    totalInspLength += inspDist;
    fill(QStringLiteral("mObvs"), finalObs);
    if (!directionSeen) {
        fill(QStringLiteral("mUpDepth"), startNodes.at(0));
        fill(QStringLiteral("mUpstream"), startNodes.at(1));
        fill(QStringLiteral("mDownDepth"), endNodes.at(0));
        fill(QStringLiteral("mDownstream"), endNodes.at(1));
        setJobInfo(QStringLiteral(" "));
    }
}

// ---- Observations ------------------------------------------------------------------

void WinCanReport::addPicture(const QString &text)
{
    ++picCount;
    if (picCount > kPhotosPerPage) {
        m_report->insertFileAt(QStringLiteral("<!--NewSnapShot-->"), pageFile("WinCanSnapshotPage.txt"));
        fill(QStringLiteral("mNoSection"), QString::number(sectionNumber));
        picCount = 1;
    }
    QString path = text;
    path.remove(QLatin1Char(' '));
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    obs.picture = dir + path;
    obs.hasPicture = true;
}

// The fields are taken by name, so the order of the exchange file's lines within
// an observation does not move them.
void WinCanReport::endObservation()
{
    const QStringList regular{obs.distance,
                              obs.code,
                              obs.continuous ? obs.mark : QStringLiteral("N"),
                              obs.text,
                              obs.hasPicture ? obs.picture : QStringLiteral(" "),
                              obs.remarks};
    if (obs.hasPicture) {
        fill(QStringLiteral("mSnap%1").arg(picCount), obs.picture);
        fill(QStringLiteral("mComment%1").arg(picCount), obs.text);
        fill(QStringLiteral("mRemarks%1").arg(picCount), obs.remarks);
    }
    obs = Observation();
    observation.append(regular);
    const int count = observation.size();
    m_report->replaceRaw(QStringLiteral("mDesignator%1").arg(picCount), QString::number(count));
    if (count > pageCount * kObservationsPerPage) {
        ++pageCount;
        m_report->replaceRaw(kObservationRowsMarker, kObservationRowsFull);
        m_report->insertFileAt(QStringLiteral("<!--NewJobPage-->"), pageFile("WinCanJobPage.txt"));
        setPipePicture();
        fill(QStringLiteral("mNoSection"), QString::number(sectionNumber));
    }
    addObservationRow(regular, count);
}

void WinCanReport::addObservationRow(const QStringList &regular, int number)
{
    const bool photo = regular.at(4) != QLatin1String(" ");
    const QString row = QStringLiteral("<tr><td class=\"num\">%1</td><td class=\"dist\">%2 %3</td><td class=\"code\">%4</td>"
                                       "<td>%5</td><td class=\"photo\">%6</td></tr>")
                            .arg(number)
                            .arg(regular.at(0).toHtmlEscaped(), imperialSetting, regular.at(1).toHtmlEscaped(),
                                 regular.at(3).toHtmlEscaped(), photo ? tr("Photo") : QString());
    m_report->insertLinesAt(kObservationRowsMarker, {row});
}

// ---- The end of the project --------------------------------------------------------

void WinCanReport::endProject()
{
    fill(QStringLiteral("mTotalLength"), QString::number(double(totalPipeLength), 'f', 1));
    fill(QStringLiteral("mTotalSects"), QString::number(sectionNumber));
    fill(QStringLiteral("mNoTotInspections"), QString::number(inspNumber));
    fill(QStringLiteral("mTotInspLength"), QString::number(double(totalInspLength), 'g', 6));
    const QStringList totals = WinCanDefectCounters::convertDefectSummary(m_defects.totals());
    for (int i = 0; i < totals.size(); ++i)
        fill(WinCanDefectCounters::totalPlaceholder(i), totals.at(i));
    m_defects.clearTotals();
    fill(QStringLiteral("mProjectDate"), projectDate);
    for (const QStringList &profile : m_profiles.profileList()) {
        m_report->insertFileAt(QStringLiteral("<!--section summary total end-->"), pageFile("WinCanSecProf.txt"));
        m_report->insertFileAt(QStringLiteral("<!--inspection summary end-->"), pageFile("WinCanInspProf.txt"));
        // A profile no inspection reached shows an empty row.
        const bool inspected = profile.size() > 3;
        fill(QStringLiteral("mSumProfile"), inspected ? profile.at(0) : QString());
        fill(QStringLiteral("mLengthProf"), inspected ? profile.at(1) : QString());
        fill(QStringLiteral("mNoProfSect"), inspected ? profile.at(2) : QString());
        fill(QStringLiteral("mInspProf"), inspected ? profile.at(3) : QString());
    }
    m_profiles.clear();
}

void WinCanReport::finishFile()
{
    // The project identifier stands for the project's name on every later page.
    fill(QStringLiteral("mProjectName"), projectId);
    fill(QStringLiteral("mProjectNumber"), projectId);
    fill(QStringLiteral("mDate"), date);
    fill(QStringLiteral("mTime"), time);
    fill(QStringLiteral("mInspectionNo"), kInspectionNumber);
    fill(QStringLiteral("mOperator"), operatorName);
    fill(QStringLiteral("mContractor"), contractor);
    fill(QStringLiteral("mReference"), reference);
    fill(QStringLiteral("mClient"), client);
    fill(QStringLiteral("mWeather"), weather);
    fill(QStringLiteral("mMethod"), method);
    fill(QStringLiteral("mCleaned"), cleaned);
    fill(QStringLiteral("mGrade"), grade);
    fill(QStringLiteral("mRoad"), road);
    fill(QStringLiteral("mTown"), town);
    fill(QStringLiteral("mPostcode"), postcode);
    fill(QStringLiteral("mSection"), section);
    fill(QStringLiteral("mDirection"), directionString);
    // A WinCan project has none of the ostra project's own fields.
    for (const char *ostraField : {"mAddress", "mStreet", "mPostcode", "mOperator", "mExdate", "mReference"})
        blank(QLatin1String(ostraField));
    fill(QStringLiteral("mUnit"), imperialSetting);
    blankPhotoSlots();
    for (const char *left : {"mComments", "mUpstream", "mDownstream", "mDirection", "mLocation", "mDownDepth",
                             "mUpDepth", "mLiningT", "mPurpose", "mInspLength", "mTotLength", "mUse", "mShape",
                             "mToP", "mSize", "mYear", "mMaterial", "mflow", "mLiningM", "mLngthSect", "mProfile"})
        blank(QLatin1String(left));
    m_report->numberLines(QStringLiteral("mPageNo"), QCoreApplication::translate("exportPDF", "Page "));
    pushLastJob();
}

void WinCanReport::pushLastJob()
{
    if (sectionNumber > m_jobs.size())
        m_jobs.append(observation);
    m_pipeInfo.resize(m_jobs.size());
}
