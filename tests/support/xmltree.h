#pragma once

// An exported XML file read through with a real parser into a tree of elements,
// so a test compares what the file holds rather than how it is spelt. A file
// that does not parse gives the parser's error with its line.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

struct XmlNode {
    QString name;
    QStringList attributes;   // "name=value", in file order
    QString text;             // an element's own characters, exactly; empty for one with children
    QList<XmlNode> children;

    QList<XmlNode> all(const QString &childName) const
    {
        QList<XmlNode> found;
        for (const XmlNode &child : children) {
            if (child.name == childName)
                found << child;
        }
        return found;
    }
    XmlNode first(const QString &childName) const
    {
        const QList<XmlNode> found = all(childName);
        return found.isEmpty() ? XmlNode{QStringLiteral("<no %1>").arg(childName), {}, {}, {}} : found.first();
    }
    QStringList childNames() const
    {
        QStringList names;
        for (const XmlNode &child : children)
            names << child.name;
        return names;
    }
    // The children without children of their own, as "name=text" in file order.
    QStringList fields() const
    {
        QStringList pairs;
        for (const XmlNode &child : children) {
            if (child.children.isEmpty())
                pairs << child.name + QLatin1Char('=') + child.text;
        }
        return pairs;
    }

    // Every element below this one, depth first, as "name=text"; one with children gives "name=".
    QStringList flattened() const
    {
        QStringList pairs;
        for (const XmlNode &child : children)
            pairs << child.name + QLatin1Char('=') + child.text << child.flattened();
        return pairs;
    }

    // The document's root element; on a parse error its name is empty and *error says why.
    static XmlNode parse(const QByteArray &xml, QString *error)
    {
        QXmlStreamReader reader(xml);
        QList<XmlNode> open{XmlNode()};
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement()) {
                XmlNode node;
                node.name = reader.name().toString();
                for (const QXmlStreamAttribute &attribute : reader.attributes())
                    node.attributes << attribute.qualifiedName().toString() + QLatin1Char('=')
                                           + attribute.value().toString();
                open << node;
            } else if (reader.isEndElement()) {
                XmlNode node = open.takeLast();
                if (!node.children.isEmpty())
                    node.text.clear();
                open.last().children << node;
            } else if (reader.isCharacters()) {
                open.last().text += reader.text();
            }
        }
        if (reader.hasError()) {
            *error = reader.errorString() + QStringLiteral(" at line %1").arg(reader.lineNumber());
            return XmlNode();
        }
        return open.first().children.value(0);
    }
};
