#include "survey/surveypaths.h"

namespace {

const QString kSurveyFolder = QStringLiteral("corvane");
const QString kBasicFolder = QStringLiteral("survey.bas");
const QString kCorvaneSuffix = QStringLiteral(".sur");
const QString kWinCanSuffix = QStringLiteral(".wcs");
const QString kCorvaneSectionPrefix = QStringLiteral("section_");

bool isAsciiLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

} // namespace

QString SurveyPaths::folderName(const QString &name, bool lowerCase)
{
    const QString trimmed = (lowerCase ? name.toLower() : name).trimmed();
    if (trimmed.isEmpty())
        return QStringLiteral("unnamed");
    QByteArray bytes = trimmed.toLatin1();
    for (char &c : bytes) {
        if (!isAsciiLetterOrDigit(c))
            c = '_';
    }
    return QString::fromLatin1(bytes);
}

QString SurveyPaths::timeStamp(const QDateTime &when)
{
    return when.toString(QStringLiteral("yyyyMMdd-hhmmss"));
}

QString SurveyPaths::surveyRoot(const QString &devicePath)
{
    return devicePath + QLatin1Char('/') + kSurveyFolder + QLatin1Char('/');
}

QString SurveyPaths::corvaneProjectDirectory(const QString &devicePath, const QString &siteName)
{
    return surveyRoot(devicePath) + folderName(siteName, true) + kCorvaneSuffix + QLatin1Char('/');
}

QString SurveyPaths::winCanProjectDirectory(const QString &devicePath, const QString &projectName)
{
    return surveyRoot(devicePath) + folderName(projectName, false) + kWinCanSuffix + QLatin1Char('/');
}

QString SurveyPaths::basicSectionDirectory(const QString &devicePath, const QDateTime &when)
{
    return surveyRoot(devicePath) + kBasicFolder + QLatin1Char('/') + timeStamp(when);
}

QString SurveyPaths::corvaneSectionFolder(int number)
{
    return kCorvaneSectionPrefix + QString::number(number);
}

QString SurveyPaths::winCanSectionFolder(const QDateTime &when)
{
    return timeStamp(when);
}

bool SurveyPaths::isProjectFolder(const QString &folderName)
{
    return folderName.endsWith(kCorvaneSuffix) || folderName.endsWith(kWinCanSuffix);
}
