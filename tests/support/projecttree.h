#pragma once

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>
#include <sys/time.h>

// A project folder laid out as the survey writes it: a Corvane project
// ("Oak Road.sur", ".sdb" files) or a WinCan one ("Oak Road.wcs", ".wdb" files).
class ProjectTree
{
public:
    enum class Mode { kCorvane, kWinCan };

    explicit ProjectTree(Mode mode = Mode::kCorvane)
        : m_folder(mode == Mode::kWinCan ? "/Oak Road.wcs/" : "/Oak Road.sur/"),
          m_extension(mode == Mode::kWinCan ? ".wdb" : ".sdb")
    {
        QDir().mkpath(path());
    }

    QString path() const { return m_dir.path() + m_folder; }
    // ".section.sdb", ".observations.wdb" and so on, as this mode names them.
    QString fileName(const QString &kind) const { return '.' + kind + m_extension; }

    void setProject(const QVariantMap &fields) const { writeSettings(path() + fileName("project"), "Project", fields); }

    // Sections are dated a minute apart in the order they are added, unless told otherwise.
    QString addSection(const QString &name, const QVariantMap &fields, const QStringList &observations,
                       int minutesAfterStart = -1)
    {
        const QString dir = path() + name;
        QDir().mkpath(dir);
        writeSettings(dir + '/' + fileName("section"), "Section", fields);
        if (!observations.isEmpty())
            writeFile(dir + '/' + fileName("observations"), (observations.join("\r\n") + "\r\n").toUtf8());
        setModified(dir, minutesAfterStart < 0 ? ++m_sections : minutesAfterStart);
        return dir;
    }

    static void writeFile(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static QByteArray readFile(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no file>");
    }

private:
    static void writeSettings(const QString &file, const QString &group, const QVariantMap &fields)
    {
        QSettings settings(file, QSettings::IniFormat);
        for (auto it = fields.begin(); it != fields.end(); ++it)
            settings.setValue(group + '/' + it.key(), it.value());
    }

    // QFile cannot open a directory to set its time, so the system call does it.
    static void setModified(const QString &dir, int minutesAfterStart)
    {
        const timeval time = {1700000000 + minutesAfterStart * 60, 0};
        const timeval both[2] = {time, time};
        QCOMPARE(::utimes(QFile::encodeName(dir).constData(), both), 0);
    }

    QTemporaryDir m_dir;
    const QString m_folder;
    const QString m_extension;
    int m_sections = 0;
};
