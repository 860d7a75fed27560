#include "reports/reporttemplate.h"

#include <QDebug>
#include <QFile>

QStringList ReportTemplate::readLines(const QString &file, bool *ok)
{
    QFile in(file);
    if (ok)
        *ok = in.open(QIODevice::ReadOnly);
    else
        in.open(QIODevice::ReadOnly);
    if (!in.isOpen())
        return {};
    QString text = QString::fromUtf8(in.readAll());
    text.remove(QLatin1Char('\r'));
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

bool ReportTemplate::load(const QString &file)
{
    bool ok = false;
    m_lines = readLines(file, &ok);
    return ok;
}

void ReportTemplate::insertLines(int index, const QStringList &lines)
{
    for (int i = 0; i < lines.size(); ++i)
        m_lines.insert(index + i, lines.at(i));
}

bool ReportTemplate::insertLinesAt(const QString &marker, const QStringList &lines)
{
    const int at = m_lines.indexOf(marker);
    if (at < 0)
        return false;
    insertLines(at, lines);
    return true;
}

bool ReportTemplate::insertFileAt(const QString &marker, const QString &file)
{
    bool ok = false;
    const QStringList lines = readLines(file, &ok);
    if (!ok) {
        qWarning() << "error opening file" << file;
        return false;
    }
    return insertLinesAt(marker, lines);
}

bool ReportTemplate::insertFileAfter(const QString &marker, const QString &file)
{
    bool ok = false;
    const QStringList lines = readLines(file, &ok);
    if (!ok) {
        qWarning() << "error opening file" << file;
        return false;
    }
    const int at = m_lines.indexOf(marker);
    if (at < 0)
        return false;
    insertLines(at + 1, lines);
    return true;
}

void ReportTemplate::replaceText(const QString &placeholder, const QString &text)
{
    m_lines.replaceInStrings(placeholder, text.toHtmlEscaped());
}

void ReportTemplate::replaceRaw(const QString &placeholder, const QString &value)
{
    m_lines.replaceInStrings(placeholder, value);
}

bool ReportTemplate::removeLastLine(const QString &line)
{
    const int at = m_lines.lastIndexOf(line);
    if (at < 0)
        return false;
    m_lines.removeAt(at);
    return true;
}

void ReportTemplate::numberLines(const QString &marker, const QString &prefix)
{
    int page = 0;
    for (QString &line : m_lines) {
        if (line == marker)
            line = prefix + QString::number(++page);
    }
}

bool ReportTemplate::write(const QString &file) const
{
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    for (const QString &line : m_lines) {
        out.write(line.toUtf8());
        out.write("\n");
    }
    return true;
}
