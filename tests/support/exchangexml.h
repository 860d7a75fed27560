#pragma once

// A WinCan project's exchange XML as the MiraculIX export lays it out, written
// for report tests: the project's fields, then per section its name, its PCD
// fields, one inspection with its PID fields and the observations.
#include <QBuffer>
#include <algorithm>
#include <QFile>
#include <QPair>
#include <QVector>
#include <QXmlStreamWriter>

class ExchangeXml
{
public:
    using Fields = QVector<QPair<QString, QString>>;

    struct Observation {
        QString distance;
        QString code;
        QString text;
        QStringList pictures = {};
        QString mark = {};
        QString remarks = {};
    };

    struct Section {
        QString name;
        Fields pcd;
        Fields pid;
        QVector<Observation> observations;
        bool inspected = true;
    };

    Fields project{{QStringLiteral("catalogbase"), QStringLiteral("MSCC-5")},
                   {QStringLiteral("catalogcustom"), QStringLiteral("MSCC-5-DOMESTIC")},
                   {QStringLiteral("cddate"), QStringLiteral("2026-11-20")},
                   {QStringLiteral("cdname"), QStringLiteral("Mill Lane")}};
    QString projectId = QStringLiteral("ML-0042");
    QVector<Section> sections;

    // A section of a circular 150 mm clay pipe between two nodes, surveyed downstream.
    static Section section(const QString &name, const QString &start, const QString &end, const QString &length,
                           const QVector<Observation> &observations = {})
    {
        Section s;
        s.name = name;
        s.pcd = {{QStringLiteral("PCDCityName"), QStringLiteral("Oxford")},
                 {QStringLiteral("PCDEndDepth"), QStringLiteral("1.45")},
                 {QStringLiteral("PCDEndNode"), end},
                 {QStringLiteral("PCDFinalCategory"), QStringLiteral("B")},
                 {QStringLiteral("PCDMunicipal"), QStringLiteral("OX1 2AB")},
                 {QStringLiteral("PCDPipeDimension1"), QStringLiteral("150")},
                 {QStringLiteral("PCDPipeLength"), length},
                 {QStringLiteral("PCDPipeMaterial"), QStringLiteral("VC")},
                 {QStringLiteral("PCDPipeShape"), QStringLiteral("C")},
                 {QStringLiteral("PCDStartDepth"), QStringLiteral("1.20")},
                 {QStringLiteral("PCDStartNode"), start},
                 {QStringLiteral("PCDStartStreetName"), QStringLiteral("Mill Lane")},
                 {QStringLiteral("PCDUsage"), QStringLiteral("F")}};
        s.pid = {{QStringLiteral("PIDCleaning"), QStringLiteral("N")},
                 {QStringLiteral("PIDClient"), QStringLiteral("Riverside Homes")},
                 {QStringLiteral("PIDDate"), QStringLiteral("2026-11-21")},
                 {QStringLiteral("PIDDirection"), QStringLiteral("D")},
                 {QStringLiteral("PIDMethod"), QStringLiteral("B")},
                 {QStringLiteral("PIDOperator"), QStringLiteral("Jo Bloggs")},
                 {QStringLiteral("PIDTime"), QStringLiteral("09:30")},
                 {QStringLiteral("PIDWeather"), QStringLiteral("1")}};
        s.observations = observations;
        return s;
    }

    // n observations a metre apart, coded as a crack, the first with a picture.
    static QVector<Observation> observations(int n)
    {
        QVector<Observation> list;
        for (int i = 1; i <= n; ++i)
            list << Observation{QString::number(i * 1.0, 'f', 2), QStringLiteral("CL"),
                                QStringLiteral("Crack longitudinal %1").arg(i)};
        return list;
    }

    static void setField(Fields *fields, const QString &name, const QString &value)
    {
        for (auto &field : *fields) {
            if (field.first == name) {
                field.second = value;
                return;
            }
        }
        fields->append({name, value});
    }

    static void removeField(Fields *fields, const QString &name)
    {
        fields->erase(std::remove_if(fields->begin(), fields->end(), [&](const auto &f) { return f.first == name; }),
                      fields->end());
    }

    QByteArray xml() const
    {
        QByteArray bytes;
        QXmlStreamWriter w(&bytes);
        w.setAutoFormatting(true);
        w.writeStartDocument();
        w.writeStartElement(QStringLiteral("exportdata"));
        w.writeAttribute(QStringLiteral("distanceunit"), QStringLiteral("meter"));
        w.writeAttribute(QStringLiteral("cnameprefix"), QStringLiteral("lanthorn"));
        w.writeStartElement(QStringLiteral("project"));
        writeFields(w, project);
        w.writeTextElement(QStringLiteral("ProjectID"), projectId);
        w.writeStartElement(QStringLiteral("documents"));
        w.writeStartElement(QStringLiteral("document"));
        w.writeTextElement(QStringLiteral("filename"), QStringLiteral("Report.pdf"));
        w.writeTextElement(QStringLiteral("description"), QStringLiteral("WinCan Report PDF"));
        w.writeEndElement();
        w.writeEndElement();
        w.writeEndElement();
        for (const Section &s : sections) {
            w.writeStartElement(QStringLiteral("section"));
            w.writeTextElement(QStringLiteral("sectionname"), s.name);
            writeFields(w, s.pcd);
            if (s.inspected) {
                w.writeStartElement(QStringLiteral("sectioninspection"));
                writeFields(w, s.pid);
                for (const Observation &o : s.observations)
                    writeObservation(w, s.name, o);
                w.writeEndElement();
            }
            w.writeEndElement();
        }
        w.writeEndDocument();
        return bytes;
    }

    bool write(const QString &file) const
    {
        QFile out(file);
        return out.open(QIODevice::WriteOnly) && out.write(xml()) > 0;
    }

private:
    static void writeFields(QXmlStreamWriter &w, const Fields &fields)
    {
        for (const auto &field : fields)
            w.writeTextElement(field.first, field.second);
    }

    static void writeObservation(QXmlStreamWriter &w, const QString &section, const Observation &o)
    {
        w.writeStartElement(QStringLiteral("sectionobservation"));
        w.writeTextElement(QStringLiteral("poddistance"), o.distance);
        w.writeTextElement(QStringLiteral("podcode"), o.code);
        w.writeTextElement(QStringLiteral("podmovie"), section + QLatin1Char('\\') + section + QStringLiteral("-video.mp4"));
        w.writeTextElement(QStringLiteral("podmpegposition"), QStringLiteral("00:00:05"));
        w.writeTextElement(QStringLiteral("podtext"), o.text);
        for (const QString &picture : o.pictures)
            w.writeTextElement(QStringLiteral("PODPicture1"), section + QLatin1Char('\\') + picture);
        if (!o.mark.isEmpty())
            w.writeTextElement(QStringLiteral("PODContinuousDefect"), o.mark);
        if (!o.remarks.isEmpty())
            w.writeTextElement(QStringLiteral("PODRemarks"), o.remarks);
        w.writeEndElement();
    }
};
