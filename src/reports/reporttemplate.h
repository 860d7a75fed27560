#pragma once

#include <QString>
#include <QStringList>

// The report's HTML held as lines while it is filled. Page templates go in at
// marker lines ("<!--NewJobPage-->"), which must fill their line and stay below
// what was inserted, so the next page of the same kind lands after it.
// Placeholders ("mSite") are replaced wherever they stand, case-sensitively.
class ReportTemplate
{
public:
    bool load(const QString &file);
    const QStringList &lines() const { return m_lines; }

    // Inserts the file's lines before the first line equal to marker; false if the
    // file cannot be read or the marker is missing.
    bool insertFileAt(const QString &marker, const QString &file);
    // Inserts the file's lines after the first line equal to marker.
    bool insertFileAfter(const QString &marker, const QString &file);
    bool insertLinesAt(const QString &marker, const QStringList &lines);
    int indexOf(const QString &line) const { return m_lines.indexOf(line); }
    void insertLines(int index, const QStringList &lines);

    // Operator text: shown as written, never read as HTML.
    void replaceText(const QString &placeholder, const QString &text);
    // Markup or a path the program made itself.
    void replaceRaw(const QString &placeholder, const QString &value);

    // Drops the last line equal to line; false if there is none.
    bool removeLastLine(const QString &line);
    // Every line that is exactly marker becomes prefix and a running count from 1.
    void numberLines(const QString &marker, const QString &prefix);

    bool write(const QString &file) const;
    static QStringList readLines(const QString &file, bool *ok = nullptr);

private:
    QStringList m_lines;
};
