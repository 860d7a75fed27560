#include "reports/surveyexport.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <utility>

namespace {

QString clearCacheScript()
{
    return unitPath(QStringLiteral("/opt/hbi/bin/clear_cache.sh"));
}

// Paths are joined by concatenation throughout, so a directory must end with "/".
QString asDirectory(QString path)
{
    if (!path.isEmpty() && !path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    return path;
}

bool isAsciiAlnum(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace

SurveyExport::SurveyExport(QString projectPath, QString savePath)
    : m_prj_path(asDirectory(std::move(projectPath))), m_save_path(asDirectory(std::move(savePath)))
{
    if (m_save_path.isEmpty())
        m_save_path = m_prj_path;
}

SurveyExport::~SurveyExport() = default;

QStringList SurveyExport::directoryList() const
{
    QStringList sections;
    const QStringList entries = QDir(m_prj_path).entryList(QDir::Dirs, QDir::Time | QDir::Reversed);
    for (const QString &entry : entries) {
        if (entry != QLatin1String(".") && entry != QLatin1String(".."))
            sections << m_prj_path + entry;
    }
    return sections;
}

QString SurveyExport::sectionName(const QString &sectionDir)
{
    return sectionDir.split(QLatin1Char('/')).last();
}

QString SurveyExport::fileSafeName(const QString &name)
{
    QByteArray bytes = name.toLatin1();
    for (char &c : bytes) {
        if (!isAsciiAlnum(c))
            c = '_';
    }
    return QString::fromLatin1(bytes);
}

QString SurveyExport::settingText(const QSettings &settings, const QString &key)
{
    // A value with an unquoted comma reads back as a list; the operator wrote one text.
    const QVariant value = settings.value(key);
    if (value.type() == QVariant::StringList)
        return value.toStringList().join(QLatin1String(", "));
    return value.toString();
}

QString SurveyExport::xmlText(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
            continue;
        }
        const bool control = c.unicode() < 0x20 && c != QLatin1Char('\t') && c != QLatin1Char('\n') && c != QLatin1Char('\r');
        if (control || c.isSurrogate() || c.unicode() == 0xFFFE || c.unicode() == 0xFFFF)
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

void SurveyExport::clearCache()
{
    const QString script = clearCacheScript();
    // A unit without the script has no cache to clear; a shell that fails to find it says less than this.
    if (!QFile::exists(script)) {
        qWarning() << "No cache script at" << script;
        return;
    }
    if (!QProcess::startDetached(QStringLiteral("/bin/sh"), {script}))
        qWarning() << "Could not start" << script;
}
