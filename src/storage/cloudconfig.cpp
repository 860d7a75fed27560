#include "storage/cloudconfig.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {
const QString kRoot = QStringLiteral("Cloud");
const QString kHost = QStringLiteral("Host");
const QString kUsername = QStringLiteral("Username");
const QString kPassword = QStringLiteral("Password");
} // namespace

QString CloudConfig::fileName()
{
    return unitPath(QStringLiteral("/opt/hbi/cloud_config.xml"));
}

bool CloudConfig::read(QString *error)
{
    QFile file(fileName());
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return false;
    }
    QXmlStreamReader xml(&file);
    CloudConfig found;
    if (!xml.readNextStartElement() || xml.name() != kRoot) {
        xml.raiseError(QStringLiteral("Not a bookindex file"));
    } else {
        while (xml.readNextStartElement()) {
            if (xml.name() == kHost)
                found.host = xml.readElementText();
            else if (xml.name() == kUsername)
                found.username = xml.readElementText();
            else if (xml.name() == kPassword)
                found.password = xml.readElementText();
            else
                xml.skipCurrentElement();
        }
    }
    if (xml.hasError()) {
        qWarning().noquote() << "Cloud settings unreadable:" << xml.errorString();
        if (error)
            *error = xml.errorString();
        return false;
    }
    *this = found;
    return true;
}

namespace {
// XML cannot hold most control characters at all; a settings file that says
// what cannot be read back would lose all three values.
bool fitsInXml(const QString &value)
{
    for (const QChar c : value) {
        if (c.unicode() < 0x20 && c != QLatin1Char('\t') && c != QLatin1Char('\n') && c != QLatin1Char('\r'))
            return false;
    }
    return true;
}

// A reader turns a carriage return written as it is into a line feed; as a
// character reference it comes back as it went.
void writeValue(QXmlStreamWriter &xml, const QString &name, const QString &value)
{
    xml.writeStartElement(name);
    const QStringList parts = value.split(QLatin1Char('\r'));
    for (int i = 0; i < parts.size(); ++i) {
        if (i > 0)
            xml.writeEntityReference(QStringLiteral("#13"));
        xml.writeCharacters(parts.at(i));
    }
    xml.writeEndElement();
}
} // namespace

bool CloudConfig::write() const
{
    if (!fitsInXml(host) || !fitsInXml(username) || !fitsInXml(password)) {
        qWarning() << "Cannot write cloud settings: a value holds a control character";
        return false;
    }
    QSaveFile file(fileName());
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning() << "Cannot write cloud settings:" << file.errorString();
        return false;
    }
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(kRoot);
    writeValue(xml, kHost, host);
    writeValue(xml, kUsername, username);
    writeValue(xml, kPassword, password);
    xml.writeEndElement();
    xml.writeEndDocument();
    return file.commit();
}
