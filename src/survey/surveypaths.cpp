#include "survey/surveypaths.h"

#include <QFileInfo>

namespace {

const QString kSurveyFolder = QStringLiteral("corvane");
const QString kBasicFolder = QStringLiteral("survey.bas");
const QString kCorvaneSuffix = QStringLiteral(".sur");
const QString kWinCanSuffix = QStringLiteral(".wcs");
const QString kCorvaneSectionPrefix = QStringLiteral("section_");

QString freeStampedFolder(const QString &parent, QDateTime when)
{
    while (QFileInfo::exists(parent + QLatin1Char('/') + SurveyPaths::timeStamp(when)))
        when = when.addSecs(1);
    return SurveyPaths::timeStamp(when);
}

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
    const QString surveys = surveyRoot(devicePath) + kBasicFolder;
    return surveys + QLatin1Char('/') + freeStampedFolder(surveys, when);
}

QString SurveyPaths::corvaneSectionFolder(int number)
{
    return kCorvaneSectionPrefix + QString::number(number);
}

QString SurveyPaths::winCanSectionFolder(const QString &projectDirectory, const QDateTime &when)
{
    return freeStampedFolder(projectDirectory, when);
}

bool SurveyPaths::isProjectFolder(const QString &folderName)
{
    return folderName.endsWith(kCorvaneSuffix) || folderName.endsWith(kWinCanSuffix);
}
