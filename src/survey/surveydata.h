#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

// The live key and value store behind the information forms and the survey
// flows. The values live in the console's settings, never in the object, so a
// survey's fields survive a restart of the console.
class SurveyData : public QObject
{
    Q_OBJECT
public:
    explicit SurveyData(QObject *parent = nullptr) : QObject(parent) {}

    virtual QString get(QString key) = 0;
    // The keys that hold a value, in the order the survey header shows them.
    virtual QStringList toStringList() = 0;
    // Every key of the group is kept, with an empty value.
    virtual void clear() = 0;

public slots:
    virtual void set(QString key, QString value) = 0;

protected:
    // The shared behaviour of the settings-backed stores, one settings group each.
    static QString getFromGroup(const QString &group, const QString &key);
    static void setInGroup(const QString &group, const QString &key, const QString &value);
    static void clearGroup(const QString &group);
    // Every key with a non-blank value that contains one of the names, name by
    // name in the given order. The match is a substring, so a key may be listed
    // under two names ("LiningMaterial" under "Material" and under itself).
    static QStringList listGroup(const QString &group, const QStringList &order);
};
