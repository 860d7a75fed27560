#include "storage/cloudconfig.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QSaveFile>
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

bool CloudConfig::write() const
{
    QSaveFile file(fileName());
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning() << "Cannot write cloud settings:" << file.errorString();
        return false;
    }
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(kRoot);
    xml.writeTextElement(kHost, host);
    xml.writeTextElement(kUsername, username);
    xml.writeTextElement(kPassword, password);
    xml.writeEndElement();
    xml.writeEndDocument();
    return file.commit();
}
