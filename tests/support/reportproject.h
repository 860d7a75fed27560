#pragma once

// A Corvane project folder as the survey leaves it, made up for report tests,
// and the poppler tools that read a report back.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <sys/time.h>

class ReportProject
{
public:
    explicit ReportProject(const QString &siteName = QStringLiteral("Oak Road"))
    {
        QDir().mkpath(path());
        setProject({{QStringLiteral("Site Name"), siteName},
                    {QStringLiteral("Address"), QStringLiteral("12 Oak Road")},
                    {QStringLiteral("Postcode"), QStringLiteral("OX1 2AB")},
                    {QStringLiteral("Client"), QStringLiteral("Riverside Homes")},
                    {QStringLiteral("Operator"), QStringLiteral("Jo Bloggs")}});
    }

    QString path() const { return m_dir.path() + QStringLiteral("/project.sur/"); }
    bool isValid() const { return m_dir.isValid(); }

    void setProject(const QVariantMap &fields) const
    {
        QSettings settings(path() + QStringLiteral(".project.sdb"), QSettings::IniFormat);
        for (auto it = fields.begin(); it != fields.end(); ++it)
            settings.setValue(QStringLiteral("Project/") + it.key(), it.value());
    }

    // Sections are numbered in the order they are added; each observation line is
    // "distance, ID, value" and gets its time stamp here. A JPEG line makes its picture.
    QString addSection(const QString &startNode, const QString &endNode, const QStringList &observations)
    {
        const QString name = QStringLiteral("section_%1").arg(++m_sections);
        const QString dir = path() + name + QLatin1Char('/');
        QDir().mkpath(dir);
        QSettings section(dir + QStringLiteral(".section.sdb"), QSettings::IniFormat);
        section.setValue(QStringLiteral("Section/Start"), startNode);
        section.setValue(QStringLiteral("Section/End"), endNode);
        section.setValue(QStringLiteral("Section/Direction"), QStringLiteral("(D)"));
        section.setValue(QStringLiteral("Section/Material"), QStringLiteral("Vitrified Clay (VC)"));
        section.setValue(QStringLiteral("Section/Size"), QStringLiteral("150"));
        section.setValue(QStringLiteral("Section/Invert"), QStringLiteral("1.20"));
        section.setValue(QStringLiteral("Section/EDepth"), QStringLiteral("1.45"));
        section.sync();
        QStringList lines;
        int stamp = 1000;
        for (const QString &obs : observations) {
            lines << obs + QStringLiteral(", (@%1)").arg(stamp += 1000);
            const QStringList fields = obs.split(QStringLiteral(", "));
            if (fields.value(1) == QLatin1String("JPEG"))
                writePicture(dir + fields.value(2), m_sections);
        }
        QFile file(dir + QStringLiteral(".observations.sdb"));
        if (file.open(QIODevice::WriteOnly))
            file.write((lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8());
        file.close();
        // Sections a minute apart, so the job order is the order they were added.
        const timeval time = {1700000000 + m_sections * 60, 0};
        const timeval both[2] = {time, time};
        ::utimes(QFile::encodeName(dir).constData(), both);
        return dir;
    }

    // A snapshot as the camera would leave it: a picture with something in it.
    static void writePicture(const QString &file, int shade)
    {
        QImage image(320, 240, QImage::Format_RGB32);
        image.fill(QColor(40 + (shade * 37) % 180, 90, 120));
        QPainter p(&image);
        p.setPen(QPen(Qt::yellow, 8));
        p.drawEllipse(QRectF(60, 20, 200, 200));
        p.end();
        image.save(file, "JPG");
    }

    // A section with n observations of text only, a metre apart.
    QString addTextSection(int n)
    {
        QStringList obs;
        for (int i = 1; i <= n; ++i)
            obs << QStringLiteral("%1.00m, TEXT, note %2").arg(i).arg(i);
        return addSection(QStringLiteral("MH%1").arg(m_sections + 1), QStringLiteral("MH%1").arg(m_sections + 2), obs);
    }

    static QString pdfText(const QString &pdf)
    {
        QProcess tool;
        tool.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
        tool.waitForFinished(30000);
        return QString::fromUtf8(tool.readAllStandardOutput());
    }

    static int pdfPages(const QString &pdf)
    {
        QProcess tool;
        tool.start(QStringLiteral("pdfinfo"), {pdf});
        tool.waitForFinished(30000);
        for (const QString &line : QString::fromUtf8(tool.readAllStandardOutput()).split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1String("Pages:")))
                return line.mid(6).trimmed().toInt();
        }
        return 0;
    }

    // Every page as <prefix>-<n>.png in folder, for a human to look at.
    static bool renderPages(const QString &pdf, const QString &folder, const QString &prefix)
    {
        QDir().mkpath(folder);
        QProcess tool;
        tool.start(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"),
                                                pdf, folder + QLatin1Char('/') + prefix});
        return tool.waitForFinished(60000) && tool.exitCode() == 0;
    }

    static QString readText(const QString &file)
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()) : QString();
    }

private:
    QTemporaryDir m_dir;
    int m_sections = 0;
};
